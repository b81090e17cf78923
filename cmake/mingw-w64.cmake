# What the two toolchain files share: cross-compiling for Windows with the
# mingw-w64 compilers of ZK_TRIPLE and running what they build under the Wine
# loader ZK_LOADER, named by its path. The plain wine command would pick the
# 32-bit loader whenever that is installed, even on a machine that cannot run it.
set(CMAKE_SYSTEM_NAME Windows)

set(CMAKE_C_COMPILER ${ZK_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ZK_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${ZK_TRIPLE}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${ZK_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

find_program(ZK_WINE ${ZK_LOADER} PATHS /usr/lib/wine NO_DEFAULT_PATH)
if(ZK_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${ZK_WINE})
endif()
