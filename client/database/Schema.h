#pragma once

#include "Error.h"

#include <QStringList>
#include <QVector>

/// The database's tables as a list of steps, one per schema version.
namespace Schema {

/// Rows of an older version that a newer one does not allow.
struct Obstacle {
    /// Its details are the columns of the first row.
    Error error;
    QString query;
};

/// Brings a database from the version before to `version`.
struct Migration {
    int version;
    QStringList statements;
    /// Queried before the statements run. Each row is refused.
    QVector<Obstacle> obstacles = {};
};

/// Every step since the empty file, ascending and without gaps.
const QVector<Migration>& migrations();
/// The version that this program reads and writes.
int latestVersion();
/// The application id in the file header, which identifies this program's files.
int applicationId();

} // namespace Schema
