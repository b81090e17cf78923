#!/usr/bin/env bash
# Builds the benchmarks in Release and runs them: the 32-bit build where this
# machine runs it, the 64-bit one elsewhere. Usage: bench.sh BUILD_DIR
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/scripts/arch.sh"
mkdir -p "$1"
arch=$(zk_preferred_arch)
build_dir="$(cd "$1" && pwd)/$arch"

echo "bench: the $(zk_describe "$arch") build"
zk_build "$arch" "$build_dir" Release -DZK_BUILD_TESTS=OFF -DZK_BUILD_BENCH=ON
"$root/scripts/wine-session.sh" "$build_dir" sh -c '"$ZK_WINE" "$1/bin/zkbench.exe"' sh "$build_dir"
