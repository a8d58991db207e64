#!/bin/sh
# Builds the fuzz targets of the readers of foreign files with sanitizers and runs each for so many seconds. What they find
# on their way goes into the build folder; a crash leaves its input there and fails.
set -eu
seconds=$1
cd "$(dirname "$0")/.."
tools/setup.sh
build=build/fuzz

cmake -G Ninja -B "$build" -DCMAKE_CXX_COMPILER=clang++-14 -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="-O1 -g1" \
    -DPGBP_FUZZ=ON >"$build.log" 2>&1 || { cat "$build.log"; exit 1; }
cmake --build "$build" --target fuzz_workbook fuzz_audit_report fuzz_trial_balance >"$build.log" 2>&1 || { cat "$build.log"; exit 1; }

# fuzz TARGET CORPUS...
fuzz() {
    target=$1
    shift
    mkdir -p "$build/found/$target"
    "$build/bin/fuzz_$target" -max_total_time="$seconds" -timeout=5 -rss_limit_mb=1024 -max_len=32768 -verbosity=0 \
        -artifact_prefix="$build/" "$build/found/$target" "$@"
    echo "Fuzzed $target for $seconds seconds: no finding."
}

fuzz workbook tests/fuzz/corpus/workbook tests/workbook/samples
fuzz audit_report tests/audit_report/samples
fuzz trial_balance tests/trial_balance/samples
