# The compiled part, which __init__.py gives names, defaults and words.
from collections.abc import Callable
from typing import Any

# A plane's bytes and pixels of a unit.
_Unit = tuple[int, int]

def version() -> str: ...
def instruction_set() -> str: ...

# Name, other names, model, bits, has alpha, planes.
def formats() -> list[tuple[str, str, int, int, bool, tuple[_Unit, _Unit, _Unit, _Unit]]]: ...
def can_convert(src_format: str, dst_format: str, /) -> bool: ...
def frame_bytes(format: str, width: int, height: int, /) -> int: ...

# The shape and type of the array of each plane of a raw frame.
def plane_shapes(format: str, width: int, height: int, /) -> list[tuple[tuple[int, ...], str]]: ...

# `empty` makes the picture that is converted into where `out` is None.
def convert(
    src: object,
    src_format: str,
    dst_format: str,
    width: int | None,
    height: int | None,
    out: object,
    empty: Callable[[str, int, int], object],
    src_matrix: int,
    dst_matrix: int,
    src_range: int,
    dst_range: int,
    chroma: int,
    streaming: int,
    alpha: int,
    rows: tuple[int, int] | None,
    /,
) -> Any: ...
