#!/usr/bin/env bash
# Builds the TrueType reader's fuzz target with clang (libFuzzer, AddressSanitizer,
# UndefinedBehaviorSanitizer) and runs it for SECONDS seconds from the checked-in seed
# corpus. New inputs go to build-fuzz/corpus; a crashing input to build-fuzz/findings.
# Usage: fuzz.sh [SECONDS]   (default 60)
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
jobs=${GLYPHORA_JOBS:-$(nproc)}

cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DGLYPHORA_FUZZ=ON -DBUILD_TESTING=OFF \
      -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ >/dev/null
cmake --build build-fuzz -j "$jobs" --target fuzz_truetypefile fuzz_webfont

mkdir -p build-fuzz/corpus build-fuzz/findings
ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1} UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1} \
  ./build-fuzz/fuzz/fuzz_truetypefile -max_total_time="$seconds" -max_len=65536 -timeout=10 \
    -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix=build-fuzz/findings/ \
    build-fuzz/corpus fuzz/corpus
# The web font unpacker, for half as long, from its own seeds.
mkdir -p build-fuzz/corpus-webfont
ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1} UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1} \
  ./build-fuzz/fuzz/fuzz_webfont -max_total_time="$((seconds / 2))" -max_len=65536 -timeout=10 \
    -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix=build-fuzz/findings/ \
    build-fuzz/corpus-webfont fuzz/corpus-webfont
echo "Fuzzing ran ${seconds} s (and ${seconds}/2 s on web fonts) without a finding."
