#pragma once

#include "Administration.h"

#include <QMap>

/// Accounts with their limits and cash.
class AccountAdministration {
public:
    /// Texts by the names of the items.
    using Items = QMap<QString, QString>;

    explicit AccountAdministration(Administration& administration);

    /// Adds an account or changes a present one. A new one needs "name", "fund", "client" and "branch"; "asset" is
    /// "ordinary" unless given; the code of an exchange is the name of the security account there. Of a present one the
    /// given items are changed.
    Result<QStringList> addAccount(const QString& account, const Items& items);
    /// The same within a transaction.
    static Status write(Database& database, const QString& account, const Items& items, QStringList& lines);
    /// Sets "quantity", "amount" and "price-band" of an account, or the usual ones of the account "usual". An item is a
    /// positive number, or "usual" for none of the account's own. The others are kept.
    Result<QStringList> setLimits(const QString& account, const Items& items);

    /// Sets the cash that an account can spend from now on, in yuan, or "unknown".
    Result<QStringList> setCash(const QString& account, const QString& yuan);

    static QStringList accountItems();
    /// The words for an item of an account.
    static QString captionOf(const QString& item);
    static QStringList limitItems();

private:
    Administration& m_administration;
};
