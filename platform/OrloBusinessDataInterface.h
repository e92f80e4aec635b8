#pragma once

#include "tagUserAccountInfo.h"
#include <QList>
#include <QMap>
#include <QStringList>

/// Accounts and securities as the whole client sees them. An unknown symbol or account yields an empty text, an empty
/// map or the number said below.
class OrloBusinessDataInterface {
public:
    OrloBusinessDataInterface() = delete;

    /// The logged-in user's accounts. `fundProperty` and `assetProperty` select by account property (3: every
    /// account that may trade; 16: accounts open to automatic plans), `withClosed` adds closed accounts,
    /// `accountTypes` restricts to some types (empty: all), `onlyUsable` leaves out frozen accounts.
    static QList<tagUserAccountInfo> GetFundAccountListByFundProp(
        int fundProperty, int assetProperty, bool withClosed, const QStringList& accountTypes, bool onlyUsable);

    /// Exchange code to security account, for the exchanges on which the trading account has one.
    static QMap<QString, QString> GetCurrentSecurityAccountByTradingAccount(const QString& tradingAccount);

    /// The security account of a trading account on one exchange.
    static QString GetCurrentSecurityAccountByTradingAndExchange(
        const QString& tradingAccount, const QString& exchange);

    /// Asset property of an account, see `Orlo_Values::FundAccountType`.
    static QString GetAccountAssetPropByTradingAccount(const QString& tradingAccount);

    /// Exchange code of a security, the first where it trades on several.
    static QString GetFirstSecurityExchangeBySymbol(const QString& symbol);

    /// Type code of a security, see `Kelvo_Values::MdcSecurityType`.
    static QString GetSecurityTypeBySymbol(const QString& symbol);

    /// Sub-type code of a security.
    static QString GetSecuritySubTypeBySymbol(const QString& symbol);

    /// Chinese name of a security.
    static QString GetSecurityChineseName(const QString& symbol);

    /// Lot step of a security in displayed units; 0 when unknown.
    static int GetQtyStepBySymbol(const QString& symbol);

    /// Factor between stored and displayed quantity: displayed = stored × factor. 1 when unknown; never 0.
    static int GetDispFactorBySymbol(const QString& symbol);

    /// Decimals of a security's price on an exchange; an empty exchange means its first. 2 when unknown.
    static int GetPricePrecisionBySymbol(const QString& symbol, const QString& exchange);

    /// Special-treatment flag of a security, see `Orlo_Values::StFlag`; `description` is set to a sentence about
    /// it, or to an empty text. An unknown symbol counts as normal.
    static QString GetSymbolStType(const QString& symbol, QString& description);
};
