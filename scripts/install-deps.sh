#!/usr/bin/env bash
# Installs the Debian packages Glyphora needs to build, run and test; only the missing
# ones, so a second run costs nothing. Usage: install-deps.sh [run|test]
set -euo pipefail
what=${1:-test}

packages=(cmake g++ make pkg-config qt6-base-dev libfontconfig-dev libfreetype-dev libicu-dev
          libharfbuzz-dev libwoff-dev zlib1g-dev fonts-dejavu-core libwmf-dev qt6-translations-l10n
          libxml2-dev)
# xdg-open hands the user's fonts folder to the desktop's file manager.
packages+=(xdg-utils xvfb xauth xdotool imagemagick)
if [ "$what" = test ]; then
  packages+=(printer-driver-cups-pdf cups cups-client poppler-utils clang libclang-rt-14-dev
             python3 libbenchmark-dev ccache)
  # Fonts the tests read: CJK collections, Type 1 and CFF faces, a variable font, web fonts.
  packages+=(fonts-noto-cjk fonts-urw-base35 fonts-inter-variable fonts-dejavu-web fonts-dejavu-extra)
  # OpenType features with known results (small capitals, old-style figures, stylistic sets).
  packages+=(fonts-texgyre)
  # The sheets opened by real readers: LibreOffice (RTF and HTML to PDF) and Chromium (HTML).
  packages+=(libreoffice-writer-nogui chromium)
  # Desktop integration checks and the Debian package.
  packages+=(desktop-file-utils appstream dpkg-dev file)
  # rsvg-convert renders the application icon's PNGs (desktop/icons/make-icons.sh);
  # woff2_compress makes the WOFF2 fuzz seeds (fuzz/make-corpus.py).
  packages+=(librsvg2-bin woff2)
fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo_cmd=()
[ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
export DEBIAN_FRONTEND=noninteractive
if ! "${sudo_cmd[@]}" apt-get install -y --no-install-recommends "${missing[@]}"; then
  "${sudo_cmd[@]}" apt-get update
  "${sudo_cmd[@]}" apt-get install -y --no-install-recommends "${missing[@]}"
fi
