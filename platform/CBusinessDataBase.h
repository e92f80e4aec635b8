#pragma once

#include "SymbolList.h"
#include "tagUserAccountInfo.h"
#include <QMap>
#include <QStringList>
#include <QVariant>

/// The client's cache of securities and of the logged-in user. One per process.
class CBusinessDataBase {
public:
    /// The cache; lives as long as the process and stays its own.
    static CBusinessDataBase* GetInstance();

    /// Field map of the logged-in user, the id under `Kelvo_Fields::UserAccount::userID`; empty when nobody is
    /// logged in.
    QMap<QString, QVariant> GetLoginAccountDetail();

    /// Record of one account; a default-constructed record when the trading account is unknown.
    tagUserAccountInfo GetAccountDetailsByTradinngAccount(const QString& tradingAccount);

    /// Symbols of a security type whose sub-type is one of `subTypes` and that end with one of `suffixes` (an
    /// empty list does not restrict), in the market's own order. `withExpired` adds securities that no longer
    /// trade; `excluded` are left out. Empty when nothing matches.
    SymbolList GetAllSymbolByTypeList(const QString& securityType, const QStringList& subTypes,
        const QStringList& suffixes, bool withExpired, const QStringList& excluded);

    /// The same for one sub-type and one suffix; an empty suffix does not restrict.
    SymbolList GetAllSymbolByType(const QString& securityType, const QString& subType, const QString& suffix,
        bool withExpired, const QStringList& excluded);

    /// Sub-type code of a security; empty when the symbol is unknown.
    QString GetSecuritySubTypeBySymbol(const QString& symbol);

    /// True when the security has daily price limits; false when it has none or the symbol is unknown.
    bool IsSymbolHasPriceLimit(const QString& symbol);

private:
    CBusinessDataBase() = default;
};
