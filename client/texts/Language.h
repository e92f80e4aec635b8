#pragma once

#include "Status.h"

#include <QStringList>

/// Codes of the form's languages, the default one first.
QStringList languageCodes();

/// Sets the language of every form constructed from now on. Needs the application object. If it fails, the language
/// does not change.
Status useLanguage(const QString& code);

/// The code of the language in use.
QString languageInUse();

/// A text of the editor in the current language; `source` is the Chinese text.
QString editorText(const char* source);
