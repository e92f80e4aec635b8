#include "OrloTradeLogic.h"

#include "Kelvo_Values.h"
#include "OrloWidget.h"
#include "Orlo_Values.h"
#include "session/ClientSession.h"
#include "store/PositionStore.h"

#include <QApplication>

#include <algorithm>

namespace {

bool holdsAny(const QString& account, const QString& symbol)
{
    const QVector<StoredPosition> positions =
        PositionStore(ClientSession::instance().database()).positions(account, QString(), symbol);
    return std::any_of(positions.cbegin(), positions.cend(),
        [](const StoredPosition& position) { return position.tradeableQuantity > 0; });
}

QString reasonAgainstConversion(const QString& account, const QString& symbol, const QString& side)
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

} // namespace

OrloTradeLogic& OrloTradeLogic::instance()
{
    static OrloTradeLogic logic;
    return logic;
}

bool OrloTradeLogic::checkMarginBondConvertEnable(
    const QString& account, const QString& symbol, const QString& side, bool withMessage)
{
    const QString reason = reasonAgainstConversion(account, symbol, side);
    if (withMessage && !reason.isEmpty())
        OrloWidget::ShowWarningMsgBox(reason, QApplication::activeWindow());
    return reason.isEmpty();
}
