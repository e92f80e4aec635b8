#pragma once

#include <QtGlobal>

/// Marks the one class that the library exports.
#ifdef AUTOPARAMSETTING_LIBRARY
#define AUTOPARAMSETTING_EXPORT Q_DECL_EXPORT
#else
#define AUTOPARAMSETTING_EXPORT Q_DECL_IMPORT
#endif
