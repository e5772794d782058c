# SPDX-License-Identifier: MIT
# What `cmake --install` lays down: libraries, headers.
install(TARGETS TesseraCore TesseraWidgets EXPORT TesseraTargets)
install(DIRECTORY src/tessera DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
