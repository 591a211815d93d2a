# A room is a folder of src/: one static library that links only the rooms it may know.

find_program(CCACHE ccache)
if(CCACHE)
  # ccache has to be told that it may trust precompiled headers.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
  add_compile_options(-fpch-preprocess)
endif()

add_library(foliant_settings INTERFACE)
target_include_directories(foliant_settings INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(foliant_settings INTERFACE -Wall -Wextra -Wshadow -Wconversion -Wsign-conversion
                                                  -Woverloaded-virtual)
if(WIN32)
  target_compile_definitions(foliant_settings INTERFACE NOMINMAX WIN32_LEAN_AND_MEAN)
else()
  # Windows' own interfaces have such destructors; objects of COM end with their last reference.
  target_compile_options(foliant_settings INTERFACE -Wnon-virtual-dtor)
endif()
if(FOLIANT_WERROR)
  target_compile_options(foliant_settings INTERFACE -Werror)
endif()
if(FOLIANT_SANITIZE)
  target_compile_options(foliant_settings INTERFACE -fsanitize=address -fno-omit-frame-pointer)
  target_link_options(foliant_settings INTERFACE -fsanitize=address,undefined)
  # Undefined behaviour is looked for in the product; looking for it in the tests' own code takes half as long again.
  set(FOLIANT_PRODUCT_OPTIONS -fsanitize=undefined -fno-sanitize-recover=undefined)
endif()

# A third of the time that a source takes to compile is the standard library's headers: they are compiled once. Sources
# include what they use all the same; the linter reads each of them without this. Mingw gains a tenth: not worth it.
if(NOT WIN32)
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/standard_header.cpp CONTENT "// Owns the precompiled header of the rooms.\n")
  add_library(foliant_standard_header STATIC ${CMAKE_BINARY_DIR}/standard_header.cpp)
  target_link_libraries(foliant_standard_header PRIVATE foliant_settings)
  target_compile_options(foliant_standard_header PRIVATE ${FOLIANT_PRODUCT_OPTIONS})
  target_precompile_headers(foliant_standard_header PRIVATE
    <algorithm> <array> <chrono> <filesystem> <functional> <map> <memory> <optional> <set> <span> <string>
    <string_view> <variant> <vector>)
endif()

# foliant_sources(RESULT FOLDERS folders... EXCEPT sources...): sets RESULT to the sources of the current folder, and of
# those folders below it, but those excepted. A new file is found by the next build.
function(foliant_sources result)
  cmake_parse_arguments(sources "" "" "FOLDERS;EXCEPT" ${ARGN})
  if(sources_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "foliant_sources: is \"${sources_UNPARSED_ARGUMENTS}\" excepted, or a folder?")
  endif()
  set(patterns *.cpp)
  foreach(folder IN LISTS sources_FOLDERS)
    list(APPEND patterns ${folder}/*.cpp)
  endforeach()
  file(GLOB found CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} ${patterns})
  list(REMOVE_ITEM found ${sources_EXCEPT})
  set(${result} ${found} PARENT_SCOPE)
endfunction()

# foliant_rooms_known(RESULT): sets RESULT to the rooms that the one in the current folder may know, as src/rooms says.
function(foliant_rooms_known result)
  set(rooms ${CMAKE_SOURCE_DIR}/src/rooms)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${rooms})
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${CMAKE_SOURCE_DIR}/src OUTPUT_VARIABLE folder)
  file(STRINGS ${rooms} line REGEX "^${folder}:")
  if(NOT line)
    message(FATAL_ERROR "src/rooms does not say what ${folder} knows.")
  endif()
  string(REGEX REPLACE "^[^:]*: *" "" line "${line}")
  string(REPLACE " " ";" line "${line}")
  set(${result} ${line} PARENT_SCOPE)
endfunction()

# foliant_room(NAME FOLDERS folders... EXCEPT sources...): the room of the current folder: all its sources, and those of
# the folders below it that are named, but those excepted. It links the rooms that it may know.
# foliant_room(NAME ... KNOWS rooms...): what tests share; src/rooms does not have it.
# foliant_room(NAME SOURCES sources... KNOWS rooms...): a part of a room.
function(foliant_room name)
  cmake_parse_arguments(room "" "" "FOLDERS;EXCEPT;SOURCES;KNOWS" ${ARGN})
  if(NOT room_SOURCES)
    foliant_sources(room_SOURCES FOLDERS ${room_FOLDERS} EXCEPT ${room_EXCEPT})
    if(NOT DEFINED room_KNOWS)
      foliant_rooms_known(room_KNOWS)
    endif()
  endif()
  add_library(foliant_${name} STATIC ${room_SOURCES})
  target_link_libraries(foliant_${name} PUBLIC foliant_settings)
  if(TARGET foliant_standard_header AND NOT TARGET foliant_test_header) # what tests share is not optimised
    target_precompile_headers(foliant_${name} REUSE_FROM foliant_standard_header)
    # The optimiser's guesses about the library's own code are hidden only while the compiler knows that it is the
    # system's, which it forgets in a precompiled header.
    target_compile_options(foliant_${name} PRIVATE -Wno-array-bounds -Wno-restrict -Wno-stringop-overflow
                                                     -Wno-stringop-overread)
  endif()
  foreach(known IN LISTS room_KNOWS)
    cmake_path(GET known FILENAME library)
    # A room may consist of headers only.
    target_link_libraries(foliant_${name} PUBLIC $<TARGET_NAME_IF_EXISTS:foliant_${library}>)
  endforeach()
endfunction()

# foliant_own_prefix(TARGET): its tests run in a Wine prefix that nobody else uses; they register things.
function(foliant_own_prefix target)
  set(emulator ${CMAKE_SOURCE_DIR}/scripts/in-own-prefix ${FOLIANT_WORD_SIZE} ${CMAKE_CURRENT_BINARY_DIR}/${target}-prefix)
  set_target_properties(${target} PROPERTIES CROSSCOMPILING_EMULATOR "${emulator}")
endfunction()

# foliant_windows_tests(NAME SHARDS n PROPERTIES properties...): CTest runs the program's tests in Wine. Starting a
# program there takes longer than most tests, so a program is one test, or n tests that share its own out: those that
# wait for windows and other processes wait side by side.
function(foliant_windows_tests name)
  cmake_parse_arguments(tests "" "SHARDS" "PROPERTIES" ${ARGN})
  if(NOT tests_SHARDS)
    add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES TIMEOUT 120 ${tests_PROPERTIES})
    return()
  endif()
  math(EXPR last "${tests_SHARDS} - 1")
  foreach(shard RANGE ${last})
    set(test ${name}_${shard})
    add_test(NAME ${test} COMMAND ${name} --gtest_brief=1)
    set_tests_properties(${test} PROPERTIES TIMEOUT 120 ${tests_PROPERTIES})
    set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT GTEST_TOTAL_SHARDS=${tests_SHARDS} GTEST_SHARD_INDEX=${shard})
  endforeach()
endfunction()

# foliant_test(NAME FOLDERS folders... EXCEPT sources... KNOWS rooms... LINKS targets... LABELS labels... SHARDS n
#              PROPERTIES properties...): one test program of all sources of the current folder, and of those folders below
# it, but those excepted, or of SOURCES where several programs share a folder. CTest finds its tests; they have those
# properties. SHARDS are those of foliant_windows_tests.
function(foliant_test name)
  cmake_parse_arguments(test "" "SHARDS" "FOLDERS;EXCEPT;SOURCES;KNOWS;LINKS;LABELS;PROPERTIES" ${ARGN})
  if(NOT test_SOURCES)
    foliant_sources(test_SOURCES FOLDERS ${test_FOLDERS} EXCEPT ${test_EXCEPT})
  endif()
  if(test_LABELS)
    list(APPEND test_PROPERTIES LABELS ${test_LABELS})
  endif()
  add_executable(${name} ${test_SOURCES})
  set_target_properties(${name} PROPERTIES ENABLE_EXPORTS ON)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  foreach(known IN LISTS test_KNOWS)
    target_link_libraries(${name} PRIVATE foliant_${known})
  endforeach()
  target_link_libraries(${name} PRIVATE foliant_settings foliant_test_tools GTest::gmock_main ${test_LINKS})
  if(TARGET foliant_test_header)
    target_precompile_headers(${name} REUSE_FROM foliant_test_header)
  endif()
  if(CMAKE_CROSSCOMPILING)
    if("windows" IN_LIST test_LABELS)
      foliant_own_prefix(${name})
    endif()
    foliant_windows_tests(${name} SHARDS ${test_SHARDS} PROPERTIES ${test_PROPERTIES})
  else()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120 ${test_PROPERTIES})
  endif()
endfunction()
