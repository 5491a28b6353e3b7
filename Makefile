# The commands of the project. Each sets up what it needs (see tools/setup), says what it does, and is quick the second
# time.

.PHONY: demo test bench format lint asan clang tsan fuzz help

help:
	@echo "make demo    build, and make and draw the project that ships with it"
	@echo "make test    build, and run every test"
	@echo "make bench   build, and print each budget with what was measured"
	@echo "make format  lay out the sources"
	@echo "make lint    clang-tidy over the sources"
	@echo "make asan    the tests under address and undefined-behaviour sanitizers"
	@echo "make clang   the tests with the second compiler"
	@echo "make tsan    the drawing tests under the thread sanitizer"
	@echo "make fuzz    random drawing calls, picture files and compressed blocks under sanitizers, for FUZZ_SECONDS each"

demo:
	@tools/setup build
	@tools/build release quenzel7 gdi-replay quenzel7_shared
	@build/bin/quenzel7 demo -o build/demo
	@echo "The life of a numeric variable, by a host in Python:"
	@mkdir -p build/demo/python
	@PYTHONPATH=hosts/python QUENZEL7_LIBRARY=build/lib/libquenzel7.so python3 examples/numeric_variable.py build/demo/python

test:
	@tools/setup build
	@tools/build release
	@tools/run-tests release

bench:
	@tools/setup build bench
	@tools/build bench
	@tools/run-benches

format:
	@tools/setup check
	@tools/format

lint:
	@tools/setup build clang check
	@tools/lint

asan:
	@tools/setup build
	@tools/build asan
	@tools/run-tests asan

clang:
	@tools/setup build clang
	@tools/build clang
	@tools/run-tests clang

tsan:
	@tools/setup build
	@tools/build tsan gdi_test
	@build-tsan/bin/gdi_test --gtest_brief=1

fuzz:
	@tools/setup build clang fuzz
	@tools/fuzz
