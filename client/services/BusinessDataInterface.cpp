#include "BusinessDataInterface.h"

#include "Kelvo_Fields.h"
#include "session/ClientSession.h"
#include "store/PositionStore.h"

QList<QMap<QString, QVariant>> BusinessDataInterface::GetPositionListByAccount(const tagUserAccountInfo& account,
    const QString& securityAccount, const QString& symbol, const QString& currency, const QString& portfolio,
    const QString& strategy, const QString& seat)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen() || !session.accounts().find(account.tradingAccount))
        return {};
    // Positions are kept whole: none belongs to a currency, portfolio, strategy or seat by which it could be chosen.
    if (!(currency + portfolio + strategy + seat).isEmpty())
        return {};
    QList<QMap<QString, QVariant>> fields;
    const QVector<StoredPosition> positions =
        PositionStore(session.database()).positions(account.tradingAccount, securityAccount, symbol);
    for (const StoredPosition& position : positions) {
        fields << QMap<QString, QVariant>{ { Kelvo_Fields::UserAccount::tradingAccount, position.tradingAccount },
            { Kelvo_Fields::UserAccount::securityAccount, position.securityAccount },
            { Kelvo_Fields::Security::symbol, position.symbol },
            { Kelvo_Fields::Security::tradeableQty, position.tradeableQuantity } };
    }
    return fields;
}
