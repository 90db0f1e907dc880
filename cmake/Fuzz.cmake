# The fuzz targets: all of our code counts what it runs through, so that libFuzzer sees where a new
# input leads. scripts/fuzz builds and runs them.
if(BRENWICK_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    message(FATAL_ERROR "BRENWICK_FUZZ needs clang: cmake --preset fuzz")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_subdirectory(tests/fuzz)
endif()
