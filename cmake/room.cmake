# quibbly_room(NAME DIRECTORY [ROOMS room...] [HIDES room...] [USES library...] [SHARES library...])
#
# A room is one directory of src/ built as one static library. Its headers are linked into a directory of the build tree
# that holds nothing else, and that directory is the room's include path. A room sees the ROOMS that it names and what
# those build on; an include against the arrows of docs/architecture.md therefore finds no file. What a room HIDES only it
# sees. Of the libraries that it USES nobody else knows; those that it SHARES stand in its headers.
#
# A directory below a room belongs to it, unless a room of its own was made of it (platform/linux, platform/qt, platform/x11, ui/qt).
function(quibbly_room name directory)
  cmake_parse_arguments(ROOM "" "" "USES;SHARES;ROOMS;HIDES" ${ARGN})
  set(source_dir ${PROJECT_SOURCE_DIR}/src/${directory})
  file(GLOB_RECURSE files CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/src ${source_dir}/*.h ${source_dir}/*.cpp)
  if(directory MATCHES "^(platform|ui)$")
    list(FILTER files EXCLUDE REGEX "^${directory}/(linux|qt|x11)/")
  endif()
  set(headers ${files})
  list(FILTER headers INCLUDE REGEX "\\.h$")
  set(sources ${files})
  list(FILTER sources INCLUDE REGEX "\\.cpp$")

  set(include_dir ${PROJECT_BINARY_DIR}/rooms/${name})
  file(REMOVE_RECURSE ${include_dir})
  foreach(header IN LISTS headers)
    cmake_path(GET header PARENT_PATH parent)
    file(MAKE_DIRECTORY ${include_dir}/${parent})
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/src/${header} ${include_dir}/${header} SYMBOLIC)
  endforeach()

  list(TRANSFORM sources PREPEND ${PROJECT_SOURCE_DIR}/src/)
  if(sources)
    add_library(${name} STATIC ${sources})
    set(scope PUBLIC)
    target_link_libraries(${name} PRIVATE quibbly_options)
  else()
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(${name} ${scope} ${include_dir})
  target_link_libraries(${name} ${scope} ${ROOM_ROOMS} ${ROOM_SHARES})
  if(ROOM_USES OR ROOM_HIDES)
    target_link_libraries(${name} PRIVATE ${ROOM_USES} ${ROOM_HIDES})
  endif()
endfunction()
