#include "BondConversion.h"

#include "ClientSession.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PositionStore.h"

#include <algorithm>

namespace {

bool holdsAny(const QString& account, const QString& symbol)
{
    const QVector<StoredPosition> positions =
        PositionStore(ClientSession::instance().database()).positions(account, QString(), symbol);
    return std::any_of(positions.cbegin(), positions.cend(),
        [](const StoredPosition& position) { return position.tradeableQuantity > 0; });
}

} // namespace

QString bondConversionError(const QString& account, const QString& symbol, const QString& side)
{
    const ClientSession& session = ClientSession::instance();
    const StoredAccount* known = session.accounts().find(account);
    const Security* security = session.market().find(symbol);
    if (!known || known->assetProperty != Orlo_Values::FundAccountType::Credit)
        return QStringLiteral("只有信用账户可以在信用交易中转股");
    if (side != Kelvo_Values::OrderSide::sell)
        return QStringLiteral("债券转股只能以卖出方向申报");
    if (!security || !Orlo_Values::MdcSubSecurityType::ConvertableBondTypeList.contains(security->subType))
        return QStringLiteral("证券“%1”不是可转换债券").arg(symbol);
    if (!holdsAny(account, symbol))
        return QStringLiteral("账户没有可用的“%1”持仓").arg(symbol);
    return QString();
}
