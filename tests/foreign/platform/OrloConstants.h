#pragma once

#include <QString>

namespace OrloConstants {
namespace DateTimeFormatString {
inline const QString STD_DATE_FORMAT = QStringLiteral("dd.MM.yyyy");
}
namespace DictionaryKey {
inline const QString SideUnion2AlgoDefines = QStringLiteral("algorithm property");
inline const QString exchangeChineseName = QStringLiteral("exchange");
} // namespace DictionaryKey
} // namespace OrloConstants
