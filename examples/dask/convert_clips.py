#!/usr/bin/env python3
"""Converts a folder of raw clips into another folder, on all processors of one or several machines.

    python3 convert_clips.py --from UYVY16I --to BGR32I --size 1920x1080 CLIPS CONVERTED

starts a process for each processor of this machine. With several machines, all with this version of
the package orva, with NumPy and Dask (python3-distributed in Debian) and with both folders mounted
under the same names:

    dask scheduler                                               on one, which prints its address
    dask worker --nworkers -1 --nthreads 1 tcp://HOST:8786       on each
    python3 convert_clips.py --scheduler tcp://HOST:8786 ...     anywhere

Whoever reaches the scheduler can run any program on the machines: keep it in a network of your own.

Frames do not depend on one another, so that a clip is converted in chunks, each of which goes to its
place in a file that has its full size from the start. A chunk that is lost with its machine is
converted again elsewhere. A clip appears under its name when it is complete; the bytes are the same
on every processor.
"""

import argparse
import os
import pathlib
import sys
import time

import dask.distributed
import numpy as np
import orva


def convert_chunk(source, destination, first, count, src, dst, size, options):
    """On a worker: converts `count` frames from `first` on, where they lie in the two files."""
    src_bytes, dst_bytes = orva.frame_bytes(src, *size), orva.frame_bytes(dst, *size)
    frames = np.memmap(source, np.uint8, "r", first * src_bytes, (count, src_bytes))
    converted = np.memmap(destination, np.uint8, "r+", first * dst_bytes, (count, dst_bytes))
    width, height = size
    for frame, out in zip(frames, converted):
        orva.convert(frame, src, dst, width=width, height=height, out=out, **options)
    converted.flush()  # before another machine may read it
    return count


class Clip:
    """A clip and the file that becomes the converted one."""

    def __init__(self, source, folder, src, dst, size):
        length, frame = source.stat().st_size, orva.frame_bytes(src, *size)
        if length == 0 or length % frame:
            raise ValueError(f"{length} bytes are not whole frames of {frame}")
        self.source = source
        self.destination = folder / f"{source.name}.{dst.lower()}"
        self.part = self.destination.with_name(f".{self.destination.name}.part")
        self.frames = self.missing = length // frame
        with open(self.part, "wb") as file:
            file.truncate(self.frames * orva.frame_bytes(dst, *size))

    def chunks(self, count):
        for first in range(0, self.frames, count):
            yield str(self.source), str(self.part), first, min(count, self.frames - first)

    def converted(self, count):
        self.missing -= count
        if self.missing == 0:
            self.part.replace(self.destination)

    def close(self):
        self.part.unlink(missing_ok=True)


def convert_folder(client, paths, folder, src, dst, size, options, frames_per_chunk):
    """Returns how many frames were converted, and the clips that were not, each with the reason."""
    clips, tasks, refused = [], {}, {}
    try:
        for path in paths:
            try:
                clip = Clip(path, folder, src, dst, size)
            except (OSError, ValueError) as error:
                refused[path] = error
                continue
            clips.append(clip)
            for chunk in clip.chunks(frames_per_chunk):
                # Not pure: else a chunk that was converted by an earlier run is not converted again.
                task = client.submit(
                    convert_chunk, *chunk, src, dst, size, options, pure=False, retries=2)
                tasks[task] = clip
        for task in dask.distributed.as_completed(list(tasks)):
            clip = tasks.pop(task)
            try:
                clip.converted(task.result())
            except Exception as error:
                refused[clip.source] = error
    finally:
        for clip in clips:
            clip.close()
    return sum(clip.frames for clip in clips if clip.source not in refused), refused


def arguments():
    def count(text):
        number = int(text)
        if number < 1:
            raise ValueError
        return number

    def size(text):
        width, height = map(count, text.split("x"))
        return width, height

    parser = argparse.ArgumentParser(description="Converts a folder of raw clips.")
    parser.add_argument("--from", dest="src", required=True, metavar="FORMAT")
    parser.add_argument("--to", dest="dst", required=True, metavar="FORMAT")
    parser.add_argument("--size", type=size, required=True, metavar="WIDTHxHEIGHT")
    parser.add_argument("--matrix", default="bt709", help="bt601, bt709 or bt2020")
    parser.add_argument("--range", default="studio", help="studio or full")
    parser.add_argument("--scheduler", metavar="ADDRESS", help="of several machines' scheduler")
    parser.add_argument("--chunk", type=count, metavar="FRAMES", help="frames of a task, 256 MB by default")
    parser.add_argument("clips", type=pathlib.Path)
    parser.add_argument("converted", type=pathlib.Path)
    return parser.parse_args()


def main():
    args = arguments()
    if not orva.can_convert(args.src, args.dst):
        sys.exit(f"There is no conversion from {args.src} to {args.dst}.")
    frame = sum(orva.frame_bytes(format, *args.size) for format in (args.src, args.dst))
    clips = sorted(path.resolve() for path in args.clips.iterdir()
                   if path.is_file() and not path.name.startswith("."))
    args.converted.mkdir(parents=True, exist_ok=True)
    if args.converted.samefile(args.clips):
        sys.exit("The converted clips need a folder of their own.")

    cluster = args.scheduler or dask.distributed.LocalCluster(
        n_workers=os.cpu_count(), threads_per_worker=1, dashboard_address=None)
    with dask.distributed.Client(cluster) as client:
        start = time.monotonic()
        frames, refused = convert_folder(
            client, clips, args.converted.resolve(), args.src, args.dst, args.size,
            {"matrix": args.matrix, "range": args.range}, args.chunk or max(1, 2**28 // frame))
        seconds = time.monotonic() - start
    for path, error in refused.items():
        print(f"{path}: {error}", file=sys.stderr)
    print(f"{frames} frames of {len(clips) - len(refused)} clips in {seconds:.2f} s: "
          f"{frames / seconds:.1f} frames/s, {frames * frame / seconds / 1e9:.2f} GB/s read and written")
    return 1 if refused else 0


if __name__ == "__main__":
    sys.exit(main())
