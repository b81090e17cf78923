#!/usr/bin/env bash
# Installs the libraries from a build folder and builds a project outside the
# tree against the installed package, as a user's program is built; the
# DLLs are copied beside what it builds, and the package is the build
# folder's own kind, 32- or 64-bit. Usage:
#   build-against-package.sh BUILD_DIR PROJECT_DIR OUTPUT_DIR
set -euo pipefail

build_dir=$(cd "$1" && pwd)
project_dir=$2
output_dir=$3
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/scripts/arch.sh"
prefix="$build_dir/install"
arch=$(zk_build_arch "$build_dir")

cmake --install "$build_dir" --prefix "$prefix" >/dev/null
cmake -G Ninja -S "$project_dir" -B "$output_dir" \
  -DCMAKE_TOOLCHAIN_FILE="$root/cmake/$arch-w64-mingw32.cmake" \
  -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$output_dir" >/dev/null
cp "$prefix"/bin/*.dll "$output_dir"/
