"""What pictures are by definition, in double precision."""

import numpy as np

KR_KB = {"bt601": (0.299, 0.114), "bt709": (0.2126, 0.0722), "bt2020": (0.2627, 0.0593)}


def levels(range, bits):
    """Black, white less black, the middle of chroma, and its greatest less its least code."""
    if range == "studio":
        return np.array([16, 219, 128, 224]) * 2.0 ** (bits - 8)
    return np.array([0, 2**bits - 1, 2 ** (bits - 1), 2**bits - 1], float)


def to_rgb(y, cb, cr, matrix, range, bits):
    """R'G'B' from 0 to 1 of codes, all three for every pixel."""
    kr, kb = KR_KB[matrix]
    black, luma, middle, chroma = levels(range, bits)
    y, cb, cr = (y - black) / luma, (cb - middle) / chroma, (cr - middle) / chroma
    r, b = y + 2 * (1 - kr) * cr, y + 2 * (1 - kb) * cb
    return r, (y - kr * r - kb * b) / (1 - kr - kb), b


def to_ycbcr(r, g, b, matrix, range, bits):
    """The reverse."""
    kr, kb = KR_KB[matrix]
    black, luma, middle, chroma = levels(range, bits)
    y = kr * r + (1 - kr - kb) * g + kb * b
    cb, cr = (b - y) / (2 * (1 - kb)), (r - y) / (2 * (1 - kr))
    return y * luma + black, cb * chroma + middle, cr * chroma + middle


def widen(samples, siting):
    """Chroma of every pixel from that of every pair."""
    wide = np.repeat(samples.astype(float), 2, axis=1)
    if siting == "cosited":
        wide[:, 1:-1:2] = (wide[:, :-2:2] + wide[:, 2::2]) / 2
    return wide


def narrow(pixels, siting):
    """Samples at the even pixels, filtered where chroma is cosited."""
    if siting == "nearest":
        return pixels[:, ::2]
    padded = np.pad(pixels.astype(float), ((0, 0), (1, 1)), "edge")
    return (padded[:, :-2:2] + 2 * padded[:, 1:-1:2] + padded[:, 2::2]) / 4
