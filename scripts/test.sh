#!/usr/bin/env bash
# Builds both builds, runs every test program of each build this machine can
# run, then builds and runs the consumer project against the installed
# package. A build that cannot run here is still compiled, so that neither
# rots. Says which builds it tested. Usage: test.sh BUILD_DIR
set -uo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/scripts/arch.sh"
mkdir -p "$1"
build=$(cd "$1" && pwd)

for arch in $zk_arches; do
  echo "== building $(zk_describe "$arch") in $build/$arch"
  zk_build "$arch" "$build/$arch" Debug || exit 1
done

tested=()
compiled=()
status=0
for arch in $zk_arches; do
  if ! zk_can_run "$arch"; then
    compiled+=("$(zk_describe "$arch")")
    continue
  fi
  echo "== testing $(zk_describe "$arch")"
  "$root/scripts/wine-session.sh" "$build/$arch" sh -c '
    ctest --test-dir "$1" --output-on-failure &&
    "$2/scripts/check-consumer.sh" "$1"' sh "$build/$arch" "$root" || status=1
  tested+=("$(zk_describe "$arch")")
done

echo "== tested: ${tested[*]:-none}"
if [ ${#compiled[@]} -gt 0 ]; then
  echo "== compiled only, as this machine cannot run its programs: ${compiled[*]}"
fi
[ ${#tested[@]} -gt 0 ] || status=1
exit $status
