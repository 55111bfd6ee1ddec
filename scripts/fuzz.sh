#!/usr/bin/env bash
# Builds the fuzz targets with clang (libFuzzer, AddressSanitizer, UndefinedBehaviorSanitizer)
# and runs each for SECONDS seconds from its checked-in seed corpus fuzz/corpus/NAME. New
# inputs go to build-fuzz/corpus/NAME; a failing input to build-fuzz/findings/NAME-*.
# Each run prints libFuzzer's final statistics and the longest time one input took.
# Usage: fuzz.sh [SECONDS] [TARGET...]   (default 60 s, every target)
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
shift || true
jobs=${GLYPHORA_JOBS:-$(nproc)}

# name:max_len, one per target (fuzz/CMakeLists.txt builds them).
all_targets=(
  truetypefile:1048576
  fontpreview:1048576
  picturefile:1048576
  fontsheet:8192
  webfont:1048576
)
wanted=("$@")

cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DGLYPHORA_FUZZ=ON -DBUILD_TESTING=OFF \
      -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ >/dev/null
names=()
for entry in "${all_targets[@]}"; do
  name=${entry%%:*}
  if [ ${#wanted[@]} -eq 0 ] || [[ " ${wanted[*]} " == *" $name "* ]]; then names+=("$name"); fi
done
cmake --build build-fuzz -j "$jobs" --target "${names[@]/#/fuzz_}"

mkdir -p build-fuzz/findings
for entry in "${all_targets[@]}"; do
  name=${entry%%:*}
  max_len=${entry##*:}
  [[ " ${names[*]} " == *" $name "* ]] || continue
  mkdir -p "build-fuzz/corpus/$name"
  echo "== fuzz_$name, $seconds s"
  # -timeout is a last resort (whole seconds): the targets abort on their own per-input limit.
  set +e
  QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1} \
  UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1} \
    "./build-fuzz/fuzz/fuzz_$name" -max_total_time="$seconds" -max_len="$max_len" -timeout=10 \
      -rss_limit_mb=2560 -print_final_stats=1 -artifact_prefix="build-fuzz/findings/$name-" \
      "build-fuzz/corpus/$name" "fuzz/corpus/$name" >"build-fuzz/fuzz_$name.log" 2>&1
  status=$?
  set -e
  grep -E "^(#[0-9]+ +(INITED|DONE)|stat::(number_of_executed_units|peak_rss_mb)|Longest input)|ERROR|SUMMARY|Broken promise|Input took" \
    "build-fuzz/fuzz_$name.log" || true
  if [ "$status" -ne 0 ]; then
    echo "fuzz_$name found a failing input (exit $status); see build-fuzz/fuzz_$name.log and build-fuzz/findings/" >&2
    exit 1
  fi
done
echo "Fuzzing ran ${seconds} s per target without a finding."
