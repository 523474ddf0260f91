# SPDX-License-Identifier: MIT
#
# 64-bit Windows, from Debian's MinGW; programs run in Wine, of a prefix of their own.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
find_program(WINE NAMES wine64 wine PATHS /usr/lib/wine)
set(CMAKE_CROSSCOMPILING_EMULATOR
  env WINEPREFIX=${CMAKE_BINARY_DIR}/wine WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml= ${WINE})
