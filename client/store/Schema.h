#pragma once

#include <QStringList>
#include <QVector>

/// The database's tables as a list of steps, one per schema version.
namespace Schema {

/// Brings a database from the version before to `version`.
struct Migration {
    int version;
    QStringList statements;
};

/// Every step since the empty file, ascending and without gaps.
const QVector<Migration>& migrations();
/// The version that this program reads and writes.
int latestVersion();
/// The mark in the file header that tells our files from those of other programs.
int applicationId();

} // namespace Schema
