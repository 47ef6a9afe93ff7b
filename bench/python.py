"""Measures the Python package beside OpenCV and NumPy: `make bench-python`. Prints a table in Markdown.

All are measured in turn, round by round, so that whatever else the machine does meets all of them.
"""

import statistics
import time
from collections.abc import Callable
from concurrent.futures import ThreadPoolExecutor

import cv2
import numpy as np
import orva

WIDTH, HEIGHT, CLIP, ROUNDS = 1920, 1080, 60, 100
HALVES = (0, HEIGHT // 2), (HEIGHT // 2, HEIGHT // 2)
cv2.setNumThreads(1)
threads = ThreadPoolExecutor(2)

uyvy = np.random.default_rng(0).integers(0, 256, (HEIGHT, WIDTH, 2), np.uint8)
raw = uyvy.tobytes()
bgr, bgra, copy = (np.empty((HEIGHT, WIDTH, channels), np.uint8) for channels in (3, 4, 2))
tiny = uyvy[:2, :2]


def frames(count: int, rows: tuple[int, int] | None = None) -> None:
    for _ in range(count):
        orva.convert(uyvy, "UYVY16I", "BGR24I", out=bgr, rows=rows)


def on_two_threads(count: int) -> None:
    for half in [threads.submit(frames, count, rows) for rows in HALVES]:
        half.result()


# What is called, and how many pictures it converts.
CALLS: dict[str, tuple[Callable[[], object], int]] = {
    "UYVY16I to BGR24I": (lambda: frames(1), 1),
    "from bytes": (
        lambda: orva.convert(raw, "UYVY16I", "BGR24I", width=WIDTH, height=HEIGHT, out=bgr),
        1,
    ),
    "into a new array": (lambda: orva.convert(uyvy, "UYVY16I", "BGR24I"), 1),
    "nearest chroma": (
        lambda: orva.convert(uyvy, "UYVY16I", "BGR24I", out=bgr, chroma="nearest"),
        1,
    ),
    "`cv2.cvtColor`": (lambda: cv2.cvtColor(uyvy, cv2.COLOR_YUV2BGR_UYVY, dst=bgr), 1),
    "UYVY16I to BGR32I": (lambda: orva.convert(uyvy, "UYVY16I", "BGR32I", out=bgra), 1),
    "`cv2.cvtColor` to BGRA": (lambda: cv2.cvtColor(uyvy, cv2.COLOR_YUV2BGRA_UYVY, dst=bgra), 1),
    "`numpy.copyto` of UYVY16I": (lambda: np.copyto(copy, uyvy), 1),
    "two threads woken for every frame": (lambda: on_two_threads(1), 1),
    "a clip": (lambda: frames(CLIP), CLIP),
    "a clip on two threads": (lambda: on_two_threads(CLIP), CLIP),
    "2x2 pixels": (lambda: [orva.convert(tiny, "UYVY16I", "BGR24I") for _ in range(1000)], 1000),
}

samples: dict[str, list[float]] = {name: [] for name in CALLS}
for _ in range(ROUNDS):
    for name, (call, count) in CALLS.items():
        begin = time.perf_counter()
        call()
        samples[name].append(1e3 * (time.perf_counter() - begin) / count)
times = {name: statistics.median(values) for name, values in samples.items()}

print(f"{WIDTH}x{HEIGHT}, {orva.instruction_set()}, orva {orva.__version__}, cv2 {cv2.__version__}")
print("\n| | ms per picture |\n|---|--:|")
for name, milliseconds in times.items():
    print(f"| {name} | {milliseconds:.4f} |")

against_cv2 = times["`cv2.cvtColor`"] / times["UYVY16I to BGR24I"]
on_threads = times["a clip"] / times["a clip on two threads"]
print(f"\nAgainst cv2: {against_cv2:.2f} times as fast, wanted: 3.5.")
print(f"A clip on two threads against one: {on_threads:.2f} times as fast, wanted: 1.6.")
