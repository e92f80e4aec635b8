#pragma once

#include "Status.h"

#include <QCoreApplication>
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

    enum class Outcome { Added, Changed, Unchanged, Kept };

    /// What a row has done.
    struct RowResult {
        qint64 line;
        Outcome outcome;
        /// In words; empty for an unchanged row.
        QString text;
    };

    /// Further faults and results are only counted.
    int mostFaults = 100;
    int mostResults = 1000;

    QString file;
    /// The line that is being read.
    qint64 line = 0;
    qint64 rows = 0;
    qint64 added = 0;
    qint64 changed = 0;
    qint64 unchanged = 0;
    /// Rows that were imported before and have been changed by somebody since then.
    qint64 kept = 0;
    /// In the order of the file. Closing prices and closures are only counted.
    QVector<RowResult> results;
    /// What goes because the file does not have it.
    QStringList removals;
    QVector<Fault> faults;
    qint64 faultCount = 0;
    bool isStored = false;

    void refuse(const Fault& fault);
    /// Counts what the row has done: the lines of its changes, none of which are a new thing unless `isNew`.
    void count(bool isNew, const QStringList& lines);
    /// Counts the row as kept.
    void keep(const QString& text);
    /// What was added and changed, a line each.
    QStringList changes() const;
};

/// What an import has done, in words.
class ImportTexts {
    Q_DECLARE_TR_FUNCTIONS(ImportTexts)

public:
    /// The fault in one line, with the file.
    static QString fault(const ImportReport& report, const ImportReport::Fault& fault);
    /// The numbers in one line.
    static QString summary(const ImportReport& report, bool isTrial);
    /// Everything in lines.
    static QString report(const ImportReport& report, bool isTrial);
    /// "file", "stored", "added", "changed", "unchanged", "kept", "removed", "changes", "removals", "faults" ("line",
    /// "column", "heading", "reason") and "faultCount".
    static QJsonObject json(const ImportReport& report);
};
