"""The package itself: what it tells of the library, and that it installs."""

import importlib.metadata
import os
import subprocess
import venv

import orva


def test_formats():
    formats = orva.formats()
    assert len(formats) == 22
    for format in formats:
        for name in (format.name, format.name.lower(), *format.other_names):
            assert orva.frame_bytes(name, 50, 4) == orva.frame_bytes(format.name, 50, 4)
            assert orva.can_convert(name, "A8P") == format.has_alpha
    v210, nv16a = (next(f for f in formats if f.name == name) for name in ("V210", "Y8PUV8IA8P"))
    assert (v210.bits, v210.model, v210.planes) == (10, "ycbcr", (("main", 16, 6),))
    assert [plane.name for plane in nv16a.planes] == ["main", "chroma", "alpha"]


def test_names_the_library():
    assert orva.__version__ == importlib.metadata.version("orva")
    sets = ("SSE2", "SSE4.1", "AVX2", "AVX-VNNI", "AVX-512", "NEON")
    assert orva.instruction_set() in sets


PROGRAM = """
import orva, sys
assert orva.__file__.startswith(sys.prefix), orva.__file__
assert "numpy" not in sys.modules
out = orva.convert(bytes([128, 16, 128, 235]), "UYVY16I", "BGR24I", width=2, height=1)
assert type(out) is bytearray and out == bytes([0] * 3 + [255] * 3), out
out = orva.convert(out, "BGR24I", "nv16", width=2, height=1)
assert out == bytes([16, 235, 128, 128]), out
"""


def test_installs_without_network_compiler_or_numpy(tmp_path):
    venv.create(tmp_path, with_pip=True)
    python = str(tmp_path / "bin" / "python")
    alone = {"PATH": str(tmp_path / "bin")}
    pip = [python, "-m", "pip", "install", "--quiet", "--no-index", os.environ["ORVA_WHEEL"]]
    subprocess.run(pip, env=alone, check=True)
    subprocess.run([python, "-I", "-c", PROGRAM], env=alone, check=True)
