# SPDX-License-Identifier: MIT
#
# The CMake package VAPRIX: the libraries, and those of Fortran if they are installed.
include(${CMAKE_CURRENT_LIST_DIR}/VAPRIX-targets.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/VAPRIX-fortran.cmake OPTIONAL)
