#include "ExploredWorld.h"

#include "Algo_Fields.h"
#include "AutoPlanField.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"
#include "Today.h"

#include <QJsonDocument>
#include <QLocale>

namespace model {

namespace {

namespace Base = AutoPlanField::BaseField;
namespace Type = AutoPlanInstructionType;

QString text(const char* words)
{
    return QString::fromUtf8(words);
}

ScriptSecurity& stock(World& world, const char* symbol, const QString& subType)
{
    world.addStock(QString::fromLatin1(symbol));
    ScriptSecurity& added = world.securities[QString::fromLatin1(symbol)];
    added.subType = subType;
    return added;
}

ScriptSecurity& bond(World& world, const char* symbol, const QString& subType, int factor)
{
    world.addBond(QString::fromLatin1(symbol), factor);
    ScriptSecurity& added = world.securities[QString::fromLatin1(symbol)];
    added.subType = subType;
    added.hasPriceLimit = true;
    return added;
}

void addStocks(World& world)
{
    using namespace Kelvo_Values::MdcSubSecurityType;
    using namespace Orlo_Values::MdcSubSecurityType;
    stock(world, "600000.K_SH", Ashares);
    stock(world, "300001.K_SZ", Gemstock).hasPriceLimit = false;
    ScriptSecurity& small = stock(world, "002001.K_SZ", Smallandmediumstock);
    small.stFlag = QStringLiteral("ST");
    small.stDescription = QStringLiteral("该股票为风险警示股票");
    ScriptSecurity& science = stock(world, "688001.K_SH", ScienTechInnovateBoard);
    science.stFlag = QStringLiteral("*ST");
    science.stDescription = QStringLiteral("该股票存在退市风险");
    stock(world, "830001.BJ", BjSelectedStock).pricePrecision = 4;
    stock(world, "700001.K_SH", PaidRationStock);
    world.addHkStock(QStringLiteral("00700.HK"), 500);
    world.addHkStock(QStringLiteral("00005.HK"), 7);
    ScriptSecurity& odd = world.securities[QStringLiteral("00005.HK")];
    odd.displayFactor = 3;
    odd.hasPriceLimit = true;
}

void addFundsAndBonds(World& world)
{
    using namespace Kelvo_Values::MdcSubSecurityType;
    using namespace Orlo_Values::MdcSubSecurityType;
    ScriptSecurity& etf = stock(world, "510050.K_SH", TradingopenindexfundETF);
    etf.pricePrecision = 3;
    etf.displayFactor = 4;
    ScriptSecurity& trust = stock(world, "180101.K_SZ", Reits);
    trust.pricePrecision = 0;
    etf.type = trust.type = Kelvo_Values::MdcSecurityType::FundType;
    bond(world, "113001.K_SH", ConvertableBondTypeList.value(0), 10);
    bond(world, "132001.K_SH", ConvertableBondTypeList.value(1), 10);
    bond(world, "019001.K_SH", AllBondNoRepurchaseTypeList.value(0), 10).hasPriceLimit = false;
    bond(world, "111001.K_SZ", AllBondNoRepurchaseTypeList.value(3), 1);
    bond(world, "110801.K_SH", DirectedConBond, 1);
    bond(world, "159001.K_SH", Assetbackedsecurities, 1);
    bond(world, "820001.BJ", AllBondNoRepurchaseTypeList.value(0), 1);
    bond(world, "704001.K_SH", PaidRationBond, 1);
}

QList<QDate> datesOf(Calendar kind)
{
    QList<QDate> dates;
    if (kind == Calendar::Failure || kind == Calendar::Empty)
        return dates;
    const QDate last = today().addDays(20);
    for (QDate date = today().addDays(kind == Calendar::LongHoliday ? 9 : -3); date <= last; date = date.addDays(1)) {
        if (kind == Calendar::EveryDay || date.dayOfWeek() < Qt::Saturday)
            dates.append(date);
    }
    return dates;
}

QStringList usersOf(int kind, const QString& chain)
{
    if (kind == 1)
        return {};
    if (kind == 2)
        return { AutoPlanAssignee::NotSpecified, text("甲"), text("甲") };
    return { text("丙"), text("u") + chain, text("丙"), text("乙"), text("Z") };
}

QMap<QString, FieldMap> instructionsOf(int kind)
{
    using namespace AutoPlanFieldId;
    if (kind == 0)
        return {};
    const FieldMap ended{ { InstructionEnded, text("1") }, { FilledQty, text("40.5") }, { IssuedQty, text("100") } };
    const FieldMap running{ { InstructionEnded, text("0") }, { FilledQty, 7 }, { IssuedQty, 59.5 } };
    // The third kind adds up to slightly more than 1000.
    const FieldMap amount{ { InstructionEnded, text(kind == 3 ? "1" : "0") },
        { TargetType, InstructionTargetType::AmountOrder }, { IssuedAmount, text("2000") },
        { Orlo_Fields::Security::cumAmount, text("959.50000000005") }, { FilledQty, 1 }, { IssuedQty, 1 } };
    return { { text("i1"), ended }, { text("i2"), kind == 1 ? running : amount } };
}

/// Uses the small numbers of a stored plan one by one to pick from choices.
class Choices {
public:
    explicit Choices(const std::vector<int>& numbers)
        : m_numbers(numbers)
    {
    }

    int number(int count)
    {
        const int drawn = m_next < m_numbers.size() ? m_numbers.at(m_next++) : 0;
        return drawn % count;
    }
    QString of(const QStringList& choices) { return choices.at(number(choices.size())); }

private:
    const std::vector<int>& m_numbers;
    std::size_t m_next = 0;
};

void insertUnlessEmpty(FieldMap& map, const QString& key, const QString& value)
{
    if (!value.isEmpty())
        map.insert(key, value);
}

void insertAlgorithm(FieldMap& other, Choices& choices, const QString& trading)
{
    const QString strategy = choices.of({ text("TWAP"), text("ICEBERG2"), text("SNIPER"), QString() });
    FieldMap params{ { text("rate"), text("0.3") }, { Base::algoStrategyName, strategy } };
    const QString account = choices.of({ QString(), trading, text("acc9") });
    insertUnlessEmpty(params, Algo_Fields::AlgoInstContentInfo::TradingAccount, account);
    other.insert(Base::algoStrategyName, strategy);
    other.insert(Base::algoParam, params);
}

FieldMap otherOf(Choices& choices, const QString& trading)
{
    using namespace Orlo_Values::HKTimeInForce;
    FieldMap other{ { Base::securitySubType, text("any") } };
    insertUnlessEmpty(other, AutoPlanFieldId::TargetType,
        choices.of({ QString(), InstructionTargetType::AmountOrder, InstructionTargetType::QtyOrder }));
    insertUnlessEmpty(other, AutoPlanFieldId::MarginInstructionSideType,
        choices.of({ QString(), text("2"), text("4"), text("8"), text("99") }));
    insertUnlessEmpty(
        other, Kelvo_Fields::Security::timeInForce, choices.of({ QString(), InTrade, BeforeTrade, text("x") }));
    insertUnlessEmpty(other, Kelvo_Fields::Security::transActTime, choices.of({ QString(), BeforeTrade }));
    const QStringList amounts{ text("5000"), text("0.5"), text("12345.678"), QString(), text("3000000000") };
    insertUnlessEmpty(other, Base::tradeAmount, choices.of(amounts));
    insertUnlessEmpty(other, Base::dayMaxTradeAmount, choices.of(amounts));
    insertUnlessEmpty(
        other, AutoPlanField::Progress::CurrentQty, choices.of({ text("100"), text("7"), QString(), text("0") }));
    insertUnlessEmpty(other, Base::JCRatio, choices.of({ text("0.25"), text("1"), text("0"), QString(), text("2") }));
    insertUnlessEmpty(other, Base::JCModel, choices.of({ text("1"), QString(), text("2") }));
    insertAlgorithm(other, choices, trading);
    return other;
}

void insertDates(FieldMap& record, Choices& choices)
{
    const QString& format = OrloConstants::DateTimeFormatString::STD_DATE_FORMAT;
    const int offsets[] = { 3, -4, 0, 10, 0, 0 };
    const int drawn = choices.number(6);
    const QDate begin = today().addDays(offsets[drawn]);
    // The last two have an invalid begin date, and none.
    if (drawn < 5)
        record.insert(Base::beginDate, drawn < 4 ? QLocale::c().toString(begin, format) : text("2024-13-45"));
    record.insert(Base::endDate, QLocale::c().toString(begin.addDays(2LL * choices.number(3)), format));
}

} // namespace

World exploredWorld()
{
    World world;
    world.loginAccountDetail = { { Kelvo_Fields::UserAccount::userID, QStringLiteral("user1") } };
    addStocks(world);
    addFundsAndBonds(world);
    for (const QString& exchange : exchanges())
        world.staticTexts.insert(
            OrloConstants::DictionaryKey::exchangeChineseName + QLatin1Char('/') + exchange, text("市场-") + exchange);
    for (const QString& type : entrustTypes().mid(1, 8))
        world.staticTexts.insert(
            OrloConstants::DictionaryKey::SideUnion2AlgoDefines + QLatin1Char('/') + type, text("属性-") + type);
    for (const char* const name : { "TWAP", "VWAP", "ICEBERG2", "SNIPER", "sniper" })
        world.strategyAliases.insert(text(name), text("别名") + text(name));
    world.tradeDates = [](const QString&) { return datesOf(Calendar::Weekdays); };
    setUsers(world, 0);
    setAlgorithms(world, 0);
    setHoldings(world, 0);
    return world;
}

void addAccount(World& world, int kind)
{
    using namespace Orlo_Values::Exchange;
    const QString &sh = Kelvo_Values::Exchange::sh, &sz = Kelvo_Values::Exchange::sz;
    const QString name = QStringLiteral("acc%1").arg(world.accounts.size() + 1);
    switch (kind) {
    case 1:
        return world.addAccount(name, { sh }, { Type::Ordinary, Type::HkConnect });
    case 2:
        return world.addAccount(name, { sz }, { Type::Ordinary, Type::Credit }, true);
    case 3:
        return world.addAccount(name, { HkStockCirculation }, { Type::Ordinary, Type::Bond, Type::HkConnect });
    case 4:
        return world.addAccount(name, { bj }, { Type::Bond });
    case 5:
        return world.addAccount(name, { bj }, { Type::Ordinary, Type::Bond });
    case 6:
        return world.addAccount(name, { bj }, { Type::Ordinary, Type::Credit }, true);
    case 7:
        return world.addAccount(name, exchanges(), {});
    default:
        break;
    }
    if (kind == 0 || world.accounts.isEmpty())
        return world.addOrdinaryAccount(name);
    ScriptAccount twin = world.accounts.last();
    for (QString* const part : { &twin.fundAccount, &twin.clientNo, &twin.branchNo })
        part->append(QLatin1Char('T'));
    world.accounts.append(twin);
}

void setCalendar(World& world, const QString& exchange, Calendar kind)
{
    const auto dates = world.tradeDates;
    const auto errors = world.tradeDatesError;
    const bool fails = kind == Calendar::Failure || kind == Calendar::FailureWithDates;
    world.tradeDates = [=](const QString& asked) { return asked == exchange ? datesOf(kind) : dates(asked); };
    world.tradeDatesError = [=](const QString& asked) {
        if (asked != exchange)
            return errors(asked);
        return fails ? QStringLiteral("交易日历不可用") : QString();
    };
}

void setUsers(World& world, int kind)
{
    world.forwardUsers = [kind](const QString& chain) { return usersOf(kind, chain); };
    world.executeUsers = [kind](const QString& chain) {
        return kind == 1 ? QStringList() : QStringList{ text("执行乙"), text("执行") + chain, text("执行甲") };
    };
}

void setAlgorithms(World& world, int kind)
{
    world.authorityAlgoNames = QStringList{ text("TWAP"), text("VWAP"), text("ICEBERG2"), text("sniper") };
    if (kind == 1) {
        world.whiteAlgoNames = QStringList();
        world.blackAlgoNames = QStringList();
        world.authorityAlgoNames.clear();
        return;
    }
    if (kind == 2)
        world.authorityAlgoNames = QStringList{ text("SNIPER"), text("VWAP") };
    else if (kind == 3)
        world.authorityAlgoNames = QStringList{ text("GHOST") };
    world.whiteAlgoNames = [kind](const QString& type, const QString& target, const QString& symbol) {
        return QStringList{ text("TWAP"), QStringLiteral("w%1-%2-%3-%4").arg(kind).arg(type, target, symbol) };
    };
    world.blackAlgoNames = [kind](const QString& target) {
        return QStringList{ QStringLiteral("b%1-%2").arg(kind).arg(target) };
    };
}

void setHoldings(World& world, int kind)
{
    world.positions = [kind](const QString& trading, const QString& account, const QString& symbol) {
        if (kind == 1 || trading.isEmpty() || account.isEmpty() || symbol.isEmpty())
            return QList<FieldMap>();
        const QString& key = Kelvo_Fields::Security::tradeableQty;
        return QList<FieldMap>{ { { key, text("100") } }, { { key, text(kind == 2 ? "99.5" : "900000") } },
            { { text("other"), 5 } } };
    };
}

void setSpending(World& world, int kind)
{
    world.planInstructions = instructionsOf(kind);
}

void setBondConversion(World& world, bool on)
{
    world.bondConversionEnabled = [on](const QString& trading, const QString& symbol, const QString& side) {
        return on && !trading.isEmpty() && !symbol.isEmpty() && side == Kelvo_Values::OrderSide::sell;
    };
}

FieldMap planOf(const World& world, const std::vector<int>& numbers)
{
    Choices choices(numbers);
    QStringList accounts;
    for (const ScriptAccount& account : world.accounts)
        accounts.append(account.tradingAccount);
    const QString trading = choices.of(accounts << text("unknown"));
    using namespace AutoPlanTemplate;
    FieldMap record{
        { Kelvo_Fields::UserAccount::tradingAccount, trading },
        { Kelvo_Fields::UserAccount::securityAccount, text("stored security account") },
        { Orlo_Fields::AutoPlan::templateCode,
            choices.of({ CumulativeQty, ReduceHoldings, SameElements, AverageQty, text("tw-01") }) },
        { Orlo_Fields::AutoPlan::subType, choices.of({ Type::Ordinary, Type::Credit, Type::Bond, Type::HkConnect }) },
        { Kelvo_Fields::Security::symbol, choices.of(QStringList(world.securities.keys()) << text("999999.K_SH")) },
        { Base::orderSide, choices.of({ Kelvo_Values::OrderSide::buy, Kelvo_Values::OrderSide::sell, QString() }) },
        { Base::InstMode,
            choices.of({ AutoPlanInstMode::ActiveManage, AutoPlanInstMode::NormalTradeReview,
                AutoPlanInstMode::AlgoTradeReview }) },
        { Base::priceModel,
            choices.of({ AutoPlanPriceModel::NoLimit, AutoPlanPriceModel::Custom, AutoPlanPriceModel::CompareMax,
                AutoPlanPriceModel::CompareMin }) },
        { Base::priceFormula1, choices.of({ text("昨收价*1.02"), QString(), text("MA5;") }) },
        { Base::totalQty, choices.of({ text("1000"), text("0"), text("210"), text("300000000") }) },
    };
    const QString executor = text("执行") + world.chain(trading, Type::Ordinary);
    insertUnlessEmpty(record, Base::priceFormula2, choices.of({ QString(), text("涨停价") }));
    insertUnlessEmpty(record, Base::expectedUser, choices.of({ QString(), text("乙"), text("nobody") }));
    insertUnlessEmpty(record, Base::executeUser, choices.of({ text("执行甲"), executor, QString() }));
    insertUnlessEmpty(record, Base::remark, choices.of({ QString(), text("备注\"{}\"") }));
    insertDates(record, choices);
    const FieldMap other = otherOf(choices, trading);
    if (choices.number(12) != 11)
        record.insert(
            Base::planOtherParam, QString::fromUtf8(QJsonDocument::fromVariant(other).toJson(QJsonDocument::Compact)));
    return record;
}

} // namespace model
