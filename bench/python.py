"""Measures the Python package beside OpenCV and NumPy: `make bench-python`. Prints a table in Markdown.

All are measured in turn, round by round, so that whatever else the machine does meets all of them.
Fresh is one picture at a time, whose memory the others have driven out of the caches; in a row are
300 pictures in the same memory.
"""

import statistics
import time
from collections.abc import Callable
from concurrent.futures import ThreadPoolExecutor
from functools import partial

import cv2
import numpy as np
import orva

WIDTH, HEIGHT = 1920, 1080
HALVES = (0, HEIGHT // 2), (HEIGHT // 2, HEIGHT // 2)
cv2.setNumThreads(1)
threads = ThreadPoolExecutor(2)
random = np.random.default_rng(0)

# Takes this many pictures.
Work = Callable[[int], object]


def camera() -> np.ndarray:
    frame = orva.empty("UYVY16I", WIDTH, HEIGHT)
    frame[...] = random.integers(0, 256, frame.shape, np.uint8)
    return frame


def screen(format: str) -> np.ndarray:
    frame = orva.empty(format, WIDTH, HEIGHT)
    frame[...] = 0
    return frame


def one_by_one(call: Callable[[], object]) -> Work:
    def work(count: int) -> None:
        for _ in range(count):
            call()

    return work


def of_orva(format: str, src: object = None, **options: object) -> Work:
    src, out = camera() if src is None else src, screen(format)
    return one_by_one(lambda: orva.convert(src, "UYVY16I", format, out=out, **options))


def of_new() -> Work:
    src = camera()
    return one_by_one(lambda: orva.convert(src, "UYVY16I", "BGR24I"))


def of_cv2(format: str, code: int) -> Work:
    src, out = camera(), screen(format)
    return one_by_one(lambda: cv2.cvtColor(src, code, dst=out))


def of_copy() -> Work:
    src, out = camera(), screen("UYVY16I")
    return one_by_one(lambda: np.copyto(out, src))


def of_threads(ranges: tuple[tuple[int, int], ...]) -> Work:
    src, out = camera(), screen("BGR24I")
    works = [
        one_by_one(partial(orva.convert, src, "UYVY16I", "BGR24I", out=out, rows=rows))
        for rows in ranges
    ]
    return lambda count: list(threads.map(lambda work: work(count), works))


CALLS: dict[str, Work] = {
    "UYVY16I to BGR24I": of_orva("BGR24I"),
    "from bytes": of_orva("BGR24I", camera().tobytes(), width=WIDTH, height=HEIGHT),
    "into a new array": of_new(),
    "nearest chroma": of_orva("BGR24I", chroma="nearest"),
    "two threads, each half of the rows": of_threads(HALVES),
    "`cv2.cvtColor`": of_cv2("BGR24I", cv2.COLOR_YUV2BGR_UYVY),
    "UYVY16I to BGR32I": of_orva("BGR32I"),
    "`cv2.cvtColor` to BGRA": of_cv2("BGR32I", cv2.COLOR_YUV2BGRA_UYVY),
    "`numpy.copyto` of UYVY16I": of_copy(),
    "2x2 pixels": one_by_one(lambda: orva.convert(bytes(8), "UYVY16I", "BGR24I", width=2, height=2)),
}


def milliseconds(count: int, rounds: int) -> dict[str, float]:
    """Of a picture, the median of all rounds."""
    samples: dict[str, list[float]] = {name: [] for name in CALLS}
    for _ in range(rounds):
        for name, work in CALLS.items():
            begin = time.perf_counter()
            work(count)
            samples[name].append(1e3 * (time.perf_counter() - begin) / count)
    return {name: statistics.median(values) for name, values in samples.items()}


fresh, in_a_row = milliseconds(1, 100), milliseconds(300, 10)
print(f"{WIDTH}x{HEIGHT}, {orva.instruction_set()}, orva {orva.__version__}, cv2 {cv2.__version__}")
print("\n| ms per picture | fresh | in a row |\n|---|--:|--:|")
for name in CALLS:
    print(f"| {name} | {fresh[name]:.3f} | {in_a_row[name]:.3f} |")



def faster(slow: str, fast: str) -> str:
    return " and ".join(f"{times[slow] / times[fast]:.2f}" for times in (fresh, in_a_row))


ours, shared, cv = "UYVY16I to BGR24I", "two threads, each half of the rows", "`cv2.cvtColor`"
print(f"\nAs fast as cv2: {faster(cv, ours)} times; 3.5 is wanted.")
print(f"Two threads as fast as one: {faster(ours, shared)} times; 1.6 is wanted.")
