#include "World.h"

#include "AutoPlanField.h"
#include "Codes.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include <QJsonDocument>
#include <QJsonObject>

namespace oracle {

namespace {

Security security(const char* symbol, const QString& exchange, const QString& type, const QString& subType)
{
    Security made;
    made.symbol = QString::fromLatin1(symbol);
    made.exchange = exchange;
    made.type = type;
    made.subType = subType;
    made.name = QStringLiteral("名称") + made.symbol;
    return made;
}

QList<Security> stocks()
{
    using namespace Kelvo_Values;
    const QString& stock = MdcSecurityType::StockType;
    Security main = security("600000.K_SH", Exchange::sh, stock, MdcSubSecurityType::Ashares);
    Security gem = security("300001.K_SZ", Exchange::sz, stock, MdcSubSecurityType::Gemstock);
    gem.hasLimits = false;
    Security small = security("002001.K_SZ", Exchange::sz, stock, MdcSubSecurityType::Smallandmediumstock);
    small.stFlag = QStringLiteral("ST");
    small.stText = QStringLiteral("该股票为风险警示股票");
    Security science =
        security("688001.K_SH", Exchange::sh, stock, Orlo_Values::MdcSubSecurityType::ScienTechInnovateBoard);
    science.stFlag = QStringLiteral("*ST");
    science.stText = QStringLiteral("该股票存在退市风险");
    Security beijing =
        security("830001.BJ", Orlo_Values::Exchange::bj, stock, Orlo_Values::MdcSubSecurityType::BjSelectedStock);
    beijing.precision = 4;
    Security rights = security("700001.K_SH", Exchange::sh, stock, Orlo_Values::MdcSubSecurityType::PaidRationStock);
    return { main, gem, small, science, beijing, rights };
}

QList<Security> hongKongStocks()
{
    const QString& exchange = Orlo_Values::Exchange::HkStockCirculation;
    const QString& stock = Kelvo_Values::MdcSecurityType::StockType;
    const QString& subType = Orlo_Values::MdcSubSecurityType::HStcokCirculation;
    Security first = security("00700.HK", exchange, stock, subType);
    first.step = 500;
    first.precision = 3;
    first.hasLimits = false;
    Security second = security("00005.HK", exchange, stock, subType);
    second.step = 7;
    second.factor = 3;
    return { first, second };
}

QList<Security> funds()
{
    const QString& fund = Kelvo_Values::MdcSecurityType::FundType;
    Security etf = security(
        "510050.K_SH", Kelvo_Values::Exchange::sh, fund, Kelvo_Values::MdcSubSecurityType::TradingopenindexfundETF);
    etf.precision = 3;
    etf.factor = 4;
    Security reit = security("180101.K_SZ", Kelvo_Values::Exchange::sz, fund, Orlo_Values::MdcSubSecurityType::Reits);
    reit.precision = 0;
    return { etf, reit };
}

QList<Security> bonds()
{
    using namespace Kelvo_Values;
    const QString& bond = MdcSecurityType::BondType;
    const QStringList& convertibles = Orlo_Values::MdcSubSecurityType::ConvertableBondTypeList;
    const QStringList& all = Orlo_Values::MdcSubSecurityType::AllBondNoRepurchaseTypeList;
    Security convertible = security("113001.K_SH", Exchange::sh, bond, convertibles.value(0));
    convertible.factor = 10;
    Security exchangeable = security("132001.K_SH", Exchange::sh, bond, convertibles.value(1));
    exchangeable.factor = 10;
    Security treasury = security("019001.K_SH", Exchange::sh, bond, all.value(0));
    treasury.factor = 10;
    treasury.hasLimits = false;
    Security corporate = security("111001.K_SZ", Exchange::sz, bond, all.value(3));
    Security directed = security("110801.K_SH", Exchange::sh, bond, Orlo_Values::MdcSubSecurityType::DirectedConBond);
    Security backed = security("159001.K_SH", Exchange::sh, bond, MdcSubSecurityType::Assetbackedsecurities);
    Security beijing = security("820001.BJ", Orlo_Values::Exchange::bj, bond, all.value(0));
    Security rights = security("704001.K_SH", Exchange::sh, bond, Orlo_Values::MdcSubSecurityType::PaidRationBond);
    return { convertible, exchangeable, treasury, corporate, directed, backed, beijing, rights };
}

Account accountOf(AccountKind kind, int number)
{
    using namespace Orlo_Values::Exchange;
    const QString &sh = Kelvo_Values::Exchange::sh, &sz = Kelvo_Values::Exchange::sz;
    Account made;
    made.trading = QStringLiteral("acc%1").arg(number);
    made.fund = QStringLiteral("F%1").arg(number);
    made.client = QStringLiteral("C%1").arg(number);
    made.branch = QStringLiteral("B%1").arg(number);
    made.exchanges = QStringList{ sh, sz, bj, HkStockCirculation };
    made.types = QStringList{ OrdinaryType, BondType, HkType };
    if (kind == AccountKind::OrdinaryShanghai) {
        made.exchanges = QStringList{ sh };
        made.types = QStringList{ OrdinaryType, HkType };
    } else if (kind == AccountKind::Credit) {
        made.isCredit = true;
        made.exchanges = QStringList{ sz };
        made.types = QStringList{ OrdinaryType, CreditType };
    } else if (kind == AccountKind::HongKongOnly) {
        made.exchanges = QStringList{ HkStockCirculation };
    } else if (kind == AccountKind::BeijingBonds) {
        made.exchanges = QStringList{ bj };
        made.types = QStringList{ BondType };
    } else if (kind == AccountKind::BeijingStocks) {
        made.exchanges = QStringList{ bj };
        made.types = QStringList{ OrdinaryType, BondType };
    } else if (kind == AccountKind::CreditBeijing) {
        made.isCredit = true;
        made.exchanges = QStringList{ bj };
        made.types = QStringList{ OrdinaryType, CreditType };
    } else if (kind == AccountKind::NoAuthority) {
        made.types.clear();
    }
    return made;
}

/// The last record that the service has of the account, under another client and branch.
Account twinOf(const Account& account)
{
    Account twin = account;
    twin.fund += QLatin1Char('T');
    twin.client += QLatin1Char('T');
    twin.branch += QLatin1Char('T');
    return twin;
}

QList<QDate> datesFrom(const QDate& first, const QDate& last, bool withWeekends)
{
    QList<QDate> dates;
    for (QDate date = first; date <= last; date = date.addDays(1)) {
        if (withWeekends || date.dayOfWeek() < Qt::Saturday)
            dates.append(date);
    }
    return dates;
}

} // namespace

Security World::security(const QString& symbol) const
{
    Security unknown;
    unknown.symbol = symbol;
    unknown.step = 0;
    unknown.hasLimits = false;
    return securities.value(symbol, unknown);
}

Account World::account(const QString& trading) const
{
    for (const Account& candidate : accounts) {
        if (candidate.trading == trading)
            return candidate;
    }
    return {};
}

QString World::securityAccount(const QString& trading, const QString& exchange) const
{
    return account(trading).exchanges.contains(exchange) ? QStringLiteral("S-%1-%2").arg(trading, exchange) : QString();
}

int World::rule(const QString& trading, const QString& type) const
{
    return rules.value(trading + QLatin1Char('/') + type);
}

QMap<QString, QString> World::configTexts() const
{
    using OrloConstants::DictionaryKey::exchangeChineseName;
    QMap<QString, QString> found{
        { configKey(InstructionTypeTexts, OrdinaryType), QStringLiteral("普通") },
        { configKey(InstructionTypeTexts, CreditType), QStringLiteral("信用") },
        { configKey(InstructionTypeTexts, BondType), QStringLiteral("债券") },
        { configKey(InstructionTypeTexts, HkType), QStringLiteral("港股通") },
        { configKey(TargetTypeTexts, InstructionTargetType::QtyOrder), QStringLiteral("数量") },
        { configKey(TargetTypeTexts, InstructionTargetType::AmountOrder), QStringLiteral("金额") },
    };
    for (const QString& exchange : exchanges())
        found.insert(configKey(exchangeChineseName, exchange), QStringLiteral("市场-") + exchange);
    for (const QString& type : entrustTypes().mid(1, 8))
        found.insert(
            configKey(OrloConstants::DictionaryKey::SideUnion2AlgoDefines, type), QStringLiteral("属性-") + type);
    return found;
}

QString World::configText(const QString& category, const QString& key) const
{
    return configTexts().value(configKey(category, key));
}

QString World::chain(const QString& trading, const QString& type) const
{
    return QStringLiteral("chain-%1-%2").arg(trading, type);
}

QStringList World::executors(const QString& chainKey) const
{
    if (users == 1)
        return {};
    return { QStringLiteral("执行乙"), QStringLiteral("执行") + chainKey, QStringLiteral("执行甲") };
}

QStringList World::forwardUsers(const QString& chainKey) const
{
    if (users == 1)
        return {};
    if (users == 2)
        return { Nobody, QStringLiteral("甲"), QStringLiteral("甲") };
    return { QStringLiteral("丙"), QStringLiteral("u") + chainKey, QStringLiteral("丙"), QStringLiteral("乙"),
        QStringLiteral("Z") };
}

QStringList World::whiteAlgorithms(const QString& type, const QString& target, const QString& symbol) const
{
    if (algorithms == 1)
        return {};
    return { QStringLiteral("TWAP"), QStringLiteral("w%1-%2-%3-%4").arg(algorithms).arg(type, target, symbol) };
}

QStringList World::blackAlgorithms(const QString& target) const
{
    if (algorithms == 1)
        return {};
    return { QStringLiteral("b%1-%2").arg(algorithms).arg(target) };
}

QStringList World::entitledAlgorithms() const
{
    if (algorithms == 1)
        return {};
    if (algorithms == 2)
        return { QStringLiteral("SNIPER"), QStringLiteral("VWAP") };
    if (algorithms == 3)
        return { QStringLiteral("GHOST") };
    return { QStringLiteral("TWAP"), QStringLiteral("VWAP"), QStringLiteral("ICEBERG2"), QStringLiteral("sniper") };
}

QMap<QString, QString> World::strategies() const
{
    QMap<QString, QString> found;
    for (const char* name : { "TWAP", "VWAP", "ICEBERG2", "SNIPER", "sniper" })
        found.insert(QString::fromLatin1(name), QStringLiteral("别名") + QString::fromLatin1(name));
    return found;
}

QList<FieldMap> World::positions(const QString& trading, const QString& account, const QString& symbol) const
{
    if (holdings == 1 || trading.isEmpty() || account.isEmpty() || symbol.isEmpty())
        return {};
    const QString more = holdings == 2 ? QStringLiteral("99.5") : QStringLiteral("900000");
    const QString& key = Kelvo_Fields::Security::tradeableQty;
    return { { { key, QStringLiteral("100") } }, { { key, more } }, { { QStringLiteral("other"), 5 } } };
}

QMap<QString, FieldMap> World::instructions(const QString& planId) const
{
    if (spent == 0)
        return {};
    const QString filled = QStringLiteral("14"), issued = QStringLiteral("38"), ended = QStringLiteral("12013");
    const FieldMap first{ { ended, QStringLiteral("1") }, { filled, QStringLiteral("40.5") },
        { issued, QStringLiteral("100") }, { QStringLiteral("plan"), planId } };
    const FieldMap second{ { ended, QStringLiteral("0") }, { filled, 7 }, { issued, 59.5 } };
    // The third kind sums up to a hair above 1000.
    const FieldMap amount{ { ended, spent == 3 ? QStringLiteral("1") : QStringLiteral("0") },
        { TargetTypeKey, InstructionTargetType::AmountOrder }, { QStringLiteral("217201"), QStringLiteral("2000") },
        { Orlo_Fields::Security::cumAmount, QStringLiteral("959.50000000005") }, { filled, 1 }, { issued, 1 } };
    if (spent == 1)
        return { { QStringLiteral("i1"), first }, { QStringLiteral("i2"), second } };
    return { { QStringLiteral("i1"), first }, { QStringLiteral("i3"), amount } };
}

bool World::bondConversion(const QString& trading, const QString& symbol, const QString& side) const
{
    return convertsBonds && !trading.isEmpty() && !symbol.isEmpty() && side == Kelvo_Values::OrderSide::sell;
}

QList<QDate> World::tradeDates(const QString& exchange) const
{
    const Calendar kind = calendars.value(exchange, Calendar::Weekdays);
    if (kind == Calendar::Failure || kind == Calendar::Empty)
        return {};
    const QDate first = today.addDays(kind == Calendar::LongHoliday ? 9 : -3);
    return datesFrom(first, today.addDays(20), kind == Calendar::EveryDay);
}

QString World::tradeDatesError(const QString& exchange) const
{
    const Calendar kind = calendars.value(exchange, Calendar::Weekdays);
    const bool fails = kind == Calendar::Failure || kind == Calendar::FailureWithDates;
    return fails ? QStringLiteral("交易日历不可用") : QString();
}

QStringList World::symbols(const QString& type, const QStringList& subTypes, const QStringList& suffixes) const
{
    QStringList found;
    for (const Security& candidate : securities) {
        if (candidate.type != type || !subTypes.contains(candidate.subType))
            continue;
        bool fits = suffixes.isEmpty();
        for (const QString& suffix : suffixes)
            fits = fits || candidate.symbol.endsWith(suffix);
        if (fits)
            found.append(candidate.symbol);
    }
    return found;
}

FieldMap World::otherParam(const FieldMap& record) const
{
    const QString text = record.value(AutoPlanField::BaseField::planOtherParam).toString();
    return QJsonDocument::fromJson(text.toUtf8()).object().toVariantMap();
}

QString World::store(FieldMap record)
{
    const QString id = QStringLiteral("made%1").arg(++plansMade);
    record.insert(AutoPlanField::BaseField::autoPlanId, id);
    plans.insert(id, record);
    return id;
}

QList<Account> accountsOf(const std::vector<int>& kinds)
{
    QList<Account> made;
    for (const int number : kinds) {
        const auto kind = static_cast<AccountKind>(number % AccountKindCount);
        if (kind == AccountKind::Twin && !made.isEmpty())
            made.append(twinOf(made.last()));
        else
            made.append(accountOf(kind, made.size() + 1));
    }
    return made;
}

QMap<QString, Security> sampleSecurities()
{
    QMap<QString, Security> market;
    for (const Security& one : stocks() + hongKongStocks() + funds() + bonds())
        market.insert(one.symbol, one);
    return market;
}

QStringList exchanges()
{
    return { Kelvo_Values::Exchange::sh, Kelvo_Values::Exchange::sz, Orlo_Values::Exchange::bj,
        Orlo_Values::Exchange::HkStockCirculation };
}

QStringList entrustTypes()
{
    using namespace Orlo_Values::SideUnion;
    return { QString(), collateralBuy, collateralSell, marginBuy, marginSell, financingBuy, financingSell,
        marginBuyNormal, marginSellNormal, BondConversion, paidRationShare };
}

} // namespace oracle
