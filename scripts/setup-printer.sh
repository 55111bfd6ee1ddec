#!/usr/bin/env bash
# Starts CUPS with a cups-pdf queue "PDF" as the default printer, writing its PDF files
# to $GLYPHORA_PDF_OUT (default /tmp/cups-pdf-out) with extractable text.
set -euo pipefail
out=${GLYPHORA_PDF_OUT:-/tmp/cups-pdf-out}
sudo_cmd=()
[ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)

"${sudo_cmd[@]}" mkdir -p /run/cups "$out"
"${sudo_cmd[@]}" chmod 1777 "$out"
"${sudo_cmd[@]}" sed -i "s|^#\?Out .*|Out $out|" /etc/cups/cups-pdf.conf
if ! pgrep -x cupsd >/dev/null; then
  "${sudo_cmd[@]}" /usr/sbin/cupsd
fi
for _ in $(seq 1 100); do
  lpstat -r 2>/dev/null | grep -q 'is running' && break
  sleep 0.1
done
if ! lpstat -p PDF >/dev/null 2>&1; then
  "${sudo_cmd[@]}" lpadmin -p PDF -E -v cups-pdf:/ -P /usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd \
    -o pdftops-renderer-default=pdftocairo
fi
"${sudo_cmd[@]}" lpadmin -d PDF
lpstat -d
