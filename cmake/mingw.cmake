# What both word sizes share. The toolchain file that includes this has set FOLIANT_TRIPLE and FOLIANT_WORD_SIZE.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${FOLIANT_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${FOLIANT_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${FOLIANT_TRIPLE}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${FOLIANT_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# A user copies single files: each carries what it needs of the compiler's own libraries. Without the hour in them, the
# same sources give the same files.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/in-wine ${FOLIANT_WORD_SIZE})
