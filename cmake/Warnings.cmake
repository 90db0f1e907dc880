# Every target of ours builds without a warning; a warning is an error.
add_library(brenwick-warnings INTERFACE)
target_compile_options(brenwick-warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Wold-style-cast -Werror)
# GCC 12 takes its own std::string for overlapping memory where it optimizes.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_compile_options(brenwick-warnings INTERFACE -Wno-restrict)
endif()
