#!/usr/bin/env bash
# Renders the application icon's SVG to the PNG sizes of the hicolor theme with
# rsvg-convert (Debian's librsvg2-bin). Run once after changing the SVG; the PNGs are
# committed.
set -euo pipefail
cd "$(dirname "$0")"
for size in 16 32 48 64 128 256; do
  mkdir -p "hicolor/${size}x${size}"
  rsvg-convert -w "$size" -h "$size" org.example.Glyphora.svg -o "hicolor/${size}x${size}/org.example.Glyphora.png"
done
