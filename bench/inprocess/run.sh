#!/usr/bin/env bash
# In-process benchmarks at each font tier: font selection (median and p99 of a click,
# first view included), the slideshow (time per font, memory after one pass and two),
# the RTF and HTML sheets of every family against the raw write, the preview of one
# uninstalled file, the TrueType names read by Glyphora's reader against FreeType, the
# font list's filter (keystroke, index, scrolling with names in their own font), the
# typographic details window (opening on a family of 18 faces; the live sample re-drawn
# after a slider move, with the system's fonts, where Inter's variable font is), the PDF
# of the whole font list and a comparison of 20 fonts redrawn after a size change.
# Each benchmark runs in a fresh process. Usage: bench/inprocess/run.sh [tier...]
set -euo pipefail
cd "$(dirname "$0")/../.."
bench_dir=${GLYPHORA_BENCH_DIR:-/var/tmp/glyphora-bench}
[ -f "$bench_dir/large/fonts.conf" ] || bench/fonts/make-tiers.sh "$bench_dir"
tiers=("$@")
[ ${#tiers[@]} -gt 0 ] || tiers=(small medium large)

cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DGLYPHORA_BENCH=ON -DBUILD_TESTING=OFF >/dev/null
cmake --build build-bench -j "$(nproc)" --target browserbench sheetbench previewbench hostilebench bench_fontnames filterbench detailsbench proofbench >/dev/null

config=$(mktemp -d)
trap 'rm -rf "$config"' EXIT
mkdir -m 700 "$config/runtime"
export XDG_CONFIG_HOME=$config XDG_RUNTIME_DIR=$config/runtime QT_QPA_PLATFORM=offscreen
# A TrueType file that no tier installs, for the preview.
preview_font=$(find "$bench_dir/pkg/fonts-jetbrains-mono" -name 'JetBrainsMono-Regular.ttf' 2>/dev/null | head -n1)
b=build-bench/bench
for tier in "${tiers[@]}"; do
  export FONTCONFIG_FILE=$bench_dir/$tier/fonts.conf
  for bench in BM_FontSelection BM_Slideshow; do
    echo "== $tier $bench"
    "$b/inprocess/browserbench" --benchmark_filter="^$bench/" --benchmark_color=false 2>/dev/null | grep -E "^BM_"
  done
  echo "== $tier sheets"
  "$b/inprocess/sheetbench" --benchmark_color=false 2>/dev/null | grep -E "^BM_"
  echo "== $tier preview of one uninstalled file"
  GLYPHORA_PREVIEW_FONT=$preview_font "$b/inprocess/previewbench" --benchmark_color=false 2>/dev/null | grep -E "^BM_"
  # Each in a fresh process: peak memory with names in their own font on and off.
  for bench in BM_FilterKeystroke BM_IndexOnePass BM_RenderName BM_ScrollNamesOn BM_ScrollNamesOff; do
    echo "== $tier $bench"
    "$b/inprocess/filterbench" --benchmark_filter="^$bench" --benchmark_color=false 2>/dev/null | grep -E "^BM_"
  done
  echo "== $tier proofs: PDF of the whole list (MB = size of the PDF), 20 fonts redrawn after a size change"
  "$b/inprocess/proofbench" --benchmark_filter=BM_ListPdf --benchmark_color=false 2>/dev/null | grep -E "^BM_"
  "$b/inprocess/proofbench" --benchmark_filter=BM_CompareSizeChange --benchmark_color=false 2>/dev/null | grep -E "^BM_"
  echo "== $tier TrueType names (sfntOnly:1 = .ttf/.otf files)"
  "$b/bench_fontnames" --benchmark_color=false --benchmark_filter='sfntOnly:1' 2>/dev/null | grep -E "^(own|free)"
  echo "== $tier details window on a family of 18 faces"
  "$b/inprocess/detailsbench" --benchmark_filter='^BM_OpenDetails' --benchmark_color=false 2>/dev/null | grep -E "^BM_"
done
unset FONTCONFIG_FILE
echo "== system fonts: details sample re-drawn after a weight slider move (48 px, 60 characters)"
"$b/inprocess/detailsbench" --benchmark_filter='^BM_RedrawAfterSlider' --benchmark_color=false 2>/dev/null | grep -E "^BM_"

echo "== hostile font files (no tier)"
"$b/inprocess/hostilebench" --benchmark_color=false 2>/dev/null | grep -E "^BM_"
