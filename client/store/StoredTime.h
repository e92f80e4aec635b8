#pragma once

#include <QDateTime>
#include <QString>

/// Times as texts of the database: UTC with milliseconds, for example "2024-05-06T01:30:00.125Z".
namespace StoredTime {

QString toText(const QDateTime& time);
/// The time in the machine's zone; invalid if the text is no time.
QDateTime fromText(const QString& text);

} // namespace StoredTime
