#!/usr/bin/env bash
# Installs what is missing, builds Glyphora and runs every test: the unit and window
# tests (offscreen, printing for real to a CUPS PDF queue), the same tests built with
# AddressSanitizer and UndefinedBehaviorSanitizer, the Debian package built, installed,
# started and removed, and a short fuzz run of the font file reader, the preview, the
# picture loader, the sheet writers and the web font unpacker.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
jobs=$(nproc)

./scripts/install-deps.sh test
./scripts/setup-printer.sh

export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
export GLYPHORA_REQUIRE_PRINTER=1
export GLYPHORA_PDF_OUT=${GLYPHORA_PDF_OUT:-/tmp/cups-pdf-out}

cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j "$jobs"
ctest --test-dir build --output-on-failure -j 1
if [ "${GLYPHORA_SKIP_PACKAGE:-0}" != 1 ]; then
  ./scripts/package-check.sh build
fi

if [ "${GLYPHORA_SKIP_SANITIZERS:-0}" != 1 ]; then
  cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DGLYPHORA_SANITIZE=ON \
        -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ >/dev/null
  cmake --build build-asan -j "$jobs"
  ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1 \
    ctest --test-dir build-asan --output-on-failure -j 1
fi

if [ -x "$root/scripts/fuzz.sh" ] && [ "${GLYPHORA_SKIP_FUZZ:-0}" != 1 ]; then
  "$root/scripts/fuzz.sh" 30   # each target, from its seed corpus
fi
echo "All tests passed."
