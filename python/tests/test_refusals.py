"""What cannot be right is refused in the words of the call, and leaves nothing behind."""

import sys

import numpy as np
import orva
import pytest

UYVY = np.zeros((4, 6, 2), np.uint8)
NV16 = (np.zeros((4, 6), np.uint8), np.zeros((4, 3, 2), np.uint8))
BIG_ENDIAN = tuple(plane.astype(">u2") for plane in NV16)
WORDS = np.zeros((4, 32), np.uint32)
FRAME = bytes(48)  # of UYVY16I, 6 x 4
BROADCAST = np.broadcast_to(UYVY[:1], (4, 6, 2))
FAR = np.lib.stride_tricks.as_strided(UYVY, (4, 6, 2), (2**62, 2, 1))
LONG = np.lib.stride_tricks.as_strided(np.zeros(1, np.uint8), (2**33, 1, 3), (0, 3, 1))


def to_bgr(src, **options):
    return (src, "UYVY16I", "BGR24I"), options


def from_bgr(dst, out, **options):
    return (np.zeros((4, 6, 3), np.uint8), "BGR24I", dst), {"out": out, **options}


REFUSED = [
    # Formats and options
    (to_bgr(UYVY, matrix="bt470"), ValueError, "matrix is 'bt470': give 'bt601' or 'bt709' or 'b"),
    (to_bgr(UYVY, dst_range="video"), ValueError, "dst_range is 'video'"),
    (to_bgr(UYVY, range="tv", src_range="full", dst_range="full"), ValueError, "range is 'tv'"),
    (to_bgr(UYVY, chroma=["nearest"]), TypeError, "chroma is "),
    (to_bgr(UYVY, alpha=256), ValueError, "alpha is 256: give a number from 0 to 255"),
    (to_bgr(UYVY, alpha=0.5), TypeError, "alpha must be an int"),
    (((UYVY, "UYVY", "rgb\0"), {}), ValueError, r"dst_format is 'rgb\\x00'"),
    (((UYVY, "\ud800", "BGR24I"), {}), ValueError, r"src_format is '\\ud800'"),
    (((UYVY, b"UYVY", "BGR24I"), {}), TypeError, "src_format must be a str"),
    (((UYVY, "UYVY", "A8P"), {}), ValueError, "dst_format is A8P: UYVY16I does not convert"),
    # Sizes
    (to_bgr(FRAME), ValueError, "width is needed"),
    (to_bgr(FRAME, width=6), ValueError, "height is needed"),
    (to_bgr(FRAME, width=6, height=5), ValueError, "src has 48 bytes: .* 6 x 5 has 60"),
    (to_bgr(FRAME, width=6, height=3), ValueError, "src has 48 bytes: .* 6 x 3 has 36"),
    (to_bgr(FRAME, width=2**32 - 1, height=2**32 - 1), ValueError, "width is 4294967295 and hei"),
    (to_bgr(FRAME, width=2**70, height=1), ValueError, "width is out of range"),
    (to_bgr(FRAME, width=6, height=-4), ValueError, "height is -4"),
    (to_bgr(UYVY, width=4), ValueError, "src has 6 columns: with a width of 4, UYVY16I has 4"),
    (to_bgr(UYVY, height=3), ValueError, "src has 4 rows: the picture's height is 3"),
    (to_bgr(UYVY[:, :5]), ValueError, "src has 5 columns: with a width of 5, UYVY16I has 6"),
    (((WORDS, "V210", "UYVY"), {}), ValueError, "width is needed"),
    (((WORDS, "V210", "UYVY"), {"width": 49}), ValueError, "src has 32 columns"),
    (((LONG, "BGR24I", "UYVY"), {}), ValueError, "src has 8589934592 rows .* at most 42"),
    # Rows
    (to_bgr(UYVY, rows=(0, 1)), ValueError, "out is None: some rows"),
    (from_bgr("UYVY", UYVY, rows=(5, 1)), ValueError, r"rows\[0\] is 5"),
    (from_bgr("UYVY", UYVY, rows=2), TypeError, "rows must be a tuple"),
    # What is no picture
    (to_bgr(None), TypeError, "src must be an array or bytes-like"),
    (((FRAME, "A8C", "A8P"), {"width": 6, "height": 4}), ValueError, "src must be None"),
    (to_bgr(memoryview(FRAME)[::2], width=6, height=2), ValueError, "src is a raw frame with gaps"),
    (to_bgr(UYVY.astype(float)), ValueError, "src has items of format 'd': .* uint8"),
    (((WORDS.view("f4"), "V210", "BGR24I"), {}), ValueError, "items of format 'f': .* uint32, or"),
    (to_bgr(np.zeros((4, 6, 2), "M8[s]")), ValueError, "^src: "),
    (to_bgr(UYVY[:, :, 0]), ValueError, r"src must have the shape \(height, width, 2\)"),
    (to_bgr(np.zeros((4, 6, 3), np.uint8)), ValueError, "src must have the shape"),
    (to_bgr(UYVY[:, ::-1]), ValueError, "src has gaps between the pixels"),
    (to_bgr(UYVY[:, :, ::-1]), ValueError, "src has gaps between the pixels"),
    (to_bgr(BROADCAST), ValueError, r"src has rows that overlap: strides\[0\] is 0"),
    (to_bgr(FAR), ValueError, "src has a stride of 4611686018427387904"),
    # Planes
    (((UYVY, "nv16", "BGR24I"), {}), ValueError, "src must be a raw frame .* Y8PUV8I has 2 planes"),
    (((NV16[:1], "nv16", "BGR24I"), {}), ValueError, "src has 1 planes: Y8PUV8I has 2"),
    (((NV16[:1] * 3, "i422", "BGR24I"), {}), ValueError, r"src\[1\] has 6 columns: .* has 3"),
    ((([NV16[0], None], "nv16", "BGR24I"), {}), TypeError, r"src\[1\] must be an array"),
    (((NV16, "p210le", "BGR24I"), {}), ValueError, r"src\[0\] has items of format 'B': .* uint16"),
    (((BIG_ENDIAN, "p210le", "BGR24I"), {}), ValueError, "items of format '>H': .* little-endian"),
    # The other side
    (from_bgr("UYVY", FRAME), ValueError, "out is read-only"),
    (from_bgr("UYVY", UYVY[:3]), ValueError, "out has 3 rows"),
    (from_bgr("nv16", (NV16[0], NV16[1][:, :2])), ValueError, r"out\[1\] has 2 columns"),
    (from_bgr("i422", (NV16[0],) + 2 * (NV16[1][:, :, 0].copy(),)), ValueError, "out is 0: it beg"),
]


@pytest.mark.parametrize("call, error, text", REFUSED)
def test_refused(call, error, text):
    arguments, options = call
    with pytest.raises(error, match=text):
        orva.convert(*arguments, **options)


@pytest.mark.parametrize(
    "function, arguments",
    [
        (orva.frame_bytes, ("UYVY", 2**32 - 1, 2**32 - 1)),
        (orva.empty, ("UYVY", 2**32 - 1, 2**32 - 1)),
        (orva.empty, ("UYVY", -1, 1)),
        (orva.frame_bytes, ("none", 1, 1)),
        (orva.can_convert, ("UYVY", "none")),
    ],
)
def test_other_functions_refuse(function, arguments):
    with pytest.raises(ValueError, match="^(width|format|dst_format) is "):
        function(*arguments)


def test_memory_is_let_go_and_untouched():
    """A bytearray that somebody still looks at cannot grow."""
    src, out = bytearray(range(48)), bytearray(b"?" * 72)
    size = {"width": 6, "height": 4}
    for options in (
        {**size, "out": out, "rows": (5, 1)},
        {**size, "out": bytes(72)},
        {**size, "out": (out, out)},
        {**size, "out": out[1:]},
        {**size, "out": src},
        {"height": 4, "out": out},
    ):
        with pytest.raises(ValueError) as caught:
            orva.convert(src, "UYVY16I", "BGR24I", **options)
        # Even while the exception is looked at.
        src.append(0)
        out.append(0)
        del src[-1], out[-1], caught
    assert src == bytes(range(48)) and out == b"?" * 72


def test_no_reference_is_lost_or_kept():
    src, out, name = bytearray(48), bytearray(72), "".join(["UY", "VY"])
    objects = (src, out, name, None)
    references = [sys.getrefcount(object) for object in objects]
    for _ in range(1000):
        orva.convert(src, name, "BGR24I", width=6, height=4, out=out)
        try:
            orva.convert(src, name, "BGR24I", width=6, height=4, out=[out])
        except ValueError:
            pass
    for object, before in zip(objects, references):
        assert abs(sys.getrefcount(object) - before) < 100
