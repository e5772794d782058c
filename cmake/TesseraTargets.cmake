# SPDX-License-Identifier: MIT
# The two functions through which every target of the project is made, so that all flags stand in one place.

find_program(TESSERA_CCACHE ccache)
if(TESSERA_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${TESSERA_CCACHE}")
endif()
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
file(RELATIVE_PATH TESSERA_BIN_TO_LIB "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")

# Sources that moc and uic write are not ours to lint. clang-tidy takes its configuration from the folders above a source
# and insists on having one check.
if(CMAKE_CXX_CLANG_TIDY)
  file(WRITE "${PROJECT_BINARY_DIR}/.clang-tidy" "Checks: '-*,misc-new-delete-overloads'\n")
endif()

function(_tessera_common target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES AUTOMOC ON AUTORCC ON CXX_EXTENSIONS OFF
                                             CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  # CMake 3.25 does not look into a header that is newly listed for classes that need moc; without this file it looks.
  file(REMOVE "${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/timestamp")
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wno-sign-conversion -Wshadow -Werror)
  target_compile_definitions(
    ${target} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
                      QT_NO_CAST_FROM_BYTEARRAY QT_USE_QSTRINGBUILDER)
  if(TESSERA_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                             -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
  if(TESSERA_SANITIZE_THREADS)
    target_compile_options(${target} PRIVATE -fsanitize=thread -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=thread)
  endif()
  if(TESSERA_BUILD_FUZZERS)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
  if(TESSERA_COVERAGE)
    target_compile_options(${target} PRIVATE --coverage)
    target_link_options(${target} PRIVATE --coverage)
  endif()
endfunction()

# tessera_add_library(NAME LINKS targets…): a shared library Tessera::NAME; its sources come from target_sources.
function(tessera_add_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINKS")
  set(target Tessera${name})
  add_library(${target} SHARED)
  add_library(Tessera::${name} ALIAS ${target})
  _tessera_common(${target})
  string(TOUPPER ${name} upper)
  target_compile_definitions(${target} PRIVATE TESSERA_${upper}_LIBRARY)
  target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>"
                                              "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
  target_link_libraries(${target} PUBLIC ${arg_LINKS})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name} VERSION ${PROJECT_VERSION}
                                             SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
                                             INSTALL_RPATH "$ORIGIN")
endfunction()

# tessera_add_program(NAME [INSTALL] SOURCES files… LINKS targets…): a program, test or benchmark; with INSTALL one that
# `cmake --install` lays down, where it finds the libraries installed with it.
function(tessera_add_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "INSTALL" "" "SOURCES;LINKS")
  add_executable(${name} ${arg_SOURCES})
  _tessera_common(${name})
  target_link_libraries(${name} PRIVATE ${arg_LINKS})
  if(arg_INSTALL)
    set_target_properties(${name} PROPERTIES INSTALL_RPATH "$ORIGIN/${TESSERA_BIN_TO_LIB}")
    install(TARGETS ${name})
  endif()
endfunction()

# tessera_add_translations(target name): the translations name_….ts as resources of the target, under
# :/tessera/translations. scripts/translations brings them up to date with the sources.
function(tessera_add_translations target name)
  find_package(Qt6 6.4 REQUIRED COMPONENTS LinguistTools)
  file(GLOB sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/translations/${name}_*.ts")
  qt_add_lrelease(${target} TS_FILES ${sources} QM_FILES_OUTPUT_VARIABLE files)
  qt_add_resources(${target} translations PREFIX /tessera/translations BASE "${CMAKE_CURRENT_BINARY_DIR}"
                   FILES ${files})
endfunction()
