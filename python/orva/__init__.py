"""Converts uncompressed video frames between pixel formats.

    bgr = orva.convert(frame, "UYVY16I", "BGR24I", width=1920, height=1080)

Pictures are used where they lie: nothing is copied, and other threads run meanwhile.
"""

import math
from typing import Any, Literal, NamedTuple

from . import _orva

try:
    import numpy as _numpy
except ImportError:
    _numpy = None  # type: ignore[assignment]

__all__ = [
    "Format",
    "Plane",
    "can_convert",
    "convert",
    "empty",
    "formats",
    "frame_bytes",
    "instruction_set",
]
__version__ = _orva.version()

Matrix = Literal["bt601", "bt709", "bt2020"]
Range = Literal["studio", "full"]
Chroma = Literal["cosited", "nearest"]
Streaming = Literal["automatic", "never", "always"]
Model = Literal["alpha", "rgb", "ycbcr"]

# In the order of the library's numbers.
_MATRICES = {"bt601": 0, "bt709": 1, "bt2020": 2}
_RANGES = {"studio": 0, "full": 1}
_CHROMAS = {"cosited": 0, "nearest": 1}
_STREAMINGS = {"automatic": 0, "never": 1, "always": 2}
_MODELS: tuple[Model, ...] = ("alpha", "rgb", "ycbcr")


class Plane(NamedTuple):
    """A plane of a format, whose rows are runs of units of whole pixels."""

    name: str  #: "main" (packed samples, luma, or alpha alone), "chroma", "cr" or "alpha"
    unit_bytes: int
    unit_pixels: int


class Format(NamedTuple):
    """What a format stores."""

    name: str
    other_names: tuple[str, ...]  #: what other programs call it
    model: Model
    bits: int  #: of a sample: 8 or 10
    has_alpha: bool  #: in the pixels, as a plane, or alone
    planes: tuple[Plane, ...]  #: in the order of a raw frame and of a tuple of arrays


def _format(
    name: str, others: str, model: int, bits: int, has_alpha: bool, units: tuple[tuple[int, int], ...]
) -> Format:
    planes = (Plane(plane, *unit) for plane, unit in zip(("main", "chroma", "cr", "alpha"), units))
    return Format(
        name,
        tuple(others.split()),
        _MODELS[model],
        bits,
        has_alpha,
        tuple(plane for plane in planes if plane.unit_bytes),
    )


_FORMATS = tuple(_format(*row) for row in _orva.formats())


def formats() -> tuple[Format, ...]:
    """Every format."""
    return _FORMATS


def can_convert(src_format: str, dst_format: str) -> bool:
    """Whether `convert` knows the pair: every colour becomes every colour, and what has alpha
    becomes A8P."""
    return _orva.can_convert(src_format, dst_format)


def frame_bytes(format: str, width: int, height: int) -> int:
    """Bytes of a raw frame: its planes one behind the other, their rows without gaps, but for
    those of V210, which take multiples of 128 bytes."""
    return _orva.frame_bytes(format, width, height)


def instruction_set() -> str:
    """What conversions use of this processor: "SSE2", "SSE4.1", "AVX2", "AVX-VNNI", "AVX-512" or
    "NEON"."""
    return _orva.instruction_set()


def _lines(shape: tuple[int, ...], type: str) -> Any:
    """An array that begins with a cache line, which is faster to write."""
    line = 64
    # V210's rows end in a gap that no conversion writes.
    new = _numpy.zeros if type == "<u4" else _numpy.empty
    memory = new(math.prod(shape) * int(type[-1]) + line, _numpy.uint8)
    begin = -memory.__array_interface__["data"][0] % line
    return _numpy.ndarray(shape, type, memory, begin)


def empty(format: str, width: int, height: int) -> Any:
    """A new picture that holds anything, such as `convert` fills and returns.

    With NumPy an array of `uint8` or `uint16`, or a tuple of arrays where the format has several
    planes; V210 has rows of `uint32`, with zeros in the gap behind them. Together the arrays have
    the bytes of a raw frame. Without NumPy a `bytearray` of a raw frame.
    """
    if _numpy is None:
        return bytearray(_orva.frame_bytes(format, width, height))
    planes = tuple(_lines(*plane) for plane in _orva.plane_shapes(format, width, height))
    return planes[0] if len(planes) == 1 else planes


def _code(argument: str, value: object, codes: dict[str, int]) -> int:
    try:
        return codes[value]  # type: ignore[index]
    except (KeyError, TypeError):
        error = ValueError if isinstance(value, str) else TypeError
        raise error(f"{argument} is {value!r}: give {' or '.join(map(repr, codes))}") from None


def _sides(
    argument: str, both: object, src: object, dst: object, codes: dict[str, int]
) -> tuple[int, int]:
    common = _code(argument, both, codes)
    return (
        common if src is None else _code("src_" + argument, src, codes),
        common if dst is None else _code("dst_" + argument, dst, codes),
    )


def convert(
    src: Any,
    src_format: str,
    dst_format: str,
    *,
    width: int | None = None,
    height: int | None = None,
    out: Any = None,
    matrix: Matrix = "bt709",
    src_matrix: Matrix | None = None,
    dst_matrix: Matrix | None = None,
    range: Range = "studio",
    src_range: Range | None = None,
    dst_range: Range | None = None,
    chroma: Chroma = "cosited",
    alpha: int = 255,
    rows: tuple[int, int] | None = None,
    streaming: Streaming = "automatic",
) -> Any:
    """Converts a picture into another format and returns it.

    `src` and `out` are pictures: objects with the buffer protocol, used where they lie.

    - A raw frame is anything of one dimension without gaps: `bytes`, `memoryview`, `mmap`, ...
    - An array has the shape (height, width) for A8P, (height, width, 2) for packed 4:2:2,
      (height, width, 3) or (height, width, 4) for RGB, all `uint8`. V210 has rows of bytes, or of
      words as `uint32`, with or without the gap that makes them multiples of 128 bytes.
    - Formats of several planes are a tuple or list of arrays: luma (height, width), chroma pairs
      (height, width / 2, 2) or Cb and Cr (height, width / 2) each; of 10 bits as little-endian
      `uint16`. A plane of alpha, (height, width), is the last.

    Rows may have any stride, so that pictures may be crops or upside down; within a row there are
    no gaps. A8C has no memory: its `src` is None.

    `width` and `height` are needed only where no array tells them. Rows of 4:2:2 hold whole pairs
    of pixels: of an odd width the arrays have one column more, and the width has to be given.

    `out` is written and returned; by default it is `empty(dst_format, width, height)`. It may
    share memory with `src` only where both are the very same pixels of the same size.

    `matrix` and `range` tell what YCbCr means, on both sides unless `src_matrix`, `dst_matrix`,
    `src_range` or `dst_range` tell otherwise. `chroma` is where 4:2:2 chroma lies: "cosited" with
    the even pixels, or "nearest", the same for both pixels of a pair. `alpha`, 0 to 255, is that
    of every pixel where the source has none.

    `rows`, (first, count), converts only these, so that threads can share a picture; the bytes are
    the same. `streaming` says whether frames are written past the cache; it changes no byte.

    Raises ValueError where a picture or a value cannot be right, and TypeError for what is no
    picture, name or number at all; both name the argument, and nothing has been written then.
    """
    return _orva.convert(
        src,
        src_format,
        dst_format,
        width,
        height,
        out,
        empty,
        *_sides("matrix", matrix, src_matrix, dst_matrix, _MATRICES),
        *_sides("range", range, src_range, dst_range, _RANGES),
        _code("chroma", chroma, _CHROMAS),
        _code("streaming", streaming, _STREAMINGS),
        alpha,
        rows,
    )
