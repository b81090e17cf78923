#!/usr/bin/env bash
# Runs a command with a private Wine prefix, one Xvfb and one persistent
# wineserver, and stops both afterwards. The build folder says which loader
# runs its programs: the command finds it in ZK_WINE.
# Usage: wine-session.sh BUILD_DIR CMD...
set -uo pipefail

build_dir=$(cd "$1" && pwd)
shift
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/scripts/arch.sh"

zk_wine_env "$build_dir"

# The first free display number from 90 up.
display=90
while [ -e "/tmp/.X${display}-lock" ] || [ -e "/tmp/.X11-unix/X${display}" ]; do
  display=$((display + 1))
done
export DISPLAY=":$display"

Xvfb "$DISPLAY" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 </dev/null &
xvfb_pid=$!

for _ in $(seq 50); do
  [ -e "/tmp/.X11-unix/X${display}" ] && break
  sleep 0.1
done

if [ ! -f "$WINEPREFIX/system.reg" ]; then
  "$ZK_WINE" wineboot -i >/dev/null 2>&1 </dev/null
fi
wineserver -p >/dev/null 2>&1 </dev/null &
server_pid=$!
# Wine's own background services start with the first program and inherit its
# standard handles; starting them here keeps them off the pipes of the tests.
"$ZK_WINE" wineboot >/dev/null 2>&1 </dev/null

"$@"
status=$?

wineserver -k >/dev/null 2>&1 </dev/null
kill "$server_pid" 2>/dev/null
wait "$server_pid" 2>/dev/null
kill "$xvfb_pid" 2>/dev/null
wait "$xvfb_pid" 2>/dev/null
exit $status
