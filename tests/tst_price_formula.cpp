#include "DayPrice.h"
#include "PriceFormula.h"
#include "TestStatus.h"
#include "TickPrice.h"

#include <QElapsedTimer>
#include <QtTest>

#include <limits>

namespace {

QHash<QString, double> prices()
{
    return { { PriceItem::PreviousClose, 10.0 }, { PriceItem::UpperLimit, 11.0 }, { PriceItem::LowerLimit, 9.0 },
        { QStringLiteral("MA5"), 10.5 }, { QStringLiteral("MA20"), 9.8 } };
}

Status check(const QString& formula)
{
    return PriceFormula::check(formula, priceNames());
}

Result<double> evaluate(const QString& formula)
{
    return PriceFormula::evaluate(formula, priceNames(), prices());
}

/// An error at the character with this number.
Status at(int character, const Status& error)
{
    return { Error::FormulaErrorAt, { QString::number(character) }, error };
}

QString nested(int depth)
{
    return QString(depth, QLatin1Char('(')) + QLatin1Char('1') + QString(depth, QLatin1Char(')'));
}

} // namespace

class PriceFormulaTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFormulaGivesItsPrice_data()
    {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<double>("price");
        QTest::newRow("a number") << QStringLiteral("12.34") << 12.34;
        QTest::newRow("the previous close") << QStringLiteral("昨收价") << 10.0;
        QTest::newRow("the limits") << QStringLiteral("涨停价-跌停价") << 2.0;
        QTest::newRow("product before sum") << QStringLiteral("1+2*3") << 7.0;
        QTest::newRow("brackets first") << QStringLiteral("(1+2)*3") << 9.0;
        QTest::newRow("from left to right") << QStringLiteral("8-3-2") << 3.0;
        QTest::newRow("a quotient") << QStringLiteral("昨收价/4") << 2.5;
        QTest::newRow("a moving average") << QStringLiteral("MA5*1.01") << 10.605;
        QTest::newRow("the larger") << QStringLiteral("max(MA5,MA20)") << 10.5;
        QTest::newRow("the smaller") << QStringLiteral("min(MA5,昨收价*0.99)") << 9.9;
        QTest::newRow("functions within functions") << QStringLiteral("max(min(1,2),min(3,4))") << 3.0;
        QTest::newRow("spaces") << QStringLiteral(" 昨收价 + 0.01 ") << 10.01;
        QTest::newRow("a leading minus") << QStringLiteral("-1+昨收价") << 9.0;
    }

    void aFormulaGivesItsPrice()
    {
        QFETCH(QString, formula);
        QFETCH(double, price);
        QCOMPARE(check(formula), Status());
        const Result<double> result = evaluate(formula);
        QCOMPARE(result.status(), Status());
        QCOMPARE(*result, price);
    }

    void aFormulaIsRefusedWithItsReason_data()
    {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<Status>("status");
        const auto row = [](const char* name, const QString& formula, const Status& status) {
            QTest::newRow(name) << formula << status;
        };
        row("empty", QString(), Error::FormulaEmpty);
        row("blank", QStringLiteral("   "), Error::FormulaEmpty);
        row("an unknown name", QStringLiteral("1+MA7"), at(3, { Error::UnknownName, { QStringLiteral("MA7") } }));
        row("a name in lower case", QStringLiteral("ma5"), at(1, { Error::UnknownName, { QStringLiteral("ma5") } }));
        row("a function of the library", QStringLiteral("sin(1)"),
            at(1, { Error::UnknownName, { QStringLiteral("sin") } }));
        row("a constant of the library", QStringLiteral("_pi"),
            at(1, { Error::UnknownName, { QStringLiteral("_pi") } }));
        row("an exponent", QStringLiteral("1e5"), at(2, { Error::UnknownName, { QStringLiteral("e5") } }));
        row("two points", QStringLiteral("1.2.3"), at(1, { Error::MalformedNumber, { QStringLiteral("1.2.3") } }));
        row("a point alone", QStringLiteral("."), at(1, { Error::MalformedNumber, { QStringLiteral(".") } }));
        row("a power", QStringLiteral("2^9"), at(2, { Error::UnsupportedCharacter, { QStringLiteral("^") } }));
        row("an assignment", QStringLiteral("昨收价=1"),
            at(4, { Error::UnsupportedCharacter, { QStringLiteral("=") } }));
        row("a choice", QStringLiteral("1?2:3"), at(2, { Error::UnsupportedCharacter, { QStringLiteral("?") } }));
        row("a percent sign", QStringLiteral("5%"), at(2, { Error::UnsupportedCharacter, { QStringLiteral("%") } }));
        row("a full-width bracket", QStringLiteral("（1）"),
            at(1, { Error::UnsupportedCharacter, { QStringLiteral("（") } }));
        row("numbers side by side", QStringLiteral("1 2"), at(3, Error::FormulaSyntax));
        row("names side by side", QStringLiteral("昨收价MA5"),
            at(1, { Error::UnknownName, { QStringLiteral("昨收价MA5") } }));
        row("an operator at the end", QStringLiteral("1+"), Error::FormulaIncomplete);
        row("an operator too many", QStringLiteral("1*/2"), at(3, Error::FormulaSyntax));
        row("a bracket left open", QStringLiteral("(1+2"), Error::MissingParenthesis);
        row("a bracket too many", QStringLiteral("1)"), at(2, Error::MisplacedParenthesis));
        row("empty brackets", QStringLiteral("()"), at(2, Error::MisplacedParenthesis));
        row("one argument", QStringLiteral("max(1)"), at(6, Error::TooFewArguments));
        row("three arguments", QStringLiteral("max(1,2,3)"), at(10, Error::TooManyArguments));
        row("no argument", QStringLiteral("min()"), at(5, Error::TooFewArguments));
        row("an argument left out", QStringLiteral("max(1,)"), at(7, Error::MisplacedParenthesis));
        row("the function alone", QStringLiteral("max"), at(1, Error::FormulaSyntax));
        row("a comma outside", QStringLiteral("1,2"), Error::CommaOutsideFunction);
    }

    void aFormulaIsRefusedWithItsReason()
    {
        QFETCH(QString, formula);
        QFETCH(Status, status);
        QCOMPARE(check(formula), status);
        QCOMPARE(evaluate(formula).status(), status);
    }

    void aResultThatIsNoPriceIsRefused_data()
    {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<Status>("status");
        QTest::newRow("divided by zero") << QStringLiteral("1/0") << Status(Error::PriceNotFinite);
        QTest::newRow("divided by a difference of zero")
            << QStringLiteral("1/(昨收价-昨收价)") << Status(Error::PriceNotFinite);
        QTest::newRow("zero by zero") << QStringLiteral("0/0") << Status(Error::PriceNotFinite);
        QTest::newRow("as large as a formula can write")
            << QString(200, QLatin1Char('9')) + QStringLiteral("/0.") + QString(90, QLatin1Char('0')) + QLatin1Char('1')
            << Status();
        QTest::newRow("zero") << QStringLiteral("昨收价-10") << Status(Error::PriceNotPositive);
        QTest::newRow("below zero") << QStringLiteral("跌停价-昨收价") << Status(Error::PriceNotPositive);
        QTest::newRow("an average that the security does not have")
            << QStringLiteral("1+MA250") << at(3, { Error::PriceNotAvailable, { QStringLiteral("MA250") } });
    }

    void aResultThatIsNoPriceIsRefused()
    {
        QFETCH(QString, formula);
        QFETCH(Status, status);
        QCOMPARE(check(formula), Status());
        QCOMPARE(evaluate(formula).status(), status);
    }

    void theLongestFormulaPassesAndOneCharacterMoreDoesNot()
    {
        const QString longest = QStringLiteral("1+").repeated(149) + QStringLiteral("11");
        QCOMPARE(longest.size(), PriceFormula::MaximumLength);
        QCOMPARE(*evaluate(longest), 160.0);
        const Status tooLong(Error::FormulaTooLong, { QStringLiteral("300") });
        QCOMPARE(check(longest + QLatin1Char('1')), tooLong);
    }

    void theDeepestFormulaPassesAndOneBracketMoreDoesNot()
    {
        QCOMPARE(*evaluate(nested(20)), 1.0);
        const Status tooDeep(Error::FormulaTooDeep, { QStringLiteral("20") });
        QCOMPARE(check(nested(21)), at(21, tooDeep));
    }

    void hostileTextEndsSoon()
    {
        const QStringList parts{ QStringLiteral("("), QStringLiteral("-"), QStringLiteral("max("), QStringLiteral("1,"),
            QStringLiteral("9"), QStringLiteral(")"), QStringLiteral("昨"), QStringLiteral("\xF0\x9F\x98\x80"),
            QString(QChar(0)), QString(QChar(0xD800)) };
        QElapsedTimer timer;
        timer.start();
        for (const QString& part : parts) {
            for (const int times : { 1, 20, 100, 299, 100000 }) {
                const Result<double> result = evaluate(part.repeated(times));
                QVERIFY2(!result || *result > 0, qPrintable(part));
            }
        }
        QVERIFY(timer.elapsed() < 5000);
    }

    void priceNamesAreThoseThatAFormulaMayUse()
    {
        const QStringList names{ QStringLiteral("昨收价"), QStringLiteral("涨停价"), QStringLiteral("跌停价"),
            QStringLiteral("MA5"), QStringLiteral("MA10"), QStringLiteral("MA20"), QStringLiteral("MA60"),
            QStringLiteral("MA120"), QStringLiteral("MA250") };
        QCOMPARE(priceNames(), names);
        for (const QString& name : names)
            QCOMPARE(check(name), Status());
    }

    void limitPricesAreRoundedHalfUp_data()
    {
        QTest::addColumn<qint64>("close");
        QTest::addColumn<int>("perMille");
        QTest::addColumn<qint64>("up");
        QTest::addColumn<qint64>("down");
        QTest::newRow("1.15 at ten percent: 1.265 becomes 1.27, 1.035 becomes 1.04")
            << qint64(115) << 100 << qint64(127) << qint64(104);
        QTest::newRow("10.00 at ten percent") << qint64(1000) << 100 << qint64(1100) << qint64(900);
        QTest::newRow("10.05 at five percent: 10.5525 and 9.5475") << qint64(1005) << 50 << qint64(1055) << qint64(955);
        QTest::newRow("33.33 at twenty percent: 39.996 and 26.664")
            << qint64(3333) << 200 << qint64(4000) << qint64(2666);
        QTest::newRow("7.77 at thirty percent: 10.101 and 5.439") << qint64(777) << 300 << qint64(1010) << qint64(544);
        QTest::newRow("one tick stays one tick") << qint64(1) << 100 << qint64(1) << qint64(1);
        QTest::newRow("no limit ratio leaves the close") << qint64(115) << 0 << qint64(115) << qint64(115);
    }

    void limitPricesAreRoundedHalfUp()
    {
        QFETCH(qint64, close);
        QFETCH(int, perMille);
        const TickPrice::Limits limits = TickPrice::limits(close, perMille);
        QTEST(limits.up, "up");
        QTEST(limits.down, "down");
    }

    void aPriceIsRoundedToItsTick_data()
    {
        QTest::addColumn<double>("yuan");
        QTest::addColumn<int>("precision");
        QTest::addColumn<QString>("text");
        QTest::newRow("a half is rounded up") << 1.265 << 2 << QStringLiteral("1.27");
        QTest::newRow("a product that doubles get wrong") << 1.15 * 1.1 << 2 << QStringLiteral("1.27");
        QTest::newRow("less than a half is rounded down") << 1.2649 << 2 << QStringLiteral("1.26");
        QTest::newRow("three decimals") << 100.1235 << 3 << QStringLiteral("100.124");
        QTest::newRow("whole") << 5.0 << 2 << QStringLiteral("5.00");
        QTest::newRow("less than half a tick is nothing") << 0.004 << 2 << QStringLiteral("0.00");
    }

    void aPriceIsRoundedToItsTick()
    {
        QFETCH(double, yuan);
        QFETCH(int, precision);
        const auto ticks = TickPrice::fromYuan(yuan, precision);
        QVERIFY(ticks.has_value());
        QTEST(TickPrice::text(*ticks, precision), "text");
    }

    void aPriceBeyondNumbersHasNoTick()
    {
        QVERIFY(!TickPrice::fromYuan(std::numeric_limits<double>::infinity(), 2));
        QVERIFY(!TickPrice::fromYuan(std::numeric_limits<double>::quiet_NaN(), 2));
        QVERIFY(!TickPrice::fromYuan(1e300, 2));
    }
};

QTEST_GUILESS_MAIN(PriceFormulaTest)
#include "tst_price_formula.moc"
