#include "PlanStrategies.h"

#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "StrategyLibrary.h"

#include <QMap>

namespace {

/// The FIX codes of a security's type.
QStringList fixTypes(const Security& security)
{
    using namespace Kelvo_Values;
    if (security.type == MdcSecurityType::FundType)
        return { QStringLiteral("MF") };
    if (security.type != MdcSecurityType::BondType)
        return { QStringLiteral("CS") };
    if (Orlo_Values::MdcSubSecurityType::ConvertableBondTypeList.contains(security.subType))
        return { QStringLiteral("CB"), QStringLiteral("CORP") };
    if (security.subType == MdcSubSecurityType::Assetbackedsecurities)
        return { QStringLiteral("ABS") };
    return { QStringLiteral("CORP"), QStringLiteral("TBOND"), QStringLiteral("GO") };
}

TradedSecurity tradedSecurity(const Security& security)
{
    const QMap<QString, QString> markets{ { Kelvo_Values::Exchange::sh, QStringLiteral("XSHG") },
        { Kelvo_Values::Exchange::sz, QStringLiteral("XSHE") }, { Orlo_Values::Exchange::bj, QStringLiteral("BJSE") } };
    const QString market = markets.value(security.exchange, QStringLiteral("XHKG"));
    const bool isHongKong = !markets.contains(security.exchange);
    return { market, isHongKong ? QStringLiteral("HK") : QStringLiteral("CN"), fixTypes(security) };
}

} // namespace

QStringList PlanStrategies::allowed(const QStringList& whiteList, const Security& security)
{
    const StrategyLibrary& library = StrategyLibrary::instance();
    const QStringList others = library.namesNotFor(tradedSecurity(security));
    if (others.isEmpty())
        return whiteList;
    QStringList left = whiteList.isEmpty() ? library.names() : whiteList;
    for (const QString& other : others)
        left.removeAll(other);
    return left.isEmpty() ? QStringList{ QString() } : left;
}

bool PlanStrategies::needsLimit(const QString& strategy)
{
    static const QStringList all{ QStringLiteral("ICEBERG2"), QStringLiteral("SNIPER") };
    return all.contains(strategy);
}
