# A room is a folder of src/ and a static library. It sees its own headers and those of the rooms that
# it uses, and no other: an #include that the table in src/CMakeLists.txt does not allow finds no file.
#
#   brenwick_room(FOLDER [USES ROOM...] [SHOWS LIBRARY...] [LIBRARIES LIBRARY...] [READS_FIRST NAME]
#                 [EXCEPT FILE])
#
# USES         the rooms it uses; whoever uses the room sees these too, since its headers may name them
# SHOWS        libraries of other people's that its headers include
# LIBRARIES    libraries of other people's that only its .cpp files include
# READS_FIRST  the precompiled headers of brenwick_precompiled(NAME ...)
# EXCEPT       the .cpp file of the folder that is not compiled here
#
# The target of the room "linux/sound" is called room-linux-sound. A main.cpp belongs to no room.

# Lets ${PROJECT_BINARY_DIR}/rooms/ROOM hold the headers of one room, under the names that an #include
# gives them. Second-level rooms lie in the folder of the first, and stay hidden here.
function(brenwick_show_headers room target)
  set(shown ${PROJECT_BINARY_DIR}/rooms/${target})
  file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} ${room}/*.h ${room}/*.inc)
  file(GLOB stale RELATIVE ${shown} ${shown}/${room}/*)
  if(stale)
    list(REMOVE_ITEM stale ${headers})
  endif()
  foreach(link IN LISTS stale)
    file(REMOVE_RECURSE ${shown}/${link})
  endforeach()
  file(MAKE_DIRECTORY ${shown}/${room})
  foreach(header IN LISTS headers)
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${header} ${shown}/${header} SYMBOLIC)
  endforeach()
endfunction()

function(brenwick_room room)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "READS_FIRST;EXCEPT" "USES;SHOWS;LIBRARIES")
  if(ARG_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "${room}: what is ${ARG_UNPARSED_ARGUMENTS}?")
  endif()
  string(REPLACE "/" "-" target room-${room})
  string(REPLACE "/" "-" used "${ARG_USES}")
  list(TRANSFORM used PREPEND room-)

  file(GLOB sources CONFIGURE_DEPENDS ${room}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  list(REMOVE_ITEM sources "${CMAKE_CURRENT_SOURCE_DIR}/${room}/${ARG_EXCEPT}")
  # One system's half of a contract that each system fulfils in its own way.
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "-posix\\.cpp$")
  else()
    list(FILTER sources EXCLUDE REGEX "-win32\\.cpp$")
  endif()

  brenwick_show_headers(${room} ${target})
  if(NOT sources)
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE ${PROJECT_BINARY_DIR}/rooms/${target})
    target_link_libraries(${target} INTERFACE ${used} ${ARG_SHOWS} ${ARG_LIBRARIES})
    return()
  endif()
  add_library(${target} STATIC ${sources})
  target_include_directories(${target} PUBLIC ${PROJECT_BINARY_DIR}/rooms/${target})
  target_link_libraries(${target}
    PUBLIC ${used} ${ARG_SHOWS}
    PRIVATE ${ARG_LIBRARIES} $<BUILD_INTERFACE:brenwick-warnings>)
  if(ARG_SHOWS MATCHES "Qt6::")
    # Reading the headers for Q_OBJECT needs no other room to be built first.
    set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOGEN_ORIGIN_DEPENDS OFF)
  endif()
  if(ARG_READS_FIRST AND NOT CMAKE_CXX_CLANG_TIDY)
    target_precompile_headers(${target} REUSE_FROM precompiled-${ARG_READS_FIRST})
  endif()
  brenwick_unity(${target})
endfunction()

# A program in the build folder, made of one file and the rooms that it uses.
function(brenwick_program name source)
  cmake_parse_arguments(PARSE_ARGV 2 ARG "" "" "USES")
  add_executable(${name} ${source})
  string(REPLACE "/" "-" used "${ARG_USES}")
  list(TRANSFORM used PREPEND room-)
  target_link_libraries(${name} PRIVATE ${used} brenwick-warnings)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
endfunction()

# Headers that take longer to read than all that is ours, read once for several rooms. clang-tidy
# wants to read them itself.
#
#   brenwick_precompiled(NAME LIBRARIES LIBRARY... HEADERS HEADER...)
function(brenwick_precompiled name)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "LIBRARIES;HEADERS")
  if(CMAKE_CXX_CLANG_TIDY)
    return()
  endif()
  set(source ${PROJECT_BINARY_DIR}/rooms/precompiled-${name}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "// Only its headers matter.\n")
  add_library(precompiled-${name} OBJECT ${source})
  target_link_libraries(precompiled-${name} PRIVATE
    room-base ${ARG_LIBRARIES} $<BUILD_INTERFACE:brenwick-warnings>)
  target_precompile_headers(precompiled-${name} PRIVATE ${ARG_HEADERS})
endfunction()

# Several rooms, or names of several, under one name, for a program that uses them all.
function(brenwick_rooms name)
  add_library(${name} INTERFACE)
  foreach(room IN LISTS ARGN)
    string(REPLACE "/" "-" target room-${room})
    if(NOT TARGET ${target})
      set(target ${room})
    endif()
    target_link_libraries(${name} INTERFACE ${target})
  endforeach()
endfunction()
