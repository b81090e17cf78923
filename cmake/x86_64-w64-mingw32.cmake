# Cross-compiles for 64-bit Windows with mingw-w64 and runs what it builds
# under Wine's 64-bit loader. The loader is named by its path: the plain
# wine command picks the 32-bit loader whenever that is installed, even on a
# machine that cannot run it.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(ZK_TRIPLE x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${ZK_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ZK_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${ZK_TRIPLE}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${ZK_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

set(ZK_WINE_ARCH win64 CACHE STRING "The Wine prefix kind that runs this build")
find_program(ZK_WINE wine64 PATHS /usr/lib/wine NO_DEFAULT_PATH)
if(ZK_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${ZK_WINE})
endif()
