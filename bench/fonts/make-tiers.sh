#!/usr/bin/env bash
# Builds three fontconfig configurations for the benchmarks - small, medium and large -
# from Debian font packages that are downloaded and unpacked into a private folder,
# never installed: the system's fonts and its fontconfig configuration stay as they are.
# Each tier has its own cache folder and is selected with FONTCONFIG_FILE=<tier>/fonts.conf.
#
# Usage: bench/fonts/make-tiers.sh [folder]   (default: $GLYPHORA_BENCH_DIR or /var/tmp/glyphora-bench)
set -euo pipefail
base=${1:-${GLYPHORA_BENCH_DIR:-/var/tmp/glyphora-bench}}
mkdir -p "$base/debs" "$base/pkg"
base=$(cd "$base" && pwd)

small=(fonts-dejavu-core fonts-urw-base35 fonts-noto-ui-core)
# Not in any tier: the uninstalled file the preview benchmark draws.
outside=(fonts-jetbrains-mono)
medium=("${small[@]}" fonts-noto-core fonts-liberation2 fonts-cantarell)
large=("${medium[@]}" fonts-noto-extra fonts-noto-ui-extra fonts-noto-cjk fonts-texgyre fonts-lmodern
       texlive-fonts-extra texlive-fonts-recommended texlive-lang-cyrillic cm-super)

# Download and unpack each package once, into a folder of its own.
cd "$base/debs"
for p in "${large[@]}" "${outside[@]}"; do
  if ! ls "${p}"_*.deb >/dev/null 2>&1; then
    echo "downloading $p" >&2
    apt-get download "$p" >/dev/null 2>&1
  fi
  if [ ! -f "$base/pkg/$p/.unpacked" ]; then
    echo "unpacking $p" >&2
    mkdir -p "$base/pkg/$p"
    dpkg -x "$(ls "${p}"_*.deb | head -n1)" "$base/pkg/$p"
    touch "$base/pkg/$p/.unpacked"
  fi
done

# The font folders a package brings: its share/fonts tree and TeX's font trees.
font_dirs() {
  local root=$base/pkg/$1
  for d in "$root/usr/share/fonts" "$root/usr/share/texlive/texmf-dist/fonts/opentype" \
           "$root/usr/share/texlive/texmf-dist/fonts/truetype" "$root/usr/share/texlive/texmf-dist/fonts/type1"; do
    [ -d "$d" ] && echo "$d"
  done
  return 0
}

make_tier() {
  local name=$1; shift
  local dir=$base/$name
  mkdir -p "$dir/cache"
  {
    echo '<?xml version="1.0"?>'
    echo '<!DOCTYPE fontconfig SYSTEM "fonts.dtd">'
    echo '<fontconfig>'
    for p in "$@"; do
      font_dirs "$p" | while read -r d; do echo "  <dir>$d</dir>"; done
    done
    echo "  <cachedir>$dir/cache</cachedir>"
    # The system's matching rules and aliases, without its font folders.
    echo '  <include ignore_missing="yes">/etc/fonts/conf.d</include>'
    echo '</fontconfig>'
  } > "$dir/fonts.conf"
  FONTCONFIG_FILE=$dir/fonts.conf fc-cache >/dev/null 2>&1 || true
  local families files names
  families=$(FONTCONFIG_FILE=$dir/fonts.conf fc-list --format '%{family[0]}\n' | sort -u | wc -l)
  names=$(FONTCONFIG_FILE=$dir/fonts.conf fc-list --format '%{family}\n' | tr ',' '\n' | sort -u | wc -l)
  files=$(FONTCONFIG_FILE=$dir/fonts.conf fc-list --format '%{file}\n' | sort -u | wc -l)
  printf '%-7s %6d families (%d family names)  %6d files  FONTCONFIG_FILE=%s\n' \
    "$name" "$families" "$names" "$files" "$dir/fonts.conf"
}

make_tier small "${small[@]}"
make_tier medium "${medium[@]}"
make_tier large "${large[@]}"
