#!/usr/bin/env bash
# Installs the libraries from a build folder, builds the small consumer
# project against the installed package, and runs it. Needs Wine's session.
set -euo pipefail

build_dir=$1
root=$(cd "$(dirname "$0")/.." && pwd)
prefix="$build_dir/install"
consumer_build="$build_dir/consumer"

cmake --install "$build_dir" --prefix "$prefix" >/dev/null
cmake -G Ninja -S "$root/tests/consumer" -B "$consumer_build" \
  -DCMAKE_TOOLCHAIN_FILE="$root/cmake/i686-w64-mingw32.cmake" \
  -DCMAKE_PREFIX_PATH="$(cd "$prefix" && pwd)" >/dev/null
cmake --build "$consumer_build" >/dev/null
cp "$prefix"/bin/*.dll "$consumer_build"/
wine "$consumer_build/consumer.exe"
