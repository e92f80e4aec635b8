#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "CashStore.h"
#include "ClientSession.h"
#include "InstructionIssuer.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "PlanFacts.h"
#include "PlanForecast.h"
#include "PositionStore.h"
#include "SecurityStore.h"
#include "SessionTest.h"
#include "TestStatus.h"
#include "TickPrice.h"

#include <QtTest>

Q_DECLARE_METATYPE(PlanShare)

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;
using Record = QMap<QString, QVariant>;

namespace {

const QDate Monday = SampleSession::today();
const QDate Friday = Monday.addDays(4);

const Security& share()
{
    static const QString symbol = Kelvo_Fields::Security::symbol;
    return *ClientSession::instance().market().find(SampleSession::record().value(symbol).toString());
}

QVector<qint64> closes()
{
    const CloseHistory all = *SecurityStore(ClientSession::instance().database()).closes(share().symbol);
    return PlanFacts::closesBefore(all, ClientSession::instance().calendar(), share(), Monday);
}

AccountLimits wideLimits()
{
    return { 1'000'000'000, 1'000'000'000'000, 500 };
}

/// A purchase in lots of 100 at 10.00 yuan, which is the last close.
ForecastedPlan forecasted(const PlanShare& plan, const QDate& first, const QDate& last)
{
    static Security security;
    security.exchange = Kelvo_Values::Exchange::sh;
    security.quantityStep = 100;
    OrderTerms terms;
    terms.share = plan;
    DayPrice price;
    price.reference = 1000;
    return { terms, price, security, wideLimits(), ClientSession::instance().calendar(), first, last };
}

QVector<qint64> issuedOn(const PlanForecast& forecast)
{
    QVector<qint64> quantities;
    for (const ForecastDay& day : forecast.days)
        quantities << day.quantity;
    return quantities;
}

/// Issues every day of a period and returns what went out, what it cost, and what the fills used, by day.
QStringList reallyIssued(const QString& planId, const QDate& first, const QDate& last)
{
    QStringList days;
    for (QDate day = first; day <= last; day = day.addDays(1)) {
        const Result<IssueResult> result = InstructionIssuer::issueDay(day);
        if (!result)
            return { QStringLiteral("issuing failed") };
        const auto instructions = ClientSession::instance().instructions().ofDay(planId, day);
        for (const InstructionStore::Fields& fields : *instructions)
            days << QStringLiteral("%1 %2 %3")
                        .arg(day.toString(Qt::ISODate), fields.value(FieldId::IssuedQty).toString(),
                            fields.value(FieldId::IssuedAmount).toString());
    }
    return days;
}

QStringList foretold(const PlanForecast& forecast)
{
    QStringList days;
    for (const ForecastDay& day : forecast.days) {
        if (day.quantity > 0)
            days << QStringLiteral("%1 %2 %3")
                        .arg(day.day.toString(Qt::ISODate), QString::number(day.quantity),
                            QString::number(day.yuan, 'f', 2));
    }
    return days;
}

/// The forecast of a plan on the day before its first instruction.
PlanForecast forecastOf(const Record& record, const QDate& first, const QDate& last)
{
    const auto sellable = [&record] {
        return PlanFacts::sellable(ClientSession::instance().database(), record, share(), Monday);
    };
    const Result<OrderTerms> terms = orderTerms(record, share(), {}, sellable);
    const Result<DayPrice> price = dayPrice(record, share(), closes());
    if (!terms || !price)
        return {};
    return Forecast::of({ *terms, *price, share(), wideLimits(), ClientSession::instance().calendar(), first, last });
}

} // namespace

/// What the advisor foretells of a plan's days, compared with what is issued.
class PlanForecastTest : public SessionTest {
    Q_OBJECT

private Q_SLOTS:
    void eachDayTakesItsShareOfThePlan_data()
    {
        QTest::addColumn<PlanShare>("plan");
        QTest::addColumn<QVector<qint64>>("issued");
        QTest::addColumn<QDate>("lastDay");
        QTest::addColumn<int>("needed");
        const auto row = [](const char* sentence, const PlanShare& plan, const QVector<qint64>& issued,
                             const QDate& lastDay,
                             int needed) { QTest::newRow(sentence) << plan << issued << lastDay << needed; };
        row("a cumulative plan ends early", { PlanType::CumulativeQty, 700, 300, 0, 1, 0 }, { 300, 300, 100, 0, 0 },
            Monday.addDays(2), 3);
        row("a cumulative plan without a maximum ends at once", { PlanType::CumulativeQty, 700, 0, 0, 1, 0 },
            { 700, 0, 0, 0, 0 }, Monday, 1);
        row("an average plan ends on its last day", { PlanType::AverageQty, 1000, 0, 0, 1, 0 },
            { 200, 200, 200, 200, 200 }, Friday, 5);
        row("an average plan that is rounded up", { PlanType::AverageQty, 1200, 0, 0, 1, 0 },
            { 300, 300, 200, 200, 200 }, Friday, 5);
        row("a maximum that is too small", { PlanType::CumulativeQty, 1500, 100, 0, 1, 0 }, { 100, 100, 100, 100, 100 },
            QDate(), 15);
        row("an average plan with a maximum that is too small", { PlanType::AverageQty, 1000, 100, 0, 1, 0 },
            { 100, 100, 100, 100, 100 }, QDate(), 10);
        row("the same each day", { PlanType::SameElements, 1000, 200, 0, 1, 0 }, { 200, 200, 200, 200, 200 }, Friday,
            5);
        row("what is already used is not issued", { PlanType::CumulativeQty, 700, 300, 500, 1, 0 }, { 200, 0, 0, 0, 0 },
            Monday, 1);
        row("less than a lot is left", { PlanType::CumulativeQty, 150, 0, 0, 1, 0 }, { 100, 0, 0, 0, 0 }, Monday, 1);
        row("a maximum of less than a lot never ends", { PlanType::CumulativeQty, 700, 50, 0, 1, 0 }, { 0, 0, 0, 0, 0 },
            QDate(), 0);
    }

    void eachDayTakesItsShareOfThePlan()
    {
        QFETCH(PlanShare, plan);
        QFETCH(QVector<qint64>, issued);
        QFETCH(QDate, lastDay);
        QFETCH(int, needed);
        const PlanForecast forecast = Forecast::of(forecasted(plan, Monday, Friday));
        QCOMPARE(issuedOn(forecast), issued);
        QCOMPARE(forecast.lastDay, lastDay);
        QCOMPARE(forecast.neededDays, needed);
        QCOMPARE(forecast.tradeDays, 5);
    }

    void closedAndUnknownDaysAreMarked()
    {
        const PlanShare plan{ PlanType::CumulativeQty, 1e6, 100, 0, 1, 0 };
        // A Friday, the weekend, and the Monday after it.
        const PlanForecast week = Forecast::of(forecasted(plan, Friday, Friday.addDays(3)));
        QCOMPARE(week.days.size(), 4);
        QCOMPARE(week.tradeDays, 2);
        QCOMPARE(week.days.at(0).kind, TradeCalendar::Day::Trades);
        QCOMPARE(week.days.at(1).kind, TradeCalendar::Day::Closed);
        QCOMPARE(week.days.at(2).kind, TradeCalendar::Day::Closed);
        QCOMPARE(week.days.at(3).kind, TradeCalendar::Day::Trades);
        QVERIFY(!week.days.at(0).isProvisional);
        // The closures of 2027 are not announced, those of 2028 are unknown.
        const PlanForecast late = Forecast::of(forecasted(plan, QDate(2027, 12, 31), QDate(2028, 1, 31)));
        QCOMPARE(late.days.size(), 4);
        QVERIFY(late.days.at(0).isProvisional);
        QCOMPARE(late.days.at(0).quantity, 100LL);
        QCOMPARE(late.days.at(3).day, QDate(2028, 1, 3));
        QCOMPARE(late.days.at(3).kind, TradeCalendar::Day::Unknown);
        QCOMPARE(late.tradeDays, 1);
    }

    void aDayWithoutAnOrderSaysWhy()
    {
        ForecastedPlan plan = forecasted({ PlanType::CumulativeQty, 700, 300, 0, 1, 0 }, Monday, Monday);
        plan.limits.quantity = 200;
        const PlanForecast forecast = Forecast::of(plan);
        QCOMPARE(forecast.days.size(), 1);
        QCOMPARE(forecast.days.at(0).reason,
            Status(Error::QuantityAboveLimit, { QStringLiteral("300"), QStringLiteral("200") }));
        QCOMPARE(forecast.days.at(0).left, 700.0);
        QCOMPARE(forecast.neededDays, 0);
    }

    void theForecastIsWhatIsIssued_data()
    {
        QTest::addColumn<QString>("planType");
        QTest::addColumn<QString>("formula");
        QTest::addColumn<bool>("isAmount");
        QTest::addColumn<bool>("sells");
        QTest::addColumn<QString>("perDay");
        const QStringList types{ PlanType::CumulativeQty, PlanType::AverageQty, PlanType::SameElements };
        const QStringList formulas{ QString(), QStringLiteral("昨收价"), QStringLiteral("昨收价*1.02"),
            QStringLiteral("昨收价*0.995"), QStringLiteral("昨收价*1.005"), QStringLiteral("昨收价*0.9") };
        for (const QString& type : types) {
            for (const QString& formula : formulas) {
                for (const bool isAmount : { false, true }) {
                    for (const bool sells : { false, true }) {
                        const QString name =
                            QStringLiteral("%1 %2 %3 at %4")
                                .arg(type, sells ? QStringLiteral("sells") : QStringLiteral("buys"),
                                    isAmount ? QStringLiteral("an amount") : QStringLiteral("a quantity"),
                                    formula.isEmpty() ? QStringLiteral("any price") : formula);
                        QTest::newRow(qPrintable(name)) << type << formula << isAmount << sells
                                                        << (isAmount ? QStringLiteral("5000") : QStringLiteral("300"));
                    }
                }
            }
        }
    }

    void theForecastIsWhatIsIssued()
    {
        QFETCH(QString, planType);
        QFETCH(QString, formula);
        QFETCH(bool, isAmount);
        QFETCH(bool, sells);
        QFETCH(QString, perDay);
        const QDate last = Monday.addDays(11);
        Record record = with(SampleSession::record(), Orlo_Fields::AutoPlan::templateCode, planType);
        record = with(record, BaseField::endDate, last.toString(Qt::ISODate));
        record = with(record, BaseField::totalQty, QStringLiteral("2500"));
        if (sells)
            record = with(record, BaseField::orderSide, Kelvo_Values::OrderSide::sell);
        if (!formula.isEmpty())
            record = customPrice(record, formula);
        if (isAmount)
            record = SampleSession::withOther(
                amountPlan(record, QStringLiteral("40000.00")), { { BaseField::dayMaxTradeAmount, perDay } });
        const QString id = session().create(record);
        QVERIFY2(!id.isEmpty(), qPrintable(session().reason()));
        const PlanForecast forecast = forecastOf(record, Monday, last);
        QCOMPARE(forecast.tradeDays, 10);
        const QStringList issued = reallyIssued(id, Monday, last);
        QVERIFY(!issued.isEmpty());
        QCOMPARE(foretold(forecast), issued);
    }

    void theForecastEndsWithTheHoldingsAndTheCash()
    {
        for (const bool sells : { false, true }) {
            Record record = with(SampleSession::record(), BaseField::totalQty, QStringLiteral("5000"));
            record = with(record, BaseField::endDate, Friday.toString(Qt::ISODate));
            Database file;
            QCOMPARE(file.open(session().ownersFile()), Status());
            OrderTerms terms = *orderTerms(record, share(), {}, [] { return Result<double>(0.0); });
            if (sells) {
                record = with(record, BaseField::orderSide, Kelvo_Values::OrderSide::sell);
                setPosition(700);
            } else {
                QCOMPARE(CashStore(file).set(QStringLiteral("100001"), closes().constLast() * 700), Status());
            }
            const QString id = session().create(record);
            QVERIFY2(!id.isEmpty(), qPrintable(session().reason()));
            PlanForecast forecast = forecastOf(record, Monday, Friday);
            if (!sells) {
                terms.cash = static_cast<double>(closes().constLast() * 700) / 100;
                forecast = Forecast::of({ terms, *dayPrice(record, share(), closes()), share(), wideLimits(),
                    ClientSession::instance().calendar(), Monday, Friday });
            }
            QVector<qint64> quantities;
            for (const ForecastDay& day : qAsConst(forecast.days))
                quantities << day.quantity;
            QCOMPARE(quantities, (QVector<qint64>{ 300, 300, 100, 0, 0 }));
            QCOMPARE(forecast.neededDays, 0);
            QCOMPARE(foretold(forecast), reallyIssued(id, Monday, Friday));
            QCOMPARE(ClientSession::instance().plans().setState(
                         id, 1, PlanState::Stopped, QStringLiteral("r"), ClientSession::instance().changeNow()),
                Status());
        }
    }

    void theForecastOfAReductionIsWhatIsIssued()
    {
        for (const char* const total : { "0", "100000" }) {
            setPosition(200000);
            Record record = reduction(with(SampleSession::record(), BaseField::totalQty, QLatin1String(total)));
            record = SampleSession::withOther(record,
                { { BaseField::JCRatio, QStringLiteral("0.15") },
                    { AutoPlanField::Progress::CurrentQty, QStringLiteral("0") } });
            const QString id = session().create(record);
            QVERIFY2(!id.isEmpty(), qPrintable(session().reason()));
            const PlanForecast forecast = forecastOf(record, Monday, QDate(2124, 5, 6));
            // Seven days with an order, and the last of them is the end of the table.
            QCOMPARE(forecast.lastDay, Monday.addDays(8));
            QCOMPARE(forecast.days.constLast().day, forecast.lastDay);
            QCOMPARE(forecast.neededDays, 7);
            QCOMPARE(foretold(forecast), reallyIssued(id, Monday, Monday.addDays(14)));
        }
    }

private:
    void setPosition(qint64 quantity) const
    {
        Database file;
        QCOMPARE(file.open(session().ownersFile()), Status());
        const QString account = SampleSession::record().value(Kelvo_Fields::UserAccount::securityAccount).toString();
        const StoredPosition position{ QStringLiteral("100001"), account, share().symbol, quantity, quantity };
        QCOMPARE(PositionStore(file).set(position), Status());
    }
};

QTEST_GUILESS_MAIN(PlanForecastTest)
#include "tst_plan_forecast.moc"
