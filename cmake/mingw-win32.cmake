# 32-bit Windows, from Debian's mingw-w64.
set(FOLIANT_TRIPLE i686-w64-mingw32)
set(FOLIANT_WORD_SIZE 32)
set(CMAKE_SYSTEM_PROCESSOR i686)
# Callers of a COM component may leave the stack at the 4 bytes that Windows promises, not the 16 that the compiler
# counts on for its SSE code.
set(CMAKE_CXX_FLAGS_INIT "-mstackrealign")
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
