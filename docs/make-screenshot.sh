#!/usr/bin/env bash
# Remakes docs/room-editor.png, the README's picture of the room editor on a
# real room: the server's stock world file 30.wld, opened from the command
# line on a virtual screen.  Run it from the project's root after a build:
#
#   docs/make-screenshot.sh [WORLD_FILE]     (default ../shared/corpus/30.wld)
#
# Needs Xvfb, openbox, ImageMagick and xdotool; installs them with apt-get
# when they are missing.  The program runs from a copy in a temporary folder
# with a configuration folder of its own, so no recent list is touched.
set -euo pipefail
cd "$(dirname "$0")/.."
world=$(realpath "${1:-../shared/corpus/30.wld}")
out=docs/room-editor.png
[ -x build/marl ] || { echo "make-screenshot: build the program first (make build)" >&2; exit 2; }
[ -f "$world" ] || { echo "make-screenshot: $world not found" >&2; exit 2; }

need=()
command -v Xvfb >/dev/null || need+=(xvfb)
command -v import >/dev/null || need+=(imagemagick)
command -v xdotool >/dev/null || need+=(xdotool)
command -v openbox >/dev/null || need+=(openbox)
if [ ${#need[@]} -gt 0 ]; then
  SUDO=; [ "$(id -u)" = 0 ] || SUDO=sudo
  $SUDO apt-get install -y --no-install-recommends "${need[@]}" >/dev/null
fi

tmp=$(mktemp -d)
cp build/marl "$tmp/"
disp=:$(( 500 + RANDOM % 400 ))
Xvfb "$disp" -screen 0 1280x900x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
app=; wm=
trap 'kill $app $wm $xvfb 2>/dev/null || true; rm -rf "$tmp"' EXIT
sleep 1
DISPLAY=$disp openbox >/dev/null 2>&1 &
wm=$!
sleep 1
DISPLAY=$disp XDG_CONFIG_HOME=$tmp/config QT_QPA_PLATFORM=xcb "$tmp/marl" "$world" &
app=$!
# The room editor is the window that has the focus once it is up.
for _ in $(seq 20); do
  sleep 0.5
  window=$(DISPLAY=$disp xdotool search --name '^Room Editor' 2>/dev/null | head -n1 || true)
  [ -n "$window" ] && break
done
[ -n "${window:-}" ] || { echo "make-screenshot: the room editor did not appear" >&2; exit 1; }
sleep 1
DISPLAY=$disp import -window "$window" -frame "$out"
echo "saved $out"
