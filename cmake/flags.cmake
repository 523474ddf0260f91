# SPDX-License-Identifier: MIT
#
# Compiler flags, once for all files: vaprix_warnings for everything of ours, vaprix_arithmetic for whatever
# computes properties.

add_library(vaprix_warnings INTERFACE)
target_compile_options(vaprix_warnings INTERFACE
  -Wall -Wextra -Wshadow -Wconversion -Wfloat-conversion -Wdouble-promotion
  $<$<COMPILE_LANGUAGE:CXX>:-Wmissing-declarations>
  $<$<BOOL:${VAPRIX_WERROR}>:-Werror>)

# Strict IEEE arithmetic without contraction: the same digits from every compiler and instruction set, as far as no
# transcendental function is involved.
# errno is never read. Trapping semantics stay on: no speculated operation may raise a flag that hosts poll.
add_library(vaprix_arithmetic INTERFACE)
target_compile_options(vaprix_arithmetic INTERFACE -ffp-contract=off -fno-math-errno)
# For processors with FMA, g++ 12.0 to 12.2 fuses pairs of a*b + c, a*b - c all the same (GCC bug 107647).
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 12.3
   AND CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
  target_compile_options(vaprix_arithmetic INTERFACE -mno-fma)
endif()
if(EMSCRIPTEN)
  target_include_directories(vaprix_arithmetic INTERFACE ${CMAKE_CURRENT_LIST_DIR}/emscripten)
endif()
