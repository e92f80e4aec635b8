#pragma once

#include "Database.h"
#include "Market.h"
#include "TableWriter.h"
#include "TransferForm.h"
#include "UserStore.h"

#include <QDate>
#include <QIODevice>

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
};

/// Writes everything of a kind that the user may see, which can be imported if there is an importer for it.
Status run(const Task& task, QIODevice& device);

/// The format of a file by its name; fails for an unknown extension.
Result<TableFormat> formatOf(const QString& file);
/// Fails if there is no such kind.
Status check(const QString& kind);

} // namespace ExportRun
