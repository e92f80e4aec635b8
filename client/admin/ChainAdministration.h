#pragma once

#include "Administration.h"

#include <QMap>

/// The approval chains of accounts.
class ChainAdministration {
public:
    /// The names of users by the names of the items, with a comma between two.
    using Items = QMap<QString, QString>;

    explicit ChainAdministration(Administration& administration);

    /// Sets the "executors" and "reviewers" of an account's instructions of a type. A text that is empty removes them;
    /// an item that is not given keeps them.
    Result<QStringList> setChain(const QString& account, const QString& type, const Items& items);

    /// The same within a transaction.
    static Status write(
        Database& database, const QString& account, const QString& type, const Items& items, QStringList& lines);

    static QStringList items();

private:
    Administration& m_administration;
};
