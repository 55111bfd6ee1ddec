#!/usr/bin/env bash
# Builds the Debian package from a build tree, installs it with apt-get as a user would,
# checks what it put on the system (the version, the desktop file and metainfo, the
# default application for font files), opens a WOFF2 font with xdg-open under Xvfb as
# a file manager would, then removes the package again.
# Usage: package-check.sh [BUILD_FOLDER]   (default: build, already built)
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(cd "${1:-build}" && pwd)
sudo_cmd=()
[ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
apt_get=("${sudo_cmd[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -y -o DPkg::Lock::Timeout=300)

(cd "$build" && cpack -G DEB >/dev/null)
deb=$(ls "$build"/glyphora_*_*.deb)
echo "package: $(basename "$deb")"
echo "Depends: $(dpkg-deb --field "$deb" Depends)"

scratch=$(mktemp -d)
cleanup() {
  "${apt_get[@]}" purge glyphora >/dev/null 2>&1 || true
  rm -rf "$scratch"
}
trap cleanup EXIT
"${apt_get[@]}" install "$deb" >/dev/null

[ "$(glyphora --version)" = "Glyphora 3.3.0" ]
desktop-file-validate /usr/share/applications/org.example.Glyphora.desktop
appstreamcli validate --no-net /usr/share/metainfo/org.example.Glyphora.metainfo.xml >/dev/null
[ -f /usr/share/man/man1/glyphora.1 ]

# A user of its own, who has seen the donation reminder already.
export HOME=$scratch XDG_CONFIG_HOME=$scratch/config XDG_DATA_HOME=$scratch/data XDG_CACHE_HOME=$scratch/cache
mkdir -p "$XDG_CONFIG_HOME/Glyphora"
printf '[Donation]\nMerci=oui\n' > "$XDG_CONFIG_HOME/Glyphora/Glyphora.conf"
default=$(xdg-mime query default font/ttf)
echo "xdg-mime default for font/ttf: $default"
[ "$default" = org.example.Glyphora.desktop ]

# The installed program opens a web font handed to it by xdg-open.
cp /usr/share/fonts/woff2/dejavu/DejaVuSans.woff2 "$scratch/essai.woff2"
unset QT_QPA_PLATFORM
xvfb-run -a -s "-screen 0 1280x900x24" bash -c '
  set -euo pipefail
  xdg-open "$1" >/dev/null 2>&1 &
  window=$(timeout 60 xdotool search --sync --onlyvisible --name "^Glyphora: DejaVu Sans$" | head -n1)
  pid=$(xdotool getwindowpid "$window")
  echo "Glyphora shows essai.woff2 (window $window, process $pid)"
  [ -n "${GLYPHORA_SCREENSHOT:-}" ] && import -window root "$GLYPHORA_SCREENSHOT"
  kill "$pid"
' bash "$scratch/essai.woff2"

"${apt_get[@]}" purge glyphora >/dev/null
! command -v glyphora >/dev/null
[ ! -e /usr/share/applications/org.example.Glyphora.desktop ]
echo "Package built, installed, started and removed."
