# SPDX-License-Identifier: MIT
# What `cmake --install` lays down beside the programs: libraries, headers, the CMake package Tessera and the
# pkg-config modules. Nothing in them names the folder they were installed to, so the tree may be moved.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/Tessera")
set(pkgconfig_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH PKGCONFIG_TO_PREFIX "/${pkgconfig_dir}" "/")
string(REGEX REPLACE "/$" "" PKGCONFIG_TO_PREFIX "${PKGCONFIG_TO_PREFIX}")

# tessera_install_library(NAME DESCRIPTION text REQUIRES modules…): the library Tessera::NAME, the export file by which
# CMake finds it, and its pkg-config module, which needs the pkg-config modules REQUIRES.
function(tessera_install_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "DESCRIPTION" "REQUIRES")
  install(TARGETS Tessera${name} EXPORT Tessera${name}Targets)
  install(EXPORT Tessera${name}Targets NAMESPACE Tessera:: DESTINATION "${package_dir}")

  set(LIBRARY Tessera${name})
  set(DESCRIPTION "${arg_DESCRIPTION}")
  list(JOIN arg_REQUIRES ", " REQUIRES)
  string(TOLOWER "tessera-${name}.pc" module)
  configure_file("${PROJECT_SOURCE_DIR}/cmake/tessera.pc.in" "${module}" @ONLY)
  install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${module}" DESTINATION "${pkgconfig_dir}")
endfunction()

tessera_install_library(Core DESCRIPTION "Vector map layers, objects and MapInfo formats" REQUIRES Qt6Gui)
tessera_install_library(
  Widgets DESCRIPTION "Embeddable vector map control" REQUIRES "tessera-core = ${PROJECT_VERSION}" Qt6Widgets)
install(DIRECTORY src/tessera DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
        FILES_MATCHING PATTERN "*.h" PATTERN "detail" EXCLUDE)

configure_package_config_file(cmake/TesseraConfig.cmake.in TesseraConfig.cmake INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file(TesseraConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/TesseraConfig.cmake" "${CMAKE_CURRENT_BINARY_DIR}/TesseraConfigVersion.cmake"
        DESTINATION "${package_dir}")
install(FILES LICENSE DESTINATION "${CMAKE_INSTALL_DOCDIR}")
