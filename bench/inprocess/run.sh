#!/usr/bin/env bash
# In-process benchmarks at each font tier: font selection (median and p99 of a click,
# first view included) and the slideshow (time per font, memory after one pass and two).
# Each benchmark runs in a fresh process. Usage: bench/inprocess/run.sh [tier...]
set -euo pipefail
cd "$(dirname "$0")/../.."
bench_dir=${GLYPHORA_BENCH_DIR:-/var/tmp/glyphora-bench}
[ -f "$bench_dir/large/fonts.conf" ] || bench/fonts/make-tiers.sh "$bench_dir"
tiers=("$@")
[ ${#tiers[@]} -gt 0 ] || tiers=(small medium large)

cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DGLYPHORA_BENCH=ON -DBUILD_TESTING=OFF >/dev/null
cmake --build build-bench -j "$(nproc)" --target browserbench >/dev/null

config=$(mktemp -d)
trap 'rm -rf "$config"' EXIT
mkdir -m 700 "$config/runtime"
export XDG_CONFIG_HOME=$config XDG_RUNTIME_DIR=$config/runtime QT_QPA_PLATFORM=offscreen
for tier in "${tiers[@]}"; do
  for bench in BM_FontSelection BM_Slideshow; do
    echo "== $tier $bench"
    FONTCONFIG_FILE=$bench_dir/$tier/fonts.conf build-bench/bench/inprocess/browserbench \
      --benchmark_filter="^$bench/" --benchmark_color=false 2>/dev/null | grep -E "^BM_"
  done
done
