# Cross-compiles for 32-bit Windows with mingw-w64 and runs what it builds
# under Wine's 32-bit loader, named by its path like the 64-bit one.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)

set(ZK_TRIPLE i686-w64-mingw32)
set(CMAKE_C_COMPILER ${ZK_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ZK_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${ZK_TRIPLE}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${ZK_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

set(ZK_WINE_ARCH win32 CACHE STRING "The Wine prefix kind that runs this build")
find_program(ZK_WINE wine PATHS /usr/lib/wine NO_DEFAULT_PATH)
if(ZK_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${ZK_WINE})
endif()
