"""What may be a picture: raw frames and arrays of all formats, in memory of any kind and shape."""

import array
import ctypes
import mmap

import numpy as np
import orva
import pytest

RANDOM = np.random.default_rng(2)
NAMES = [format.name for format in orva.formats()]
PAIRS = [(src, dst) for src in NAMES for dst in NAMES if orva.can_convert(src, dst)]

# Of a picture 6 pixels wide and 4 high.
SHAPES = {
    "Y8PUV8IA8P": [(4, 6), (4, 3, 2), (4, 6)],
    "Y8PU8PV8P": [(4, 6), (4, 3), (4, 3)],
    "BGR24IA8P": [(4, 6, 3), (4, 6)],
    "V210": [(4, 32)],
    "Y10PUV10I": [(4, 6), (4, 3, 2)],
    "Y10PU10PV10P": [(4, 6), (4, 3), (4, 3)],
}


def planes_of(picture):
    return picture if isinstance(picture, tuple) else (picture,)


def raw(picture):
    return b"".join(plane.tobytes() for plane in planes_of(picture))


def filled(format, width, height):
    """Arrays of anything."""
    picture = orva.empty(format, width, height)
    for plane in planes_of(picture):
        plane[...] = RANDOM.integers(0, np.iinfo(plane.dtype).max, plane.shape, plane.dtype, True)
    return picture


def test_shapes():
    for name, shapes in SHAPES.items():
        planes = planes_of(orva.empty(name, 6, 4))
        assert [plane.shape for plane in planes] == shapes, name
        words = np.uint32 if name == "V210" else np.uint16 if "10" in name else np.uint8
        assert all(plane.dtype == words and plane.ctypes.data % 64 == 0 for plane in planes), name


@pytest.mark.parametrize("width", [50, 49])
def test_every_pair_as_raw_frames_and_arrays(width):
    assert len(PAIRS) == 412
    height = 4
    for src, dst in PAIRS:
        picture = None if src == "A8C" else filled(src, width, height)
        frame = None if src == "A8C" else raw(picture)
        size = {"width": width, "height": height}
        out = bytearray(orva.frame_bytes(dst, width, height))
        assert orva.convert(frame, src, dst, out=out, **size) is out
        assert raw(orva.convert(picture, src, dst, **size)) == out, (src, dst)
        if width % 2 == 0 and src not in ("A8C", "V210"):
            assert raw(orva.convert(picture, src, dst)) == out, (src, dst)


@pytest.mark.parametrize(
    "memory",
    [
        memoryview,
        bytearray,
        lambda frame: array.array("B", frame),
        lambda frame: (ctypes.c_ubyte * len(frame)).from_buffer_copy(frame),
        lambda frame: memoryview(b"?" + frame + b"?")[1:-1],
        lambda frame: np.frombuffer(frame, "<u2"),
    ],
)
def test_raw_frames_in_any_memory(memory):
    frame = raw(filled("p210le", 30, 5))
    expected = orva.convert(frame, "p210le", "RGB24I", width=30, height=5)
    assert (orva.convert(memory(frame), "p210le", "RGB24I", width=30, height=5) == expected).all()
    with mmap.mmap(-1, expected.nbytes) as out:
        orva.convert(memory(frame), "p210le", "RGB24I", width=30, height=5, out=out)
        assert out[:] == raw(expected)


def test_arrays_that_give_no_strides():
    pixels = RANDOM.integers(0, 255, (4, 8, 3), np.uint8)
    array = (ctypes.c_ubyte * 3 * 8 * 4).from_buffer_copy(pixels.tobytes())
    expected = orva.convert(pixels, "BGR24I", "BGR32I")
    assert (orva.convert(array, "BGR24I", "BGR32I") == expected).all()
    out = (ctypes.c_ubyte * 4 * 8 * 4)()
    orva.convert(pixels, "BGR24I", "BGR32I", out=out)
    assert bytes(out) == raw(expected)
    alpha = (ctypes.c_ubyte * 8 * 4).from_buffer_copy(pixels[:, :, 0].tobytes())
    assert (orva.convert(alpha, "A8P", "A8P") == pixels[:, :, 0]).all()


def test_v210_as_bytes_or_words_with_or_without_gap():
    words = filled("V210", 50, 3)
    expected = orva.convert(words, "V210", "UYVY16I", width=50)
    for rows in (words.view(np.uint8), words.view(np.uint8)[:, : 9 * 16], words[:, : 9 * 4]):
        assert (orva.convert(rows, "V210", "UYVY16I", width=50) == expected).all()
    uyvy, out = RANDOM.integers(1, 255, (3, 50, 2), np.uint8), np.full((3, 200), 7, np.uint8)
    orva.convert(uyvy, "UYVY16I", "V210", out=out[:, : 9 * 16])
    assert (out[:, 9 * 16 :] == 7).all()
    assert (orva.convert(out[:, : 9 * 16], "V210", "UYVY16I", width=50) == uyvy).all()


def test_size_comes_from_out():
    frame = filled("V210", 50, 3)
    out = orva.empty("RGB24I", 50, 3)
    assert orva.convert(raw(frame), "V210", "RGB24I", out=out) is out
    assert (orva.convert(frame, "V210", "RGB24I", width=50) == out).all()


@pytest.mark.parametrize("src, dst", [("UYVY16I", "BGR24I"), ("nv16", "i422"), ("bgra", "p210le")])
@pytest.mark.parametrize("step", [1, 2, -1, -3])
def test_crops_and_rows_of_any_stride(src, dst, step):
    """Nothing but the pixels asked for is read or written."""

    def crop(picture):
        return tuple(
            plane[3:-3, chroma : -2 * chroma][::step]
            for plane, chroma in zip(planes_of(picture), (2, 1, 1))
        )

    whole, target = filled(src, 64, 32), filled(dst, 64, 32)
    before = [plane.copy() for plane in planes_of(target)]
    given, out = crop(whole), crop(target)
    expected = planes_of(orva.convert(tuple(plane.copy() for plane in given), src, dst))
    assert orva.convert(given, src, dst, out=out) is out
    for untouched, pixels in zip(crop(tuple(before)), expected):
        untouched[...] = pixels
    assert all((plane == wanted).all() for plane, wanted in zip(planes_of(target), before))


def test_memory_is_used_where_it_is():
    """The library tells how far apart the memory of both is."""
    pixels = filled("BGR32I", 16, 9)
    for src, out, distance in ((pixels[1:], pixels[:-1], -64), (pixels[:-1], pixels[1:], 64)):
        with pytest.raises(ValueError, match=f"^out is {distance}: it begins that many bytes"):
            orva.convert(src, "BGR32I", "RGB32I", out=out)
    expected = pixels[:, :, [2, 1, 0, 3]].copy()
    assert orva.convert(pixels, "BGR32I", "RGB32I", out=pixels) is pixels
    assert (pixels == expected).all()


def test_the_stride_of_a_single_pixel_means_nothing():
    pixels = np.lib.stride_tricks.as_strided(filled("BGR32I", 16, 9), (9, 1, 4), (64, 99, 1))
    assert (orva.convert(pixels, "BGR32I", "RGB32I") == pixels[:, :, [2, 1, 0, 3]]).all()


@pytest.mark.parametrize("width, height", [(0, 5), (8, 0), (0, 0)])
def test_empty_pictures(width, height):
    for src, dst in (("UYVY16I", "BGR24I"), ("bgra", "nv16"), ("i422", "V210")):
        picture = orva.convert(filled(src, width, height), src, dst)
        assert raw(picture) == b""
        assert orva.convert(b"", src, dst, width=width, height=height, out=bytearray()) == b""
