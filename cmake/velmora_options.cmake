# One interface target carries what every target of the tree is compiled with.
add_library(velmora_options INTERFACE)
target_include_directories(velmora_options INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
target_compile_options(velmora_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlaps in "text" + std::string(…) that are not there (its bug 105651).
  target_compile_options(velmora_options INTERFACE -Wno-restrict)
endif()
if(VELMORA_WERROR)
  target_compile_options(velmora_options INTERFACE -Werror)
endif()
if(VELMORA_SANITIZE)
  # float-divide-by-zero stays off: degenerate ranges divide by zero on purpose and give inf or NaN.
  target_compile_options(velmora_options INTERFACE
    -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(velmora_options INTERFACE -fsanitize=address,undefined)
  # The checks that sanitizers insert hide initialisations from GCC, which then warns inside <regex> and <functional>.
  target_compile_options(velmora_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()
