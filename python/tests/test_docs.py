"""The examples of docs/python.md run, one after the other."""

import concurrent.futures
import re
from pathlib import Path

import numpy
import orva

DOCUMENT = Path(__file__).parents[2] / "docs" / "python.md"


def test_examples(tmp_path, monkeypatch):
    uyvy = numpy.full((1080, 1920, 2), 100, numpy.uint8)
    (tmp_path / "frame.uyvy").write_bytes(uyvy.tobytes())
    monkeypatch.chdir(tmp_path)
    names = {"uyvy": uyvy, "sd": uyvy[:576, :720], "frames": [uyvy] * 2, "numpy": numpy}
    names["concurrent"] = concurrent
    examples = re.findall(r"```python\n(.*?)```", DOCUMENT.read_text(), re.DOTALL)
    assert len(examples) == 4
    for example in examples:
        exec(example, names)
    assert (names["bgr"] == orva.convert(uyvy, "UYVY16I", "BGR24I")).all()
    assert (names["screen"][:, :, :3] == names["bgr"]).all()
