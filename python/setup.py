"""Builds the package around the checked library's archive. `make python` calls this with

ORVA_LIBRARY    the archive
ORVA_VERSION    its version
"""

import os
from pathlib import Path

from setuptools import Extension, setup

setup(
    version=os.environ["ORVA_VERSION"],
    ext_modules=[
        Extension(
            "orva._orva",
            sources=sorted(map(str, Path("src").glob("*.cpp"))),
            include_dirs=["../include"],
            extra_objects=[os.environ["ORVA_LIBRARY"]],
            extra_compile_args=["-std=c++20", "-fvisibility=hidden", "-fno-exceptions", "-Wextra"],
            # The module needs nothing but the C library, and shows nothing but its entry.
            extra_link_args=[
                "-static-libgcc",
                "-static-libstdc++",
                "-Wl,--exclude-libs,ALL,--strip-debug",
            ],
            language="c++",
            py_limited_api=True,
        )
    ],
    options={"bdist_wheel": {"py_limited_api": "cp311"}},
)
