# Cross-compiles for 32-bit Windows, the platform the library was made for,
# and runs what it builds under Wine's 32-bit loader.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(ZK_TRIPLE i686-w64-mingw32)
set(ZK_LOADER wine)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
