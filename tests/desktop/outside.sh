#!/usr/bin/env bash
# Drives the real program from outside, as a screen reader does: outside.sh PROGRAM_DIR. PROGRAM_DIR holds the executable
# and its data and is not changed. Exit status: 0 passed, 77 a required package is missing, 124 timeout; otherwise a
# message says what is wrong.
set -eu
if [ $# != 1 ] || [ ! -x "$1/ferncastle" ]; then
  echo "usage: outside.sh PROGRAM_DIR, the directory that holds ferncastle and its data" >&2
  exit 2
fi
here=$(cd "$(dirname "$0")" && pwd)
limit=${FERNCASTLE_OUTSIDE_LIMIT:-240}

# The first python3 in the path may not be the one that the system's packages belong to.
for python in python3 /usr/bin/python3 python3-with-gi; do
  ! "$python" -c 'import gi; gi.require_version("Atspi", "2.0")' 2>/dev/null || break
done
for want in xvfb-run xauth dbus-run-session "$python"; do
  command -v "$want" >/dev/null && continue
  echo "outside.sh: no $want; this test needs at-spi2-core gir1.2-atspi-2.0 python3-gi dbus xvfb xauth" >&2
  exit 77
done

# Projects go into the program's directory and settings into the home directory, so this run gets new ones of both.
# Projects that earlier runs have left in the program's directory are not copied.
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
mkdir -m 700 "$place/home" "$place/runtime" "$place/tmp"
cp -r "$1" "$place/ferncastle"
rm -rf "$place"/ferncastle/[0-9][0-9][0-9][0-9] "$place"/ferncastle/[0-9][0-9][0-9][0-9]_store
cp "$here/../../data/variables.sav" "$place/ferncastle/"

# Keeps the style, file dialogs, language and platform of a running desktop out of the test.
unset WAYLAND_DISPLAY QT_QPA_PLATFORM QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE QT_SCALE_FACTOR XDG_CURRENT_DESKTOP \
  XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS LANGUAGE
export HOME="$place/home" XDG_RUNTIME_DIR="$place/runtime" TMPDIR="$place/tmp" LC_ALL=C.UTF-8 \
  QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1

# In the background, so that a signal is handled at once; timeout passes it on to its child processes.
timeout -k 10 "$limit" xvfb-run -a -s "-screen 0 1280x1024x24" \
  dbus-run-session -- "$python" -u "$here/outside.py" "$place/ferncastle" 2>"$place/noise" &
trap 'kill $! 2>/dev/null; wait; exit 143' TERM INT HUP
status=0
wait $! || status=$?
[ $status = 0 ] || cat "$place/noise" >&2
[ $status != 124 ] && [ $status != 137 ] || echo "outside.sh: not done after $limit s" >&2
exit $status
