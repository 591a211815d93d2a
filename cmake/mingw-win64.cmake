# 64-bit Windows, from Debian's mingw-w64.
set(FOLIANT_TRIPLE x86_64-w64-mingw32)
set(FOLIANT_WORD_SIZE 64)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
