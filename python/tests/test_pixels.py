"""Every pixel is what the standards define, to 0.6 of a code, whatever the options say."""

import itertools

import numpy as np
import orva
import pytest
from reference import narrow, to_rgb, to_ycbcr, widen

RANDOM = np.random.default_rng(1)
SIGNALS = list(itertools.product(("bt601", "bt709", "bt2020"), ("studio", "full")))
SITINGS = ("cosited", "nearest")


def assert_near(codes, real, bits=8):
    assert np.abs(codes - np.clip(real, 0, 2**bits - 1)).max() <= 0.6


@pytest.mark.parametrize("matrix, range", SIGNALS)
@pytest.mark.parametrize("chroma", SITINGS)
def test_ycbcr_to_rgb(matrix, range, chroma):
    uyvy = RANDOM.integers(0, 256, (40, 130, 2), np.uint8)
    bgr = orva.convert(uyvy, "UYVY16I", "BGR24I", matrix=matrix, range=range, chroma=chroma)
    cb, cr = (widen(uyvy[:, first::2, 0], chroma) for first in (0, 1))
    rgb = to_rgb(uyvy[:, :, 1], cb, cr, matrix, range, 8)
    assert_near(bgr, 255 * np.stack(rgb[::-1], axis=2))


@pytest.mark.parametrize("matrix, range", SIGNALS)
@pytest.mark.parametrize("chroma", SITINGS)
def test_rgb_to_ycbcr(matrix, range, chroma):
    rgb = RANDOM.integers(0, 256, (40, 130, 3), np.uint8)
    planes = orva.convert(
        rgb, "RGB24I", "Y10PU10PV10P", matrix=matrix, range=range, chroma=chroma
    )
    y, cb, cr = to_ycbcr(*np.moveaxis(rgb / 255, 2, 0), matrix, range, 10)
    for codes, real in zip(planes, (y, narrow(cb, chroma), narrow(cr, chroma))):
        assert_near(codes, real, 10)


def test_sides_differ():
    y, cbcr = (RANDOM.integers(64, 192, shape, np.uint8) for shape in ((40, 130), (40, 65, 2)))
    luma, pairs = orva.convert(
        (y, cbcr),
        "nv16",
        "p210le",
        matrix="bt2020",
        src_matrix="bt601",
        src_range="full",
        dst_range="studio",
    )
    cb, cr = (widen(cbcr[:, :, i], "cosited") for i in (0, 1))
    real = to_ycbcr(*to_rgb(y, cb, cr, "bt601", "full", 8), "bt2020", "studio", 10)
    assert_near(luma >> 6, real[0], 10)
    assert_near(pairs >> 6, np.stack([plane[:, ::2] for plane in real[1:]], axis=2), 10)


def test_moves_and_alpha():
    bgr = RANDOM.integers(0, 256, (40, 130, 3), np.uint8)
    alpha = RANDOM.integers(0, 256, (40, 130), np.uint8)
    argb = orva.convert((bgr, alpha), "BGR24IA8P", "ARGB32I")
    assert (argb == np.dstack([alpha, bgr[:, :, ::-1]])).all()
    assert (orva.convert(argb, "ARGB32I", "A8P") == alpha).all()
    rgba = orva.convert(bgr, "BGR24I", "RGB32I", alpha=7)
    assert (rgba == np.dstack([bgr[:, :, ::-1], np.full_like(alpha, 7)])).all()
    assert (orva.convert(None, "A8C", "A8P", width=5, height=3, alpha=9) == np.full((3, 5), 9)).all()
