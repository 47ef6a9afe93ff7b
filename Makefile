# What can be done here; the work is in scripts/.
.PHONY: help demo test test-windows format clean

help:
	@echo "make demo          build, convert a clip of test frames, show frames per second"
	@echo "make test          build and test the 64-bit and 32-bit Linux libraries"
	@echo "make test-windows  build the 32-bit Windows library and test it under Wine"
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
	@scripts/run-tests windows-x86

format:
	@scripts/install-deps format
	@scripts/format

clean:
	rm -rf build
