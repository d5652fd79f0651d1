#!/usr/bin/env bash
# Builds and runs the benchmarks. Words given to it go to each program: ./bench.sh --benchmark_filter=sgp4
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

need_packages "${build_packages[@]}" libbenchmark-dev
build_preset release -DVORLIX_BENCH=ON
for program in build/bench/*_bench; do
    echo "== $(basename "$program")"
    QT_QPA_PLATFORM=offscreen "$program" "$@"
done
