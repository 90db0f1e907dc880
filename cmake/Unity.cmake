# With BRENWICK_UNITY the compiler reads several .cpp files as one, since it takes longer to read the
# headers than what stands behind them. The files are the same; that each compiles by itself is shown
# by every build without it.
option(BRENWICK_UNITY "Compile several files as one, for a quicker build" OFF)
if(NOT BRENWICK_UNITY)
  function(brenwick_unity)
  endfunction()
  function(brenwick_unity_tests)
  endfunction()
  return()
endif()
find_package(Python3 REQUIRED COMPONENTS Interpreter)

# Compiles the sources of a target of the current folder in groups.
function(brenwick_unity target)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.cpp$")
  # A name that one of them takes for itself may change the groups.
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${sources})
  execute_process(
    COMMAND ${Python3_EXECUTABLE} -B ${PROJECT_SOURCE_DIR}/cmake/unity_groups.py 12 ${sources}
    OUTPUT_VARIABLE rows OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  string(REPLACE ";" "|" rows "${rows}")
  string(REPLACE "\n" ";" rows "${rows}")
  foreach(row IN LISTS rows)
    string(REPLACE "|" ";" row "${row}")
    list(GET row 0 group)
    list(GET row 1 source)
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP group${group})
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
endfunction()

# Compiles the sources of a test program together. Each stands in a namespace of its own, in which it
# may call its helpers what it likes; so all #include lines are read before, as precompiled headers.
function(brenwick_unity_tests target)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.cpp$")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${sources})
  set(headers "<gtest/gtest.h>")
  foreach(source IN LISTS sources)
    file(STRINGS ${source} lines REGEX "^#include |template <>|PrintTo|operator<<|int main")
    set(own_names TRUE)
    foreach(line IN LISTS lines)
      if(line MATCHES "^#include ([<\"].*[>\"])")
        set(header ${CMAKE_MATCH_1})
        if(header MATCHES "\\.moc\"$")
          set(own_names FALSE)
        else()
          list(APPEND headers ${header})
        endif()
      else()
        # What others find by the type of an argument stays in the namespace of that type.
        set(own_names FALSE)
      endif()
    endforeach()
    # What is no test is declared in a header, and must be what that says.
    if(NOT own_names OR NOT source MATCHES "Test\\.cpp$")
      set_source_files_properties(${source} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
  endforeach()
  list(REMOVE_DUPLICATES headers)
  # A name in quotation marks would be looked for in this folder.
  list(TRANSFORM headers REPLACE "^\"(.*)\"$" "<\\1>")
  target_precompile_headers(${target} PRIVATE ${headers})
  set_target_properties(${target} PROPERTIES
    UNITY_BUILD ON
    UNITY_BUILD_BATCH_SIZE 12
    UNITY_BUILD_UNIQUE_ID BRENWICK_UNITY_ID
    UNITY_BUILD_CODE_BEFORE_INCLUDE
      "namespace BRENWICK_UNITY_ID { namespace brenwick { using namespace ::brenwick; }"
    UNITY_BUILD_CODE_AFTER_INCLUDE "}")
endfunction()
