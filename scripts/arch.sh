# The two builds, and which of them this machine can run. Sourced by the
# other scripts.
#
# i686 is the platform the library was made for; x86_64 is its 64-bit build.
# Both always compile. The 64-bit build runs wherever Wine's 64-bit loader
# does; the 32-bit one only where a 32-bit process can start at all, which
# some machines' hypervisors forbid.

zk_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
zk_arches="x86_64 i686"

zk_loader() {
  case "$1" in
    i686) echo /usr/lib/wine/wine ;;
    x86_64) echo /usr/lib/wine/wine64 ;;
  esac
}

zk_wine_arch() {
  case "$1" in
    i686) echo win32 ;;
    x86_64) echo win64 ;;
  esac
}

# Whether the machine runs this build's programs: its loader is asked once.
zk_can_run() {
  "$(zk_loader "$1")" --version >/dev/null 2>&1
}

# The build a person runs: the 32-bit one where it runs, else the 64-bit one.
zk_preferred_arch() {
  if zk_can_run i686; then echo i686; else echo x86_64; fi
}

# Which build a configured folder holds, from the toolchain it was made with.
zk_build_arch() {
  if grep -q '^CMAKE_TOOLCHAIN_FILE:.*x86_64' "$1/CMakeCache.txt"; then
    echo x86_64
  else
    echo i686
  fi
}

# Configures and builds one of the builds. Usage:
#   zk_build ARCH DIR BUILD_TYPE [CMAKE_ARGS...]
zk_build() {
  local arch=$1 dir=$2 type=$3
  shift 3
  if [ ! -f "$dir/build.ninja" ]; then
    cmake -G Ninja -S "$zk_root" -B "$dir" \
      -DCMAKE_TOOLCHAIN_FILE="$zk_root/cmake/$arch-w64-mingw32.cmake" \
      -DCMAKE_BUILD_TYPE="$type" "$@" >/dev/null || return 1
  fi
  cmake --build "$dir"
}

# How a build is named to a person.
zk_describe() {
  case "$1" in
    i686) echo "i686 (32-bit)" ;;
    x86_64) echo "x86_64 (64-bit)" ;;
  esac
}

# Points Wine at a build folder's private prefix and at the loader of that
# build: ZK_WINE runs a program, and WINELOADER and WINEARCH keep Wine's own
# helpers on the same loader.
zk_wine_env() {
  local arch
  arch=$(zk_build_arch "$1")
  export ZK_WINE=$(zk_loader "$arch")
  export WINELOADER="$ZK_WINE"
  export WINEARCH=$(zk_wine_arch "$arch")
  export WINEPREFIX="$1/wineprefix"
  export WINEDEBUG=-all
  export WINEDLLOVERRIDES="mscoree,mshtml="
}

# Builds the build a person runs (the 32-bit one where this machine runs it,
# else the 64-bit one) in its folder under TOP, says which, and leaves that
# folder in zk_dir. Usage: zk_build_preferred WHO TOP BUILD_TYPE [CMAKE_ARGS...]
zk_build_preferred() {
  local who=$1 top=$2 arch
  shift 2
  arch=$(zk_preferred_arch)
  mkdir -p "$top"
  zk_dir="$(cd "$top" && pwd)/$arch"
  echo "$who: the $(zk_describe "$arch") build"
  zk_build "$arch" "$zk_dir" "$@"
}
