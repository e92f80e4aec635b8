#include "OrloConstants.h"

namespace OrloConstants {

namespace DateTimeFormatString {
const QString STD_DATE_FORMAT = QStringLiteral("yyyy-MM-dd");
} // namespace DateTimeFormatString

namespace DictionaryKey {
const QString SideUnion2AlgoDefines = QStringLiteral("SideUnion2AlgoDefines");
const QString exchangeChineseName = QStringLiteral("ExchangeChineseName");
} // namespace DictionaryKey

} // namespace OrloConstants
