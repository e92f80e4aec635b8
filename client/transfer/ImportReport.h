#pragma once

#include "Status.h"

#include <QJsonObject>
#include <QStringList>
#include <QVector>

/// What the import of a file has done, or would do.
struct ImportReport {
    /// What is wrong in a line.
    struct Fault {
        qint64 line;
        /// The first is 1; 0 if it is not about a column.
        int column;
        /// The name of the column in the file.
        QString heading;
        Status reason;
    };

    /// Further faults and changes are only counted.
    static constexpr int MostFaults = 100;
    static constexpr int MostLines = 1000;

    QString file;
    qint64 rows = 0;
    qint64 added = 0;
    qint64 changed = 0;
    qint64 unchanged = 0;
    /// Rows that were imported before and have been changed by somebody since then.
    qint64 kept = 0;
    /// What was added and changed, a line each.
    QStringList changes;
    /// What goes because the file does not have it.
    QStringList removals;
    QVector<Fault> faults;
    qint64 faultCount = 0;
    bool isStored = false;

    void refuse(const Fault& fault);
    void note(const QString& change);
    /// Counts what a row has done: the lines of its changes, none of which are a new thing unless `isNew`.
    void count(bool isNew, const QStringList& lines);
};

namespace ImportTexts {

/// The fault in one line, with the file.
QString fault(const ImportReport& report, const ImportReport::Fault& fault);
/// The numbers in one line.
QString summary(const ImportReport& report, bool isTrial);
/// Everything in lines.
QString report(const ImportReport& report, bool isTrial);
/// "file", "stored", "added", "changed", "unchanged", "kept", "removed", "changes", "removals", "faults" ("line",
/// "column", "heading", "reason") and "faultCount".
QJsonObject json(const ImportReport& report);

} // namespace ImportTexts
