#include "Kelvo_Values.h"
#include "LoggedTest.h"
#include "Orlo_Values.h"
#include "Rulebook.h"
#include "SampleBoards.h"
#include "TestStatus.h"
#include "TradeCalendar.h"

#include <QtTest>

#include <algorithm>

namespace {

const QByteArray Headings = "exchange,board,flag,rule,value,first,last,source\n";

Rulebook bookOf(const QByteArray& lines)
{
    const Result<Rulebook> book = Rulebook::read(Headings + lines);
    if (!book)
        qWarning().noquote() << errorText(book.status());
    return book.valueOr(Rulebook());
}

Security securityOf(const QString& exchange, const QString& subType, int limit, const QString& flag = {})
{
    Security security;
    security.exchange = exchange;
    security.subType = subType;
    security.limitPerMille = limit;
    security.quantityStep = 100;
    security.stFlag = flag.isEmpty() ? Orlo_Values::StFlag::Normal : flag;
    return security;
}

Security growth(int limit)
{
    return securityOf(Kelvo_Values::Exchange::sz, Kelvo_Values::MdcSubSecurityType::Gemstock, limit);
}

} // namespace

/// The rules of the exchanges by day.
class RulebookTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void theRuleOfTheDayDecides()
    {
        const Rulebook& book = Rulebook::builtIn();
        QCOMPARE(book.onDay(growth(200), QDate(2020, 8, 21)).limitPerMille, 100);
        QCOMPARE(book.onDay(growth(200), QDate(2020, 8, 24)).limitPerMille, 200);
        // Imported before the change.
        QCOMPARE(book.onDay(growth(100), QDate(2020, 8, 24)).limitPerMille, 200);
        QCOMPARE(*book.value(growth(200), TradeRule::Tick, QDate(2024, 5, 6)), 0.01);
        QVERIFY(!book.value(growth(200), TradeRule::Tick, QDate(2017, 12, 29)));
    }

    void aSecurityWithRulesOfItsOwnKeepsThem()
    {
        const Rulebook& book = Rulebook::builtIn();
        QCOMPARE(book.onDay(growth(0), QDate(2024, 5, 6)).limitPerMille, 0);
        QCOMPARE(book.onDay(growth(440), QDate(2024, 5, 6)).limitPerMille, 440);
        // The day is before the book.
        QCOMPARE(book.onDay(growth(200), QDate(2017, 12, 29)).limitPerMille, 200);
        Security fund =
            securityOf(Kelvo_Values::Exchange::sh, Kelvo_Values::MdcSubSecurityType::TradingopenindexfundETF, 200);
        QCOMPARE(book.onDay(fund, QDate(2024, 5, 6)).limitPerMille, 200);
        fund.exchange = Orlo_Values::Exchange::HkStockCirculation;
        QCOMPARE(book.onDay(fund, QDate(2024, 5, 6)).limitPerMille, 200);
    }

    void specialTreatmentHasRulesOfItsOwn()
    {
        const Rulebook book = bookOf("上海,主板,,limit,10%,2018-01-01,,a\n"
                                     "上海,主板,ST,limit,5%,2018-01-01,2024-05-05,a\n"
                                     "上海,主板,ST,limit,10%,2024-05-06,,b\n"
                                     "上海,主板,,step,100,2018-01-01,,a\n");
        const auto share = [](int limit, const char* flag) {
            return securityOf(
                Kelvo_Values::Exchange::sh, Kelvo_Values::MdcSubSecurityType::Ashares, limit, QLatin1String(flag));
        };
        QCOMPARE(book.onDay(share(50, "ST"), QDate(2024, 5, 5)).limitPerMille, 50);
        QCOMPARE(book.onDay(share(50, "ST"), QDate(2024, 5, 6)).limitPerMille, 100);
        QCOMPARE(book.onDay(share(50, "*ST"), QDate(2024, 5, 6)).limitPerMille, 50);
        QCOMPARE(*book.value(share(50, "ST"), TradeRule::Step, QDate(2024, 5, 6)), 100.0);
    }

    void aChangeWithinAPeriodIsFound()
    {
        const Rulebook& book = Rulebook::builtIn();
        const QDate day(2020, 8, 24);
        const auto changes = book.changes(growth(200), day.addDays(-1), day);
        QCOMPARE(changes.size(), 1);
        QCOMPARE(changes.constFirst().rule, TradeRule::Limit);
        QCOMPARE(changes.constFirst().day, day);
        QCOMPARE(changes.constFirst().before, 100.0);
        QCOMPARE(changes.constFirst().after, 200.0);
        QCOMPARE(book.changes(growth(200), day, day.addDays(100)).size(), 0);
        QCOMPARE(book.changes(growth(200), day.addDays(-9), day.addDays(-1)).size(), 0);
        QCOMPARE(book.changes(growth(440), day.addDays(-1), day).size(), 0);
    }

    void aBadLineIsRefusedWithItsReason_data()
    {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QString>("reason");
        const QByteArray good = "上海,主板,,limit,10%,2018-01-01,2020-08-23,a\n";
        const auto add = [&](const char* name, const QByteArray& lines, const char* reason) {
            QTest::newRow(name) << good + lines << QString::fromUtf8(reason);
        };
        add("columns", "上海,主板,,limit,10%\n", "交易规则表第3行应有8列，实有5列");
        add("exchange", "伦敦,主板,,limit,10%,2018-01-01,,a\n", "交易规则表第3行exchange“伦敦”未知");
        add("board", "上海,后板,,limit,10%,2018-01-01,,a\n", "交易规则表第3行board“后板”未知");
        add("flag", "上海,主板,XX,limit,10%,2018-01-01,,a\n", "交易规则表第3行flag“XX”未知");
        add("rule", "上海,主板,,speed,10%,2018-01-01,,a\n", "交易规则表第3行rule“speed”未知");
        add("limit", "深圳,主板,,limit,10,2018-01-01,,a\n", "交易规则表第3行value“10”未知");
        add("large limit", "深圳,主板,,limit,101%,2018-01-01,,a\n", "交易规则表第3行value“101%”未知");
        add("part of a share", "上海,主板,,lot,0.5,2018-01-01,,a\n", "交易规则表第3行value“0.5”未知");
        add("not a number", "上海,主板,,tick,nan,2018-01-01,,a\n", "交易规则表第3行value“nan”未知");
        add("first day", "上海,主板,,lot,100,2018-02-30,,a\n", "交易规则表第3行日期“2018-02-30”无效");
        add("last day", "上海,主板,,lot,100,2018-02-20,2018-02-19,a\n", "交易规则表第3行日期“2018-02-19”无效");
        add("source", "上海,主板,,lot,100,2018-02-20,,\n", "交易规则表第3行source为空");
        add("gap", "上海,主板,,limit,20%,2020-08-25,,b\n",
            "交易规则表第3行从2020-08-25起，应紧接上一期，从2020-08-24起");
        add("overlap", "上海,主板,,limit,20%,2020-08-23,,b\n",
            "交易规则表第3行从2020-08-23起，应紧接上一期，从2020-08-24起");
        add("after an open end", "上海,主板,,limit,20%,2020-08-24,,b\n上海,主板,,limit,30%,2021-08-24,,b\n",
            "交易规则表第4行从2021-08-24起，应紧接上一期，从起");
    }

    void aBadLineIsRefusedWithItsReason()
    {
        QFETCH(QByteArray, lines);
        QFETCH(QString, reason);
        QCOMPARE(errorText(Rulebook::read(Headings + lines).status()), reason);
    }

    void aFileWithoutHeadingsIsRefused()
    {
        QCOMPARE(
            Rulebook::read("exchange,board\n").status(), Status(Error::NoRulebookHeadings, { Rulebook::headings() }));
    }

    // The reader refuses a gap; here, no rule of a board ends.
    void theBoardsOfSharesHaveTheirRulesEveryDay()
    {
        const QDate last = TradeCalendar::builtIn().lastKnownDay();
        int boards = 0;
        for (const SampleBoard& board : sampleBoards()) {
            if (board.kind != SampleKind::Share)
                continue;
            for (const QString& flag : { QString(), SpecialTreatment::St, SpecialTreatment::StarSt }) {
                const Security security =
                    securityOf(board.exchange, board.ranges.constFirst().subType, board.limitPerMille, flag);
                for (const TradeRule rule : { TradeRule::Limit, TradeRule::Lot, TradeRule::Step, TradeRule::Tick }) {
                    // The youngest board.
                    for (QDate day(2021, 11, 15); day <= last; day = day.addDays(1))
                        QVERIFY2(Rulebook::builtIn().value(security, rule, day), qPrintable(security.subType));
                }
            }
            const QDate sampleDay(2024, 5, 6);
            QCOMPARE(*Rulebook::builtIn().value(
                         securityOf(board.exchange, board.ranges.constFirst().subType, 0), TradeRule::Limit, sampleDay),
                static_cast<double>(board.limitPerMille));
            ++boards;
        }
        QCOMPARE(boards, 15);
    }
};

QTEST_GUILESS_MAIN(RulebookTest)
#include "tst_rulebook.moc"
