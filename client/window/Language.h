#pragma once

#include "Status.h"

#include <QStringList>

/// Codes of the languages that the form can be shown in, the usual one first.
QStringList languageCodes();

/// Has every form that is constructed from now on speak a language. Needs the application object. When it fails the
/// language stays as it was.
Status useLanguage(const QString& code);

/// A text of the editor as the form shows it in the language in use; `source` is the Chinese one.
QString editorText(const char* source);
