#pragma once

#include "SymbolList.h"
#include "tagUserAccountInfo.h"

#include <QMap>
#include <QStringList>
#include <QVariant>

/// The client's cache of securities and of the logged-in user. One object per process.
class CBusinessDataBase {
public:
    /// Returns the cache, which lives as long as the process. The caller must not delete it.
    static CBusinessDataBase* GetInstance();

    /// Returns the field map of the logged-in user, including the id under `Kelvo_Fields::UserAccount::userID`; empty
    /// if no user is logged in.
    QMap<QString, QVariant> GetLoginAccountDetail();

    /// Returns the record of an account; a default-constructed record if the trading account is unknown.
    tagUserAccountInfo GetAccountDetailsByTradinngAccount(const QString& tradingAccount);

    /// Returns the symbols of a security type in the order of the market. The sub-type must be in `subTypes`, and the
    /// symbol must end with one of `suffixes`; an empty list does not restrict. `withExpired` includes securities that
    /// are no longer traded; symbols in `excluded` are left out. Empty if no symbol matches.
    SymbolList GetAllSymbolByTypeList(const QString& securityType, const QStringList& subTypes,
        const QStringList& suffixes, bool withExpired, const QStringList& excluded);

    /// Same, for one sub-type and one suffix. An empty suffix does not restrict.
    SymbolList GetAllSymbolByType(const QString& securityType, const QString& subType, const QString& suffix,
        bool withExpired, const QStringList& excluded);

    /// Returns the sub-type code of a security; empty if the symbol is unknown.
    QString GetSecuritySubTypeBySymbol(const QString& symbol);

    /// Returns true if the security has daily price limits; false if it has none or the symbol is unknown.
    bool IsSymbolHasPriceLimit(const QString& symbol);

private:
    CBusinessDataBase() = default;
};
