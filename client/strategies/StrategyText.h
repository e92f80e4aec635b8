#pragma once

#include "Status.h"

#include <QByteArray>

/// The encoding of a strategy file.
namespace StrategyText {

/// The bytes in UTF-8 without a byte order mark. The encoding is that of the byte order mark or the XML declaration,
/// otherwise UTF-8. Fails, with the line, for an encoding that is not supported and for bytes that are not of it.
Result<QByteArray> toUtf8(const QByteArray& bytes);

} // namespace StrategyText
