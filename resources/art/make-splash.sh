#!/usr/bin/env bash
# Draws the splash picture (the product's title art) with ImageMagick and DejaVu fonts.
# Run once; the JPEG it writes is committed.
set -euo pipefail
cd "$(dirname "$0")/.."
serif=/usr/share/fonts/truetype/dejavu/DejaVuSerif-Bold.ttf
sans=/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf
italic=/usr/share/fonts/truetype/dejavu/DejaVuSerif-Italic.ttf
[ -f "$italic" ] || italic=$serif
convert -size 480x260 gradient:'#1b3f8a'-'#3b82e0' \
  \( -size 480x260 xc:none -fill 'rgba(255,255,255,0.10)' \
     -font "$serif" -pointsize 150 -annotate +250+190 'Ag' \
     -font "$italic" -pointsize 90 -annotate +20+250 'fi' \
     -font "$serif" -pointsize 70 -annotate +330+80 '&' \) -composite \
  -fill white -font "$serif" -pointsize 58 -annotate +36+110 'Glyphora' \
  -fill '#dbe7ff' -font "$sans" -pointsize 17 -annotate +40+142 'Visionneuse de polices de caractères' \
  -fill '#dbe7ff' -font "$sans" -pointsize 13 -annotate +40+166 'Version 3.3' \
  -quality 90 splash.jpg
