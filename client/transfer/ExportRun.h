#pragma once

#include "Database.h"
#include "Market.h"
#include "TableWriter.h"
#include "TransferForm.h"
#include "UserStore.h"

#include <QDate>
#include <QIODevice>

#include <functional>

namespace ExportRun {

/// What is exported, as which user.
struct Task {
    Database& database;
    const Market& market;
    const StoredUser user;
    /// A kind of `TransferForms::exportable`.
    QString kind;
    TableFormat format = TableFormat::Csv;
    /// Of the journal.
    QDate day = {};
    /// Called from time to time with the part that was written, in thousandths; returning false cancels the export.
    std::function<bool(int perMille)> progress = {};
};

/// Writes everything of a kind that the user may see, which can be imported if there is an importer for it.
Status run(const Task& task, QIODevice& device);

/// Writes to a file, which is replaced if that succeeds, and otherwise stays as it was.
Status toFile(const Task& task, const QString& file);

/// The format of a file by its name; fails for an unknown extension.
Result<TableFormat> formatOf(const QString& file);
/// Fails if there is no such kind.
Status check(const QString& kind);

} // namespace ExportRun
