#!/usr/bin/env bash
# Goes the whole way through the real program as somebody with a screen reader: outside.sh PROGRAM_DIR, the directory
# with the executable and its data, which stays as it is. Exit status: 0 all went well, 77 something it wants isn't
# installed, else it says what was wrong.
set -eu
[ $# = 1 ] && [ -x "$1/ferncastle" ] || { echo "usage: outside.sh PROGRAM_DIR, the directory that holds ferncastle" >&2; exit 2; }
here=$(cd "$(dirname "$0")" && pwd)
limit=${FERNCASTLE_OUTSIDE_LIMIT:-240}

# Not every python3 in the path is the one that the host's packages are for.
for python in python3 /usr/bin/python3 ""; do
  [ -z "$python" ] || ! "$python" -c 'import gi; gi.require_version("Atspi", "2.0")' 2>/dev/null || break
done
for want in xvfb-run xauth dbus-run-session ${python:-the Python bindings of AT-SPI}; do
  command -v "$want" >/dev/null || {
    echo "outside.sh wants at-spi2-core gir1.2-atspi-2.0 python3-gi dbus xvfb xauth; not found: $want" >&2
    exit 77
  }
done

# Projects go into the program's directory and settings into the user's: both are made for this run alone. What a run
# by hand has left in the directory must not change the way.
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
trap 'exit 143' TERM INT HUP
mkdir -m 700 "$place/home" "$place/runtime" "$place/tmp"
cp -r "$1" "$place/ferncastle"
rm -rf "$place"/ferncastle/[0-9][0-9][0-9][0-9] "$place"/ferncastle/[0-9][0-9][0-9][0-9]_store
cp "$here/../../data/variables.sav" "$place/ferncastle/"

# A desktop that may be there has no say: neither its look nor its file dialogs, nor another platform.
unset WAYLAND_DISPLAY QT_QPA_PLATFORM QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE XDG_CURRENT_DESKTOP XDG_CONFIG_HOME \
  XDG_DATA_HOME XDG_CACHE_HOME DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS LANGUAGE
export HOME="$place/home" XDG_RUNTIME_DIR="$place/runtime" TMPDIR="$place/tmp" LC_ALL=C.UTF-8 \
  QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1

# In the background, so that the trap is heard; timeout ends all that hangs on it.
status=0
timeout -k 10 "$limit" xvfb-run -a -s "-screen 0 1280x1024x24" \
  dbus-run-session -- "$python" -u "$here/outside.py" "$place/ferncastle" 2>"$place/noise" &
trap 'kill $! 2>/dev/null; wait; exit 143' TERM INT HUP
wait $! || status=$?
[ $status != 124 ] && [ $status != 137 ] || echo "outside.sh: not done after $limit s" >&2
[ $status = 0 ] || cat "$place/noise" >&2
exit $status
