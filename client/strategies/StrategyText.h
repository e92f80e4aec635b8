#pragma once

#include "Status.h"

#include <QByteArray>
#include <QVector>

/// The encoding of a strategy file.
namespace StrategyText {

/// The bytes in UTF-8 without a byte order mark. The encoding is that of the byte order mark or the XML declaration,
/// otherwise UTF-8. Fails, with the line, for an encoding that is not supported and for bytes that are not of it.
/// UTF-16 in a declaration of single bytes and version 1.1 of XML are read as UTF-8 and 1.0, with a warning.
Result<QByteArray> toUtf8(const QByteArray& bytes, QVector<Status>& warnings);

} // namespace StrategyText
