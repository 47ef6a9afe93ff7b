"""Calls the checked library from a language without its headers:  main.py LIBRARY

Converts a frame of colour bars and prints the colours, with sizes of structures worked out from the
documented fields alone.
"""

import ctypes
import sys

WIDTH, HEIGHT = 1280, 720
UYVY16I, BGR32I = 0, 4
# Cb Y Cr Y of white, yellow, cyan, green, magenta, red, blue and black in BT.709.
BARS = [
    (128, 235, 128, 235), (16, 219, 138, 219), (154, 188, 16, 188), (42, 173, 26, 173),
    (214, 78, 230, 78), (102, 63, 240, 63), (240, 32, 118, 32), (128, 16, 128, 16),
]


class Plane(ctypes.Structure):
    _fields_ = [("data", ctypes.c_void_p), ("size", ctypes.c_size_t), ("pitch", ctypes.c_ssize_t)]


class Image(ctypes.Structure):
    _fields_ = [
        ("structSize", ctypes.c_uint32), ("format", ctypes.c_uint32),
        ("width", ctypes.c_uint32), ("height", ctypes.c_uint32),
        ("main", Plane), ("chroma", Plane), ("cr", Plane), ("alpha", Plane),
    ]


def image_over(format, memory):
    image = Image(structSize=ctypes.sizeof(Image), format=format, width=WIDTH, height=HEIGHT)
    image.main = Plane(ctypes.addressof(memory), len(memory), len(memory) // HEIGHT)
    return image


library = ctypes.CDLL(sys.argv[1])
row = bytes(byte for bar in BARS for byte in bar * (WIDTH // 16))
camera = ctypes.create_string_buffer(row * HEIGHT, len(row) * HEIGHT)
screen = ctypes.create_string_buffer(WIDTH * 4 * HEIGHT)
if library.orva_convert(ctypes.byref(image_over(UYVY16I, camera)),
                        ctypes.byref(image_over(BGR32I, screen)), None, None) != 0:
    sys.exit("refused")

middle = screen.raw[HEIGHT // 2 * WIDTH * 4:][:WIDTH * 4]
for x in range(WIDTH // 16, WIDTH, WIDTH // 8):
    blue, green, red, alpha = middle[x * 4:x * 4 + 4]
    print(f"red {red:3}  green {green:3}  blue {blue:3}  alpha {alpha}")
