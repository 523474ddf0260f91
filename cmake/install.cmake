# SPDX-License-Identifier: MIT
#
# What hosts and their build systems find: the libraries, vaprix.h, the CMake package VAPRIX, vaprix.pc, licence and
# reference. Everything may be moved together afterwards.
include(CMakePackageConfigHelpers)
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/VAPRIX)

install(TARGETS vaprix vaprix_static EXPORT VAPRIX)
install(FILES ${PROJECT_BINARY_DIR}/generated/vaprix.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

install(EXPORT VAPRIX NAMESPACE VAPRIX:: FILE VAPRIX-targets.cmake DESTINATION ${package})
write_basic_package_version_file(VAPRIXConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES cmake/VAPRIXConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/VAPRIXConfigVersion.cmake DESTINATION ${package})

file(RELATIVE_PATH up ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
cmake_path(APPEND libdir "\${prefix}" "${CMAKE_INSTALL_LIBDIR}")  # unless that is absolute
cmake_path(APPEND includedir "\${prefix}" "${CMAKE_INSTALL_INCLUDEDIR}")
configure_file(cmake/vaprix.pc.in vaprix.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vaprix.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(FILES LICENSE CHANGELOG.md docs/error-codes.md docs/oddities.md docs/b-or-o.md
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/reference DESTINATION ${CMAKE_INSTALL_DOCDIR})

if(PROJECT_IS_TOP_LEVEL)
  add_custom_target(uninstall
    COMMAND ${CMAKE_COMMAND} -P ${CMAKE_CURRENT_SOURCE_DIR}/cmake/uninstall.cmake
    WORKING_DIRECTORY ${PROJECT_BINARY_DIR} VERBATIM)
endif()
