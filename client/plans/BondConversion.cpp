#include "BondConversion.h"

#include "ClientClock.h"
#include "ClientSession.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PositionStore.h"

#include <algorithm>

namespace {

Status holdingsError(const QString& account, const QString& symbol)
{
    const auto positions =
        PositionStore(ClientSession::instance().database()).positions(account, QString(), symbol, clientToday());
    if (!positions)
        return positions.status();
    const bool holdsAny = std::any_of(positions->cbegin(), positions->cend(),
        [](const StoredPosition& position) { return position.tradeableQuantity > 0; });
    return holdsAny ? Status() : Status(Error::NothingToConvert, { symbol });
}

} // namespace

Status bondConversionError(const QString& account, const QString& symbol, const QString& side)
{
    const ClientSession& session = ClientSession::instance();
    const StoredAccount* known = session.accounts().find(account);
    const Security* security = session.market().find(symbol);
    if (!known || known->assetProperty != Orlo_Values::FundAccountType::Credit)
        return Error::NotACreditAccount;
    if (side != Kelvo_Values::OrderSide::sell)
        return Error::ConversionNotASale;
    if (!security || !Orlo_Values::MdcSubSecurityType::ConvertableBondTypeList.contains(security->subType))
        return { Error::NotConvertible, { symbol } };
    return holdingsError(account, symbol);
}
