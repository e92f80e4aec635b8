#pragma once

#include <QString>

/// Namespaces of a strategy file: parameters, controls and rules each have a vocabulary of their own.
namespace StrategyVocabulary {
inline const QString CORE = QStringLiteral("http://www.fixprotocol.org/FIXatdl-1-1/Core");
inline const QString LAYOUT = QStringLiteral("http://www.fixprotocol.org/FIXatdl-1-1/Layout");
inline const QString VALIDATION = QStringLiteral("http://www.fixprotocol.org/FIXatdl-1-1/Validation");
} // namespace StrategyVocabulary
