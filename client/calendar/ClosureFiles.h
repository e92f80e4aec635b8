#pragma once

#include "Status.h"

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>

class TradeCalendar;

/// Files of closures that extend the trade calendar: `plandesk/calendar/*.csv` in the data folders of the system and
/// of the user.
namespace ClosureFiles {

/// Largest size of a file in bytes.
constexpr qint64 MaxSize = 1048576;

/// The present files in the order in which they apply: the system's, then the user's, each by name.
QStringList present();

Result<QByteArray> read(const QString& path);

/// The built-in calendar extended by the present files, as they were at the first call or the last `reload`. Leaves out
/// a file that is invalid, with a warning in the log; see `status`.
const TradeCalendar& calendar();
/// Why the calendar lacks one of the present files; success if it has all of them.
Status status();
/// Grows with each `reload`.
int version();
/// Reads the files again. No other thread may use the calendar meanwhile.
void reload();

/// Checks a file against the calendar and copies it to the user's folder, where it replaces a file of that name.
/// Returns the last day that the calendar knows with it.
Result<QDate> install(const QString& path);
/// The same for the text of a file with this base name.
Result<QDate> installText(const QByteArray& csv, const QString& name);

} // namespace ClosureFiles
