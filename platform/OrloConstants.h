#pragma once

#include <QString>

/// Formats and dictionary names of the client.
///
/// The linked platform defines the values. Other code only compares and stores them.
namespace OrloConstants {

/// Formats for `QDate::toString` and `QDate::fromString`.
namespace DateTimeFormatString {
/// Format of every date in the plan service's records.
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
