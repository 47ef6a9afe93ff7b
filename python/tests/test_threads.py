"""Threads share pictures, and others run while one converts."""

import sys
import threading
import time
from concurrent.futures import ThreadPoolExecutor

import numpy as np
import orva


def test_rows_of_a_picture_on_threads():
    uyvy = np.random.default_rng(3).integers(0, 256, (211, 300, 2), np.uint8)
    expected = orva.convert(uyvy, "UYVY16I", "nv16")
    out = orva.empty("nv16", 300, 211)

    def convert(first):
        orva.convert(uyvy, "UYVY16I", "nv16", out=out, rows=(first, 20))

    with ThreadPoolExecutor(4) as threads:
        list(threads.map(convert, range(0, 211, 20)))
    assert all((plane == wanted).all() for plane, wanted in zip(out, expected))


def test_only_the_rows_asked_for():
    bgr, out = np.ones((9, 4, 3), np.uint8), np.zeros((9, 4, 3), np.uint8)
    orva.convert(bgr, "BGR24I", "RGB24I", out=out, rows=(3, 2))
    assert out[:, 0, 0].tolist() == [0, 0, 0, 1, 1, 0, 0, 0, 0]


def test_other_threads_run_meanwhile():
    """No thread has to be interrupted for that: none is, between two lines."""
    picture = np.zeros((6000, 6000, 4), np.uint8)
    out = orva.empty("UYVY16I", 6000, 6000)
    ticks, done = 0, threading.Event()

    def tick():
        nonlocal ticks
        while not done.is_set():
            ticks += 1
            time.sleep(0.0005)

    thread = threading.Thread(target=tick)
    interval = sys.getswitchinterval()
    sys.setswitchinterval(1000)
    try:
        thread.start()
        time.sleep(0.01)
        before = ticks
        orva.convert(picture, "BGR32I", "UYVY16I", out=out)
        after = ticks
    finally:
        sys.setswitchinterval(interval)
        done.set()
        thread.join()
    assert after > before + 1
