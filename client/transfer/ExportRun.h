#pragma once

#include "Database.h"
#include "Market.h"
#include "TableWriter.h"
#include "TransferForm.h"
#include "UserStore.h"

#include <QIODevice>

namespace ExportRun {

/// Writes everything of a kind that the user may see: the tables of the kinds of `TransferForms::exportable`, which can
/// be imported if there is an importer for them.
Status run(Database& database, const Market& market, const StoredUser& user, const QString& kind, TableFormat format,
    QIODevice& device);

/// The format of a file by its name; fails for an unknown extension.
Result<TableFormat> formatOf(const QString& file);
/// Fails if there is no such kind.
Status check(const QString& kind);

} // namespace ExportRun
