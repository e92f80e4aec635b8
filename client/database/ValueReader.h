#pragma once

#include "Database.h"

#include <QVector>

/// Reads values of several tables with one statement, because each statement costs a round trip to a server.
class ValueReader {
public:
    /// Called with the row; the added values start at `column`.
    using Take = std::function<Status(const QSqlQuery& row, int column)>;

    explicit ValueReader(Database& database);

    /// Adds SQL expressions, the values of their placeholders, and what takes the results.
    void add(const QStringList& expressions, const QVariantList& values, const Take& take);
    /// Adds the version of the rights, accounts, limits and prices: as long as it is the same, so are they. A file has
    /// one version for all of its contents.
    void addFactsVersion(QString& version);
    /// Reads everything that was added. If it fails, what was already taken must be dropped.
    Status read();

private:
    struct Part {
        int column;
        Take take;
    };

    Database& m_database;
    QStringList m_expressions;
    QVariantList m_values;
    QVector<Part> m_parts;
};
