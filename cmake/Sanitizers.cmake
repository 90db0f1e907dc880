# Any report of a sanitizer ends the program, so that the test that met it fails.
if(BRENWICK_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  # The standard library's own checks of indices and iterators, which no sanitizer sees.
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
# Reports two threads that touch the same without an order. It cannot be had together with the others.
option(BRENWICK_THREAD_SANITIZE "Build with the thread sanitizer" OFF)
if(BRENWICK_THREAD_SANITIZE)
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()
