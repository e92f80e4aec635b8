#pragma once

#include "Error.h"

#include <QStringList>
#include <QVector>

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
