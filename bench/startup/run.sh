#!/usr/bin/env bash
# Start-up benchmark: Glyphora (no splash) against a minimal Qt 6 window and a Qt 6
# window listing QFontDatabase::families(), at the three font tiers, interleaved rounds
# under Xvfb. Prints medians of time to mapped, time to idle and peak RSS, and ratios.
# Usage: bench/startup/run.sh [rounds [tier...]]   (default: 5 rounds, small medium large)
set -euo pipefail
cd "$(dirname "$0")/../.."
rounds=${1:-5}
shift || true
tiers=("$@")
[ ${#tiers[@]} -gt 0 ] || tiers=(small medium large)
bench_dir=${GLYPHORA_BENCH_DIR:-/var/tmp/glyphora-bench}
[ -f "$bench_dir/large/fonts.conf" ] || bench/fonts/make-tiers.sh "$bench_dir"

cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DGLYPHORA_BENCH=ON -DBUILD_TESTING=OFF >/dev/null
cmake --build build-bench -j "$(nproc)" --target glyphora startupbench minimalwindow familieswindow >/dev/null

config=$(mktemp -d)
trap 'rm -rf "$config"' EXIT
mkdir -p "$config/Glyphora"
printf '[Donation]\nMerci=bench\n' > "$config/Glyphora/Glyphora.conf"
mkdir -m 700 "$config/runtime"
export XDG_CONFIG_HOME=$config XDG_RUNTIME_DIR=$config/runtime QT_QPA_PLATFORM=xcb
unset DISPLAY WAYLAND_DISPLAY

b=build-bench/bench/startup
tier_args=()
for t in "${tiers[@]}"; do tier_args+=(--tier "$t=$bench_dir/$t/fonts.conf"); done
xvfb-run -a -s "-screen 0 1280x800x24" "$b/startupbench" --rounds "$rounds" "${tier_args[@]}" -- \
  "glyphora=build-bench/src/glyphora" "minimal=$b/minimalwindow" "families=$b/familieswindow"
