#!/bin/sh
# Builds the fuzz target of the workbook reader with sanitizers and runs it for so many seconds. What it finds on its way
# goes into the build folder; a crash leaves its input there and fails.
set -eu
seconds=$1
cd "$(dirname "$0")/.."
tools/setup.sh
build=build/fuzz
found=$build/found/workbook

cmake -G Ninja -B "$build" -DCMAKE_CXX_COMPILER=clang++-14 -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="-O1 -g1" \
    -DPGBP_FUZZ=ON >"$build.log" 2>&1 || { cat "$build.log"; exit 1; }
cmake --build "$build" --target fuzz_workbook >"$build.log" 2>&1 || { cat "$build.log"; exit 1; }
mkdir -p "$found"
"$build/bin/fuzz_workbook" -max_total_time="$seconds" -timeout=5 -rss_limit_mb=1024 -max_len=32768 -verbosity=0 \
    -artifact_prefix="$build/" "$found" tests/fuzz/corpus/workbook tests/workbook/samples
echo "Fuzzed the workbook reader for $seconds seconds: no finding."
