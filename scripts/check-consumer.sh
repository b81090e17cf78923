#!/usr/bin/env bash
# Builds the small consumer project against the installed package and runs
# it. Needs Wine's session, whose loader ZK_WINE names. Usage: check-consumer.sh BUILD_DIR
set -euo pipefail

build_dir=$(cd "$1" && pwd)
root=$(cd "$(dirname "$0")/.." && pwd)

"$root/scripts/build-against-package.sh" "$build_dir" "$root/tests/consumer" "$build_dir/consumer"
"$ZK_WINE" "$build_dir/consumer/consumer.exe"
