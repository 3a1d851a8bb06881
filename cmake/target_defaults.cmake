# What our targets are built with. Nothing here reaches a consumer.

if(ZELK_SANITIZE)
  add_compile_options(-fsanitize=${ZELK_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${ZELK_SANITIZE})
endif()

# Everything leaves the traces that guide libFuzzer; its main() comes with each fuzzer.
if(ZELK_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link
                      -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/fuzz/ignorelist.txt)
  add_link_options(-fsanitize=fuzzer-no-link)
endif()

function(zelk_target_defaults target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Wold-style-cast
    $<$<BOOL:${ZELK_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()

# zelk_shared_library(target INCLUDE public-folder SYMBOLS version-script): a library that we
# install, with its alias Zelk::<target less "zelk-">.
function(zelk_shared_library target)
  cmake_parse_arguments(arg "" "INCLUDE;SYMBOLS" "" ${ARGN})
  string(REGEX REPLACE "^zelk-" "" short_name ${target})
  add_library(Zelk::${short_name} ALIAS ${target})
  zelk_target_defaults(${target})
  target_compile_features(${target} PUBLIC cxx_std_17)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${arg_INCLUDE}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${short_name}
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    INSTALL_RPATH "$ORIGIN"
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    LINK_DEPENDS ${arg_SYMBOLS})
  target_link_options(${target} PRIVATE
    -Wl,--enable-new-dtags -Wl,--version-script=${arg_SYMBOLS})
  # A sanitizer's runtime is only there once the program is linked.
  if(NOT ZELK_SANITIZE)
    target_link_options(${target} PRIVATE -Wl,--no-undefined)
  endif()
endfunction()
