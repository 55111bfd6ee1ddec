#!/usr/bin/env bash
# Every in-process benchmark, with everything it needs set up here: at each font tier,
# font selection (clicks back to back and at a person's pace, navigation keys, slideshow
# steps and passes, every family's status bar figures on the printer and on the measuring
# thread), the RTF and HTML sheets against an in-memory copy of their size (and their
# write time), the preview of one uninstalled file, the TrueType and OpenType names read
# by Glyphora's reader against FreeType, the font list's filter and the typographic details
# window, the PDF of the whole font list and a comparison of 20 fonts redrawn after a
# size change; then, once, a folder of a thousand TrueType files previewed in turn (small
# tier), WOFF2 against TTF previews, the details sample re-drawn after a slider move, and
# hostile font files.
# Each benchmark runs in a fresh process. Usage: bench/inprocess/run.sh [tier...]
set -euo pipefail
cd "$(dirname "$0")/../.."
bench_dir=${GLYPHORA_BENCH_DIR:-/var/tmp/glyphora-bench}
[ -f "$bench_dir/large/fonts.conf" ] || bench/fonts/make-tiers.sh "$bench_dir"
tiers=("$@")
[ ${#tiers[@]} -gt 0 ] || tiers=(small medium large)

cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DGLYPHORA_BENCH=ON -DBUILD_TESTING=OFF >/dev/null
cmake --build build-bench -j "$(nproc)" --target browserbench sheetbench previewbench hostilebench \
  bench_fontnames bench_faces filterbench detailsbench webfontbench proofbench >/dev/null

config=$(mktemp -d)
trap 'rm -rf "$config"' EXIT
mkdir -m 700 "$config/runtime"
export XDG_CONFIG_HOME=$config XDG_RUNTIME_DIR=$config/runtime QT_QPA_PLATFORM=offscreen
echo "== machine: $(nproc) cores, load average $(cut -d' ' -f1-3 /proc/loadavg), $(date -u +%Y-%m-%dT%H:%MZ)"

# A TrueType file that no tier installs, for the preview.
preview_font=$(find "$bench_dir/pkg/fonts-jetbrains-mono" -name 'JetBrainsMono-Regular.ttf' 2>/dev/null | head -n1)
# A thousand TrueType files of the unpacked packages, linked into one folder.
preview_folder=$config/preview
mkdir -p "$preview_folder"
n=0
while IFS= read -r file; do
  n=$((n + 1))
  ln -s "$file" "$preview_folder/$(printf '%04d' "$n")-$(basename "$file")"
done < <(find "$bench_dir/pkg" -name '*.ttf' -type f | sort | head -n 1000)
# A configuration without DejaVu, so that DejaVu Sans is an uninstalled file for the
# WOFF2 against TTF preview.
webfont_conf=$config/webfont-fonts.conf
{
  echo '<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig>'
  find "$bench_dir/pkg/fonts-liberation2" -type d -path '*share/fonts*' -print0 | xargs -0 -I{} echo "  <dir>{}</dir>"
  echo "  <cachedir>$config/fc-cache</cachedir>"
  echo '  <include ignore_missing="yes">/etc/fonts/conf.d</include></fontconfig>'
} > "$webfont_conf"

b=build-bench/bench
run() { "$@" --benchmark_color=false 2>/dev/null | grep -E "^(BM_|own|free)" || true; }
for tier in "${tiers[@]}"; do
  export FONTCONFIG_FILE=$bench_dir/$tier/fonts.conf
  for bench in BM_FontSelection BM_Click BM_KeyNavigation BM_SlideshowSteps BM_Slideshow BM_StatusFigures; do
    echo "== $tier $bench"
    run "$b/inprocess/browserbench" --benchmark_filter="^$bench/"
  done
  echo "== $tier sheets: building the bytes, copying as many bytes in memory, writing them"
  run "$b/inprocess/sheetbench"
  echo "== $tier preview of one uninstalled file"
  GLYPHORA_PREVIEW_FONT=$preview_font run "$b/inprocess/previewbench" --benchmark_filter='^BM_PreviewUninstalledFile'
  # Each in a fresh process: peak memory with names in their own font on and off.
  for bench in BM_FilterKeystroke BM_IndexOnePass BM_RenderName BM_ScrollNamesOn BM_ScrollNamesOff; do
    echo "== $tier $bench"
    run "$b/inprocess/filterbench" --benchmark_filter="^$bench"
  done
  echo "== $tier proofs: PDF of the whole list (MB = size of the PDF), 20 fonts redrawn after a size change"
  run "$b/inprocess/proofbench" --benchmark_filter=BM_ListPdf
  run "$b/inprocess/proofbench" --benchmark_filter=BM_CompareSizeChange
  echo "== $tier TrueType names (sfntOnly:1 = .ttf/.otf files)"
  run "$b/bench_fontnames" --benchmark_filter='sfntOnly:1'
  echo "== $tier OpenType and collection names, every face"
  run "$b/bench_faces"
  echo "== $tier details window on a family of 18 faces"
  run "$b/inprocess/detailsbench" --benchmark_filter='^BM_OpenDetails'
done

export FONTCONFIG_FILE=$bench_dir/small/fonts.conf
echo "== small: a folder of $n TrueType files previewed in turn"
GLYPHORA_PREVIEW_FOLDER=$preview_folder run "$b/inprocess/previewbench" --benchmark_filter='^BM_PreviewFolder'
export FONTCONFIG_FILE=$webfont_conf
echo "== DejaVu Sans previewed as an uninstalled WOFF2 and TTF file"
run "$b/inprocess/webfontbench"
unset FONTCONFIG_FILE
echo "== system fonts: details sample re-drawn after a weight slider move (48 px, 60 characters)"
run "$b/inprocess/detailsbench" --benchmark_filter='^BM_RedrawAfterSlider'
echo "== hostile font files (no tier)"
run "$b/inprocess/hostilebench"
