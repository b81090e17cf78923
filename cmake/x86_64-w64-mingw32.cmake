# Cross-compiles for 64-bit Windows and runs what it builds under Wine's
# 64-bit loader.
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(ZK_TRIPLE x86_64-w64-mingw32)
set(ZK_LOADER wine64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
