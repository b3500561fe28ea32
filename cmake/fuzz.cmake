# Coverage-guided fuzzing needs clang, and its instrumentation in every room.
option(TESSEL_FUZZ "Build the fuzz targets" OFF)
if(TESSEL_FUZZ)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all)
  add_compile_options(-fsanitize=fuzzer-no-link ${sanitizers} -fno-omit-frame-pointer)
  add_link_options(${sanitizers})
endif()
