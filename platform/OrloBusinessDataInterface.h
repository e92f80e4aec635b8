#pragma once

#include "tagUserAccountInfo.h"

#include <QList>
#include <QMap>
#include <QStringList>

/// Provides accounts and securities. For an unknown symbol or account, the functions return an empty text, an empty map
/// or the number documented below.
class OrloBusinessDataInterface {
public:
    OrloBusinessDataInterface() = delete;

    /// Returns the logged-in user's accounts. `fundProperty` and `assetProperty` filter by account property (3: every
    /// account that may trade; 16: accounts open to automatic plans). `withClosed` includes closed accounts,
    /// `accountTypes` restricts the account types (empty: all types), `onlyUsable` leaves out frozen accounts.
    static QList<tagUserAccountInfo> GetFundAccountListByFundProp(
        int fundProperty, int assetProperty, bool withClosed, const QStringList& accountTypes, bool onlyUsable);

    /// Returns the security accounts of a trading account by exchange code.
    static QMap<QString, QString> GetCurrentSecurityAccountByTradingAccount(const QString& tradingAccount);

    /// Returns the security account of a trading account on one exchange.
    static QString GetCurrentSecurityAccountByTradingAndExchange(
        const QString& tradingAccount, const QString& exchange);

    /// Returns the asset property of an account, see `Orlo_Values::FundAccountType`.
    static QString GetAccountAssetPropByTradingAccount(const QString& tradingAccount);

    /// Returns the exchange code of a security; the first one if it is traded on several exchanges.
    static QString GetFirstSecurityExchangeBySymbol(const QString& symbol);

    /// Returns the type code of a security, see `Kelvo_Values::MdcSecurityType`.
    static QString GetSecurityTypeBySymbol(const QString& symbol);

    /// Returns the sub-type code of a security.
    static QString GetSecuritySubTypeBySymbol(const QString& symbol);

    /// Returns the Chinese name of a security.
    static QString GetSecurityChineseName(const QString& symbol);

    /// Returns the lot step of a security in displayed units; 0 if unknown.
    static int GetQtyStepBySymbol(const QString& symbol);

    /// Returns the factor between stored and displayed quantity: displayed = stored × factor. 1 if unknown; never 0.
    static int GetDispFactorBySymbol(const QString& symbol);

    /// Returns the number of decimals of a security's price on an exchange; 2 if unknown. An empty exchange means the
    /// security's first exchange.
    static int GetPricePrecisionBySymbol(const QString& symbol, const QString& exchange);

    /// Returns the special-treatment flag of a security, see `Orlo_Values::StFlag`, and sets `description` to a
    /// sentence about it or to an empty text. An unknown symbol counts as normal.
    static QString GetSymbolStType(const QString& symbol, QString& description);
};
