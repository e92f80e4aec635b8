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
    /// Whether statements cost no round trip, so that two small ones are faster than a large one.
    bool isLocal;
    /// Begins a write transaction.
    QString begin;
    /// Begins a transaction that only reads, on the contents of one moment.
    QString beginSnapshot;
    /// Appended to a SELECT, keeps others from changing its rows until the transaction ends. Empty if a transaction is
    /// the only one that writes.
    QString rowLock;
    /// Waits for others that have run the same statement, until their transactions end. Empty if a transaction is the
    /// only one that writes.
    QString issueLock;
    /// Whether a statement may contain others that change rows, as its common tables.
    bool nestsChanges;
    /// A query of one text that changes with every change by this connection and every commit of another one.
    QString changeToken;
    /// The first plans of each account of a user: their numbers, and a column as "place". %1 is the column, %2 a
    /// condition, %3 the direction. Its values are the user's id, those of the condition, and how many of each account.
    QString plansOfAccounts;
    /// The texts of a JSON list, which is its value, for IN.
    QString listedTexts;
    /// The column %1 where no index looks it up.
    QString notLookedUp;
    /// The version of the rights, accounts, limits and prices, as an expression; NULL if it is that of all contents.
    QString factsVersion;
    /// Ends a transaction.
    QString commit;

    static const SqlDialect& sqlite();
    static const SqlDialect& postgres();
};
