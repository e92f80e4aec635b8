#pragma once

#include <QString>
#include <QVariant>

/// A statement with the values of its placeholders.
struct SqlQuery {
    QString text;
    QVariantList values;
};

/// The SQL that differs between the engines. All other statements are understood by both.
struct SqlDialect {
    /// Begins a write transaction.
    QString begin;
    /// Appended to a SELECT, keeps others from changing its rows until the transaction ends. Empty if a transaction is
    /// the only one that writes.
    QString rowLock;
    /// Whether a statement may contain others that change rows, as its common tables.
    bool nestsChanges;
    /// A query of one text that changes with every change by this connection and every commit of another one.
    QString changeToken;
    /// A query of the numbers of the newest plans of each account of a user. Its values are the user's id and how many.
    QString newestOfAccounts;

    static const SqlDialect& sqlite();
    static const SqlDialect& postgres();
};
