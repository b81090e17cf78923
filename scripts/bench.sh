#!/usr/bin/env bash
# Builds the benchmarks in Release and runs them: the 32-bit build where this
# machine runs it, the 64-bit one elsewhere. Usage: bench.sh BUILD_DIR
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/scripts/arch.sh"
zk_build_preferred bench "$1" Release -DZK_BUILD_TESTS=OFF -DZK_BUILD_BENCH=ON
"$root/scripts/wine-session.sh" "$zk_dir" sh -c '"$ZK_WINE" "$1/bin/zkbench.exe"' sh "$zk_dir"
