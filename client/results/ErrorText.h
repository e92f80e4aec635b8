#pragma once

#include "Status.h"

#include <QString>
#include <QStringList>

/// The error message of a status, in Chinese unless a translation is loaded; empty on success.
QString errorText(const Status& status);
/// The caption of a field or of a value, translated like the messages, whose details may be captions. Another text is
/// returned as it is.
QString captionText(const QString& caption);
/// Texts in a row.
QString listText(const QStringList& texts);
