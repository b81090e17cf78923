#!/usr/bin/env bash
# Builds the example program against the package installed from a build
# folder, as a user's program is built, and runs it: the 32-bit build where
# this machine runs it, the 64-bit one elsewhere. With no display it runs in a
# private Wine session and saves pictures of its dialog and frame instead.
# Usage: demo.sh BUILD_DIR
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/scripts/arch.sh"
zk_build_preferred demo "$1" Debug
build_dir=$zk_dir
hello_build="$build_dir/hello"
"$root/scripts/build-against-package.sh" "$build_dir" "$root/examples/hello" "$hello_build"

cd "$hello_build"
if [ -z "${DISPLAY:-}" ]; then
  rm -f hello.png hello-dialog.png
  "$root/scripts/wine-session.sh" "$build_dir" sh -c '"$ZK_WINE" hello.exe --screenshot hello.png'
  for picture in hello.png hello-dialog.png; do
    if [ ! -s "$picture" ]; then
      echo "demo: $picture was not saved" >&2
      exit 1
    fi
  done
  echo "demo: screenshots saved to $hello_build/hello.png and $hello_build/hello-dialog.png"
else
  zk_wine_env "$build_dir"
  "$ZK_WINE" hello.exe
fi
