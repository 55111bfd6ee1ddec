#!/usr/bin/env bash
# The Unicode character table's benchmarks with the machine's own fonts (DejaVu Sans,
# Noto Sans CJK JP, Standard Symbols PS), each benchmark in a fresh process, offscreen.
# Usage: bench/unicode/run.sh
set -euo pipefail
cd "$(dirname "$0")/../.."
cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DGLYPHORA_BENCH=ON -DBUILD_TESTING=OFF >/dev/null
cmake --build build-bench -j "$(nproc)" --target unicodebench >/dev/null

config=$(mktemp -d)
trap 'rm -rf "$config"' EXIT
mkdir -m 700 "$config/runtime"
export XDG_CONFIG_HOME=$config XDG_RUNTIME_DIR=$config/runtime QT_QPA_PLATFORM=offscreen
b=build-bench/bench/unicode/unicodebench
for family in "DejaVu Sans" "Noto Sans CJK JP" "Standard Symbols PS"; do
  for bench in BM_OpenFirst BM_OpenAgain BM_ScrollPages; do
    echo "== $family $bench"
    GLYPHORA_UNICODE_FAMILY=$family "$b" --benchmark_filter="^$bench" --benchmark_color=false 2>/dev/null | grep -E "^BM_"
  done
done
for bench in BM_NameIndexBuild BM_SearchArrow; do
  echo "== $bench"
  "$b" --benchmark_filter="^$bench" --benchmark_color=false 2>/dev/null | grep -E "^BM_"
done
