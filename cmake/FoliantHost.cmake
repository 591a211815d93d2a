# A stand-in host is a module, hosts/<name>.so beside the command, around a room that its tests link directly.

set(FOLIANT_HOSTS_FOLDER ${CMAKE_BINARY_DIR}/hosts)

# foliant_host(NAME OWN_HEADER ROOM room FOLDERS folders... EXCEPT sources... LINKS targets... RUN_PATH folders...): the
# room foliant_NAME, or foliant_ROOM where another room has that name, of the sources that foliant_room would take, and the
# module of host_module.cpp over it. RUN_PATH is where the engine's libraries lie, when that is not where every program
# finds them. Links to UNO, to an engine ... are for the room alone. OWN_HEADER is for a room that defines what the
# standard library's headers look at: it shares no precompiled header.
function(foliant_host name)
  cmake_parse_arguments(host "OWN_HEADER" "ROOM" "FOLDERS;EXCEPT;LINKS;RUN_PATH" ${ARGN})
  if(NOT host_ROOM)
    set(host_ROOM ${name})
  endif()
  foliant_room(${host_ROOM} FOLDERS ${host_FOLDERS} EXCEPT host_module.cpp ${host_EXCEPT})
  target_link_libraries(foliant_${host_ROOM} PRIVATE ${host_LINKS} PUBLIC ${CMAKE_DL_LIBS})
  if(host_OWN_HEADER)
    set_target_properties(foliant_${host_ROOM} PROPERTIES DISABLE_PRECOMPILE_HEADERS ON)
  endif()

  foliant_hosts_library(foliant_host_${name} ${name} host_module.cpp)
  target_link_libraries(foliant_host_${name} PRIVATE foliant_${host_ROOM})
  foliant_run_path(foliant_host_${name} ${host_RUN_PATH})
  set_property(GLOBAL APPEND PROPERTY FOLIANT_HOSTS ${name})
endfunction()

# foliant_host_part(HOST PART SOURCES sources... LINKS targets...): the library hosts/HOST-PART.so, which the module of
# the host loads when it is needed (src/hosts/module_part.h), of the sources, one of which exports its function. A host
# that is linked into the command has parts and no library of its own.
function(foliant_host_part host part)
  cmake_parse_arguments(part "" "" "SOURCES;LINKS" ${ARGN})
  foliant_hosts_library(foliant_host_${host}_${part} ${host}-${part} ${part_SOURCES})
  target_link_libraries(foliant_host_${host}_${part} PRIVATE ${part_LINKS})
  foliant_run_path(foliant_host_${host}_${part})
  if(TARGET foliant_host_${host})
    add_dependencies(foliant_host_${host} foliant_host_${host}_${part})
  endif()
endfunction()

# foliant_hosts_library(TARGET NAME sources...): the library hosts/NAME.so beside the command.
function(foliant_hosts_library target name)
  add_library(${target} MODULE ${ARGN})
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${name} PREFIX ""
                        LIBRARY_OUTPUT_DIRECTORY ${FOLIANT_HOSTS_FOLDER})
  # It has all of our code that it needs, and shows nobody but its one function: what is exported is looked up among
  # the symbols of everything loaded, for each call.
  target_link_options(${target} PRIVATE LINKER:--exclude-libs,ALL)
  install(TARGETS ${target} LIBRARY DESTINATION lib/foliant/hosts)
endfunction()

# foliant_run_path(TARGET folders...): where a program or module looks for libraries besides the usual places; the same
# in the build folder as installed. An entry that is empty or relative would be the folder that a user happens to be
# in, and whoever puts a library there would have his code run.
function(foliant_run_path target)
  set_target_properties(${target} PROPERTIES BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "${ARGN}"
                        INSTALL_RPATH_USE_LINK_PATH OFF)
endfunction()
