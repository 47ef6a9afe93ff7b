# What can be done here; the work is in scripts/.
.PHONY: help demo test test-windows test-arm64 python bench bench-targets bench-convert bench-gstreamer bench-python format clean

help:
	@echo "make demo          convert test frames, show the speed, draw the chart in every format"
	@echo "make test          build and test the 64-bit and 32-bit Linux libraries"
	@echo "make test-windows  build the 32-bit and 64-bit Windows libraries and test them under Wine"
	@echo "make test-arm64    build the 64-bit ARM library and test it under qemu"
	@echo "make python        build the Python package, a wheel in build/python"
	@echo "make bench         compare the speed with memory's and with other libraries', takes minutes"
	@echo "make bench-targets the same, judged, and the 32-bit build's"
	@echo "make bench-convert the checked library instead: every pair of formats, judged"
	@echo "make bench-gstreamer the element for GStreamer, beside another one"
	@echo "make bench-python  the Python package, beside another one"
	@echo "make format        format all sources"
	@echo "make clean         remove build/"

demo:
	@scripts/install-deps demo
	@scripts/demo

test:
	@scripts/install-deps test
	@scripts/run-tests linux-x64 linux-x86

test-windows:
	@scripts/install-deps windows
	@scripts/run-tests windows-x86 windows-x64

test-arm64:
	@scripts/install-deps arm64
	@scripts/run-tests linux-arm64

python:
	@scripts/install-deps python
	@scripts/python

bench:
	@scripts/install-deps bench
	@scripts/bench

bench-targets:
	@scripts/install-deps bench test
	@scripts/bench --targets

bench-convert:
	@scripts/install-deps bench
	@scripts/bench --convert

bench-gstreamer:
	@scripts/install-deps bench-gstreamer
	@scripts/bench-gstreamer

bench-python:
	@scripts/install-deps bench-python
	@scripts/python --bench

format:
	@scripts/install-deps format
	@scripts/format

clean:
	rm -rf build
