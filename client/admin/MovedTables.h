#pragma once

#include "Status.h"

#include <QString>
#include <QStringList>
#include <QVector>

class Database;

/// A table of a file that is moved to the same table on a server.
struct MovedTable {
    QString name;
    QStringList columns;
    /// Whether each column has bytes instead of texts and numbers.
    QVector<bool> binary;
    /// The columns of the primary key.
    QStringList keys;

    /// Name and columns.
    QString target() const;
    /// Reads all columns of the file, ordered by the key.
    QString query() const;
    /// The same on the server, with bytes in hexadecimal form.
    QString serverQuery() const;
};

namespace MovedTables {

/// The tables' names, those that others refer to first.
const QStringList& names();
/// The tables of a file in this order.
Result<QVector<MovedTable>> read(Database& file);

} // namespace MovedTables
