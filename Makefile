# The way in: each target sets up what it needs.
JOBS ?= $(shell nproc)
SOURCES = $(shell git ls-files 'src/*.h' 'src/*.cpp' 'tests/*.h' 'tests/*.cpp' 'bench/*.h' 'bench/*.cpp')

.PHONY: run test bench format check lint lint-all asan faults load mutants fuzz screenshots reports package setup build

run: build
	@tools/run.sh build/dev/bin practice

test: build
	@tools/fuzz.sh 10
	ctest --test-dir build/dev --output-on-failure -j $(JOBS)

setup:
	@tools/setup.sh

build: setup
	@cmake --preset dev > build/configure.log 2>&1 || { cat build/configure.log; exit 1; }
	cmake --build --preset dev -j $(JOBS)

bench:
	@tools/setup.sh libreoffice-calc-nogui
	@cmake --preset release > build/configure.log 2>&1 || { cat build/configure.log; exit 1; }
	cmake --build --preset release --target benchmarks -j $(JOBS)
	@python3 tools/bench.py build/release/bin

asan: setup
	@cmake --preset asan > build/configure.log 2>&1 || { cat build/configure.log; exit 1; }
	cmake --build --preset asan -j $(JOBS)
	LSAN_OPTIONS=suppressions=$(CURDIR)/tests/leaks.txt:print_suppressions=0 \
		ctest --test-dir build/asan --output-on-failure -j $(JOBS)

faults: build
	@python3 tests/reliability/faults.py build/dev/bin build/dev/tests/reliability/libfailing_calls.so

# place, drivers, own clients or all the same, seconds between two steps; 0 is as fast as they can
LOAD_SECONDS ?= 60
LOAD_ROWS ?= server:1:own:0 server:50:own:2 server:50:same:2 server:200:own:2 server:200:same:2 \
	server:50:own:0 server:200:own:0 folder:1:own:0 folder:8:own:2 folder:8:same:2 folder:8:own:0

load: setup
	@cmake --preset release > build/configure.log 2>&1 || { cat build/configure.log; exit 1; }
	cmake --build --preset release --target pgbp-load -j $(JOBS)
	@python3 tests/load/load.py --seconds $(LOAD_SECONDS) build/release/bin/pgbp-load $(LOAD_ROWS)

mutants: setup
	@python3 tests/mutants/mutants.py . build/mutants $(ONLY)

fuzz: setup
	@tools/fuzz.sh 120

format: setup
	clang-format -i $(SOURCES)

check: setup
	@clang-format --dry-run -Werror $(SOURCES)
	python3 tools/check-layers.py

lint: check build
	tools/tidy.sh build/dev $(JOBS) changed

lint-all: check build
	tools/tidy.sh build/dev $(JOBS) all

screenshots: build
	@tools/screenshots.sh build/dev/bin docs/screens

reports: build
	@tools/report-pictures.sh build/dev/bin docs/reports

package:
	@tools/setup.sh lintian appstream
	@cmake --preset release > build/configure.log 2>&1 || { cat build/configure.log; exit 1; }
	cmake --build --preset release --target installed -j $(JOBS)
	@tools/package.sh build/release
