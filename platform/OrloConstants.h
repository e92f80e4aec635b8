#pragma once

#include <QString>

/// Formats and dictionary names of the client.
///
/// The values come from the linked platform; whoever uses them compares and stores them only.
namespace OrloConstants {

/// Formats for `QDate::toString` and `QDate::fromString`.
namespace DateTimeFormatString {
/// The one format of every date that crosses the plan service.
extern const QString STD_DATE_FORMAT;
} // namespace DateTimeFormatString

/// Categories of the static configuration, see `CDataBase::GetStaticCfgValue`.
namespace DictionaryKey {
/// Entrust type code to the algorithm's order property.
extern const QString SideUnion2AlgoDefines;
/// Exchange code to its Chinese name.
extern const QString exchangeChineseName;
} // namespace DictionaryKey

} // namespace OrloConstants
