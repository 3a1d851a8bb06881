# The options that our targets are built with. Consumers do not get them.

if(ZELK_SANITIZE)
  add_compile_options(-fsanitize=${ZELK_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${ZELK_SANITIZE})
  # With sanitizers, g++ 12 does not see that the std::function in <regex> is initialised.
  set(sanitizer_warnings $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()

# All code is instrumented for libFuzzer. Each fuzzer links its own main().
if(ZELK_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link
                      -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/fuzz/ignorelist.txt)
  add_link_options(-fsanitize=fuzzer-no-link)
endif()

# Hardening is tested, so it is in every build type. Corrupted memory aborts the process (stack
# protector, assertions of the standard library), and what the loader has written cannot be
# overwritten later (RELRO with every symbol bound at load time).
function(zelk_target_defaults target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Wold-style-cast
    -fstack-protector-strong
    # g++ 12 takes "text" + std::string() for a copy over itself once it has inlined enough.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    ${sanitizer_warnings}
    $<$<BOOL:${ZELK_WARNINGS_AS_ERRORS}>:-Werror>)
  target_compile_definitions(${target} PRIVATE _GLIBCXX_ASSERTIONS
    # Otherwise files of 2 GiB, or with an inode number of more than 32 bits, cannot be opened.
    $<$<EQUAL:${CMAKE_SIZEOF_VOID_P},4>:_FILE_OFFSET_BITS=64>)
  target_link_options(${target} PRIVATE
    -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
endfunction()

# What test programs are compiled with; the same for all of them, or they could not share
# precompiled headers.
function(zelk_test_defaults target)
  zelk_target_defaults(${target})
  # What is tested is built as it is shipped; tests themselves compile up to three times as fast if
  # they are not optimised, and run as fast.
  target_compile_options(${target} PRIVATE -O0
    # The framework's own macros take fewer arguments than the standard's letter wants.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>)
  # Of tests themselves only the use of memory is checked, or they take half as long again to
  # compile.
  if(ZELK_SANITIZE)
    target_compile_options(${target} PRIVATE -fno-sanitize=undefined)
  endif()
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
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    LINK_DEPENDS ${arg_SYMBOLS})
  if(ZELK_RELOCATABLE)
    # Our libraries are in one folder in the build tree, too. So the files that are tested are those
    # that are installed, and they contain no path of the machine that built them.
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN" BUILD_WITH_INSTALL_RPATH ON)
  endif()
  target_link_options(${target} PRIVATE
    -Wl,--enable-new-dtags -Wl,--version-script=${arg_SYMBOLS})
  # The runtimes of sanitizers and of libFuzzer are linked into the program only.
  if(NOT ZELK_SANITIZE AND NOT ZELK_FUZZ)
    target_link_options(${target} PRIVATE -Wl,-z,defs)
  endif()
endfunction()
