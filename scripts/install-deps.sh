#!/usr/bin/env bash
# Installs what building and testing need, on Debian bookworm; does nothing
# when everything is already there. Both cross compilers and both Wine
# loaders go in everywhere: a machine that cannot start 32-bit processes still
# compiles the 32-bit build, and only its tests are left out.
set -euo pipefail

have_all() {
  command -v i686-w64-mingw32-g++-posix >/dev/null &&
  command -v i686-w64-mingw32-windres >/dev/null &&
  command -v x86_64-w64-mingw32-g++-posix >/dev/null &&
  command -v x86_64-w64-mingw32-windres >/dev/null &&
  [ -x /usr/lib/wine/wine64 ] && command -v wineserver >/dev/null &&
  command -v Xvfb >/dev/null && command -v cmake >/dev/null &&
  command -v ninja >/dev/null &&
  [ -f /usr/src/googletest/CMakeLists.txt ] &&
  dpkg -s wine32:i386 >/dev/null 2>&1 &&
  dpkg -s imagemagick >/dev/null 2>&1
}

if have_all; then
  exit 0
fi

if [ "$(id -u)" -ne 0 ]; then
  echo "install-deps: missing tools and not root; install them or run as root" >&2
  exit 1
fi

export DEBIAN_FRONTEND=noninteractive
dpkg --add-architecture i386
# The i386 security index can lag behind; pinning to bookworm keeps the set consistent.
apt-get update || true
apt-get install -y -t bookworm --no-install-recommends \
  g++-mingw-w64-i686-posix binutils-mingw-w64-i686 \
  g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64 mingw-w64-tools \
  wine wine32:i386 wine64 xvfb xauth cmake ninja-build make googletest imagemagick
