#include "Algo_Fields.h"
#include "AutoPlanField.h"
#include "Codes.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "World.h"
#include <QJsonDocument>
#include <QLocale>

namespace oracle {

namespace {

namespace Base = AutoPlanField::BaseField;

/// Hands out the small numbers of a stored plan, each as one of some choices.
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

QString text(const char* words)
{
    return QString::fromUtf8(words);
}

FieldMap algorithmOf(Choices& choices, const QString& trading)
{
    const QString strategy = choices.of({ text("TWAP"), text("ICEBERG2"), text("SNIPER"), QString() });
    FieldMap params{ { text("rate"), text("0.3") }, { Base::algoStrategyName, strategy } };
    const QString account = choices.of({ QString(), trading, text("acc9") });
    insertUnlessEmpty(params, Algo_Fields::AlgoInstContentInfo::TradingAccount, account);
    return { { Base::algoStrategyName, strategy }, { Base::algoParam, params } };
}

QStringList accountsIn(const World& world)
{
    QStringList known;
    for (const Account& account : world.accounts)
        known.append(account.trading);
    return known << text("unknown");
}

QStringList symbolsIn(const World& world)
{
    return QStringList(world.securities.keys()) << text("999999.K_SH");
}

FieldMap otherOf(Choices& choices, const QString& trading)
{
    FieldMap other{ { Base::securitySubType, text("any") } };
    insertUnlessEmpty(other, TargetTypeKey,
        choices.of({ QString(), InstructionTargetType::AmountOrder, InstructionTargetType::QtyOrder }));
    insertUnlessEmpty(other, MarginSideKey, choices.of({ QString(), text("2"), text("4"), text("8"), text("99") }));
    insertUnlessEmpty(other, Kelvo_Fields::Security::timeInForce,
        choices.of({ QString(), Orlo_Values::HKTimeInForce::InTrade, Orlo_Values::HKTimeInForce::BeforeTrade }));
    insertUnlessEmpty(other, Kelvo_Fields::Security::transActTime,
        choices.of({ QString(), Orlo_Values::HKTimeInForce::BeforeTrade }));
    const QStringList amounts{ text("5000"), text("0.5"), text("12345.678"), QString(), text("3000000000") };
    insertUnlessEmpty(other, Base::tradeAmount, choices.of(amounts));
    insertUnlessEmpty(other, Base::dayMaxTradeAmount, choices.of(amounts));
    insertUnlessEmpty(
        other, AutoPlanField::Progress::CurrentQty, choices.of({ text("100"), text("7"), QString(), text("0") }));
    insertUnlessEmpty(other, Base::JCRatio, choices.of({ text("0.25"), text("1"), text("0"), QString(), text("2") }));
    insertUnlessEmpty(other, Base::JCModel, choices.of({ text("1"), QString(), text("2") }));
    const FieldMap algorithm = algorithmOf(choices, trading);
    for (auto it = algorithm.cbegin(); it != algorithm.cend(); ++it)
        other.insert(it.key(), it.value());
    return other;
}

void insertDates(FieldMap& record, const QDate& today, Choices& choices)
{
    const QString& format = OrloConstants::DateTimeFormatString::STD_DATE_FORMAT;
    const int offsets[] = { 3, -4, 0, 10, 0, 0 };
    const int drawn = choices.number(6);
    const QDate begin = today.addDays(offsets[drawn]);
    // The last two have a begin that cannot be read, and none.
    if (drawn < 5)
        record.insert(Base::beginDate, drawn < 4 ? QLocale::c().toString(begin, format) : text("2024-13-45"));
    record.insert(Base::endDate, QLocale::c().toString(begin.addDays(2LL * choices.number(3)), format));
}

} // namespace

FieldMap planOf(const World& world, const std::vector<int>& numbers)
{
    Choices choices(numbers);
    const QString trading = choices.of(accountsIn(world));
    const QString planType = choices.of({ Cumulative, Reduction, Same, Average, text("tw-01") });
    const QString chain = world.chain(trading, OrdinaryType);
    FieldMap record{
        { Kelvo_Fields::UserAccount::tradingAccount, trading },
        { Kelvo_Fields::UserAccount::securityAccount, text("stored security account") },
        { Orlo_Fields::AutoPlan::templateCode, planType },
        { Orlo_Fields::AutoPlan::subType, choices.of({ OrdinaryType, CreditType, BondType, HkType }) },
        { Kelvo_Fields::Security::symbol, choices.of(symbolsIn(world)) },
        { Base::orderSide, choices.of({ Kelvo_Values::OrderSide::buy, Kelvo_Values::OrderSide::sell, QString() }) },
        { Base::InstMode, choices.of({ ActiveMode, ReviewMode, AlgoMode }) },
        { Base::priceModel, choices.of({ NoLimit, CustomPrice, LargerPrice, SmallerPrice }) },
        { Base::priceFormula1, choices.of({ text("昨收价*1.02"), QString(), text("MA5;") }) },
        { Base::totalQty, choices.of({ text("1000"), text("0"), text("210"), text("300000000") }) },
    };
    insertUnlessEmpty(record, Base::priceFormula2, choices.of({ QString(), text("涨停价") }));
    insertUnlessEmpty(record, Base::expectedUser, choices.of({ QString(), text("乙"), text("nobody") }));
    insertUnlessEmpty(record, Base::executeUser, choices.of({ text("执行甲"), text("执行") + chain, QString() }));
    insertUnlessEmpty(record, Base::remark, choices.of({ QString(), text("备注\"{}\"") }));
    insertDates(record, world.today, choices);
    const FieldMap other = otherOf(choices, trading);
    if (choices.number(12) != 11)
        record.insert(
            Base::planOtherParam, QString::fromUtf8(QJsonDocument::fromVariant(other).toJson(QJsonDocument::Compact)));
    return record;
}

} // namespace oracle
