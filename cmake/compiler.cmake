# How everything here is compiled: language level, warnings, sanitizers, compiler cache.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Release, Debug or RelWithDebInfo" FORCE)
endif()
# Without the vectorizer of straight-line code: it gathers two words in a vector register to store
# them side by side, which takes longer than two stores, and there are many such pairs in a roll.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG -fno-tree-slp-vectorize")

# No fused multiply-add: a game gives the same figures, and bench the same signature, on every
# processor.
add_compile_options(-ffp-contract=off)

# Range checks of the library's containers wherever speed is not the point.
add_compile_definitions($<$<NOT:$<CONFIG:Release>>:_GLIBCXX_ASSERTIONS>)

if("$ENV{CI}")
  set(warnings_are_errors ON)
else()
  set(warnings_are_errors OFF)
endif()
option(FELTMASTER_WERROR "Treat warnings as errors" ${warnings_are_errors})

add_library(feltmaster_warnings INTERFACE)
target_compile_options(feltmaster_warnings INTERFACE
  -Wall -Wextra -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wundef
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wlogical-op>
  $<$<BOOL:${FELTMASTER_WERROR}>:-Werror>)

set(FELTMASTER_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize= takes them")
if(FELTMASTER_SANITIZE)
  add_compile_options(-fsanitize=${FELTMASTER_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${FELTMASTER_SANITIZE})
  # Instrumented code misleads the warnings that follow values through the optimizer.
  target_compile_options(feltmaster_warnings INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized -Wno-array-bounds -Wno-stringop-overflow
                             -Wno-restrict>)
endif()

option(FELTMASTER_FUZZ "Build the fuzzers with the fuzzing engine of clang" OFF)
if(FELTMASTER_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

# Large headers of libraries, read once. A compiler cache does better and does not go with it.
function(precompile_headers target)
  if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

function(forgive_leaks_of_libraries target)
  if(FELTMASTER_SANITIZE)
    target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/leaks_of_libraries.cpp)
  endif()
endfunction()
