// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// Symbols of the two libraries; everything else is hidden.
#ifdef TESSERA_CORE_LIBRARY
#define TESSERA_CORE_EXPORT Q_DECL_EXPORT
#else
#define TESSERA_CORE_EXPORT Q_DECL_IMPORT
#endif

#ifdef TESSERA_WIDGETS_LIBRARY
#define TESSERA_WIDGETS_EXPORT Q_DECL_EXPORT
#else
#define TESSERA_WIDGETS_EXPORT Q_DECL_IMPORT
#endif
