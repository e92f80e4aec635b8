#include "DayPrice.h"
#include "PriceFormula.h"
#include "TickPrice.h"

#include <QElapsedTimer>
#include <QtTest>

#include <limits>

namespace {

QHash<QString, double> prices()
{
    return { { PriceItem::previousClose, 10.0 }, { PriceItem::upperLimit, 11.0 }, { PriceItem::lowerLimit, 9.0 },
        { QStringLiteral("MA5"), 10.5 }, { QStringLiteral("MA20"), 9.8 } };
}

QString check(const QString& formula)
{
    return PriceFormula::check(formula, priceNames());
}

PriceFormula::Result evaluate(const QString& formula)
{
    return PriceFormula::evaluate(formula, priceNames(), prices());
}

QString nested(int depth)
{
    return QString(depth, QLatin1Char('(')) + QLatin1Char('1') + QString(depth, QLatin1Char(')'));
}

} // namespace

class tst_price_formula : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFormulaGivesItsPrice_data();
    void aFormulaGivesItsPrice();
    void aFormulaIsRefusedWithItsReason_data();
    void aFormulaIsRefusedWithItsReason();
    void aPriceIsRefusedThatNobodyCanPay_data();
    void aPriceIsRefusedThatNobodyCanPay();
    void theLongestFormulaPassesAndOneCharacterMoreDoesNot();
    void theDeepestFormulaPassesAndOneBracketMoreDoesNot();
    void hostileTextEndsSoon();
    void priceNamesAreThoseThatAFormulaMayUse();

    void limitPricesAreRoundedHalfUp_data();
    void limitPricesAreRoundedHalfUp();
    void aPriceIsRoundedToItsTick_data();
    void aPriceIsRoundedToItsTick();
    void aPriceBeyondNumbersHasNoTick();
};

void tst_price_formula::aFormulaGivesItsPrice_data()
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

void tst_price_formula::aFormulaGivesItsPrice()
{
    QFETCH(QString, formula);
    QFETCH(double, price);
    QCOMPARE(check(formula), QString());
    const PriceFormula::Result result = evaluate(formula);
    QCOMPARE(result.reason, QString());
    QCOMPARE(result.price, price);
}

void tst_price_formula::aFormulaIsRefusedWithItsReason_data()
{
    QTest::addColumn<QString>("formula");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QString& formula, const QString& reason) {
        QTest::newRow(name) << formula << reason;
    };
    row("empty", QString(), QStringLiteral("公式为空"));
    row("blank", QStringLiteral("   "), QStringLiteral("公式为空"));
    row("an unknown name", QStringLiteral("1+MA7"), QStringLiteral("未知的名称“MA7”（第3个字符）"));
    row("a name in lower case", QStringLiteral("ma5"), QStringLiteral("未知的名称“ma5”（第1个字符）"));
    row("a function of the library", QStringLiteral("sin(1)"), QStringLiteral("未知的名称“sin”（第1个字符）"));
    row("a constant of the library", QStringLiteral("_pi"), QStringLiteral("未知的名称“_pi”（第1个字符）"));
    row("an exponent", QStringLiteral("1e5"), QStringLiteral("未知的名称“e5”（第2个字符）"));
    row("two points", QStringLiteral("1.2.3"), QStringLiteral("数字“1.2.3”格式不正确（第1个字符）"));
    row("a point alone", QStringLiteral("."), QStringLiteral("数字“.”格式不正确（第1个字符）"));
    row("a power", QStringLiteral("2^9"), QStringLiteral("不支持的字符“^”（第2个字符）"));
    row("an assignment", QStringLiteral("昨收价=1"), QStringLiteral("不支持的字符“=”（第4个字符）"));
    row("a choice", QStringLiteral("1?2:3"), QStringLiteral("不支持的字符“?”（第2个字符）"));
    row("a percent sign", QStringLiteral("5%"), QStringLiteral("不支持的字符“%”（第2个字符）"));
    row("a full-width bracket", QStringLiteral("（1）"), QStringLiteral("不支持的字符“（”（第1个字符）"));
    row("numbers side by side", QStringLiteral("1 2"), QStringLiteral("公式语法不正确（第3个字符）"));
    row("names side by side", QStringLiteral("昨收价MA5"), QStringLiteral("未知的名称“昨收价MA5”（第1个字符）"));
    row("an operator at the end", QStringLiteral("1+"), QStringLiteral("公式不完整"));
    row("an operator too many", QStringLiteral("1*/2"), QStringLiteral("公式语法不正确（第3个字符）"));
    row("a bracket left open", QStringLiteral("(1+2"), QStringLiteral("缺少右括号"));
    row("a bracket too many", QStringLiteral("1)"), QStringLiteral("括号位置不正确（第2个字符）"));
    row("empty brackets", QStringLiteral("()"), QStringLiteral("括号位置不正确（第2个字符）"));
    row("one argument", QStringLiteral("max(1)"), QStringLiteral("函数的参数不足，应为2个（第6个字符）"));
    row("three arguments", QStringLiteral("max(1,2,3)"), QStringLiteral("函数的参数过多，应为2个（第10个字符）"));
    row("no argument", QStringLiteral("min()"), QStringLiteral("函数的参数不足，应为2个（第5个字符）"));
    row("an argument left out", QStringLiteral("max(1,)"), QStringLiteral("括号位置不正确（第7个字符）"));
    row("the function alone", QStringLiteral("max"), QStringLiteral("公式语法不正确（第1个字符）"));
    row("a comma outside", QStringLiteral("1,2"), QStringLiteral("逗号只能用于函数的参数之间"));
}

void tst_price_formula::aFormulaIsRefusedWithItsReason()
{
    QFETCH(QString, formula);
    QFETCH(QString, reason);
    QCOMPARE(check(formula), reason);
    const PriceFormula::Result result = evaluate(formula);
    QCOMPARE(result.reason, reason);
    QCOMPARE(result.price, 0.0);
}

void tst_price_formula::aPriceIsRefusedThatNobodyCanPay_data()
{
    QTest::addColumn<QString>("formula");
    QTest::addColumn<QString>("reason");
    QTest::newRow("divided by zero") << QStringLiteral("1/0") << QStringLiteral("公式的结果不是有限的数");
    QTest::newRow("divided by a difference of zero")
        << QStringLiteral("1/(昨收价-昨收价)") << QStringLiteral("公式的结果不是有限的数");
    QTest::newRow("zero by zero") << QStringLiteral("0/0") << QStringLiteral("公式的结果不是有限的数");
    QTest::newRow("as large as a formula can write")
        << QString(200, QLatin1Char('9')) + QStringLiteral("/0.") + QString(90, QLatin1Char('0')) + QLatin1Char('1')
        << QString();
    QTest::newRow("zero") << QStringLiteral("昨收价-10") << QStringLiteral("公式的结果不大于零");
    QTest::newRow("below zero") << QStringLiteral("跌停价-昨收价") << QStringLiteral("公式的结果不大于零");
    QTest::newRow("an average that the security does not have")
        << QStringLiteral("1+MA250") << QStringLiteral("该证券没有“MA250”的数据（第3个字符）");
}

void tst_price_formula::aPriceIsRefusedThatNobodyCanPay()
{
    QFETCH(QString, formula);
    QFETCH(QString, reason);
    QCOMPARE(check(formula), QString());
    QCOMPARE(evaluate(formula).reason, reason);
}

void tst_price_formula::theLongestFormulaPassesAndOneCharacterMoreDoesNot()
{
    const QString longest = QStringLiteral("1+").repeated(149) + QStringLiteral("11");
    QCOMPARE(longest.size(), PriceFormula::maximumLength);
    QCOMPARE(evaluate(longest).price, 160.0);
    QCOMPARE(check(longest + QLatin1Char('1')), QStringLiteral("公式超过300个字符"));
}

void tst_price_formula::theDeepestFormulaPassesAndOneBracketMoreDoesNot()
{
    QCOMPARE(evaluate(nested(20)).price, 1.0);
    QCOMPARE(check(nested(21)), QStringLiteral("括号嵌套超过20层（第21个字符）"));
}

void tst_price_formula::hostileTextEndsSoon()
{
    const QStringList parts{ QStringLiteral("("), QStringLiteral("-"), QStringLiteral("max("), QStringLiteral("1,"),
        QStringLiteral("9"), QStringLiteral(")"), QStringLiteral("昨"), QStringLiteral("\xF0\x9F\x98\x80"),
        QString(QChar(0)), QString(QChar(0xD800)) };
    QElapsedTimer timer;
    timer.start();
    for (const QString& part : parts) {
        for (const int times : { 1, 20, 100, 299, 100000 }) {
            const PriceFormula::Result result = evaluate(part.repeated(times));
            QVERIFY2(result.reason.isEmpty() == (result.price > 0), qPrintable(part));
        }
    }
    QVERIFY(timer.elapsed() < 5000);
}

void tst_price_formula::priceNamesAreThoseThatAFormulaMayUse()
{
    const QStringList names{ QStringLiteral("昨收价"), QStringLiteral("涨停价"), QStringLiteral("跌停价"),
        QStringLiteral("MA5"), QStringLiteral("MA10"), QStringLiteral("MA20"), QStringLiteral("MA60"),
        QStringLiteral("MA120"), QStringLiteral("MA250") };
    QCOMPARE(priceNames(), names);
    for (const QString& name : names)
        QCOMPARE(check(name), QString());
}

void tst_price_formula::limitPricesAreRoundedHalfUp_data()
{
    QTest::addColumn<qint64>("close");
    QTest::addColumn<int>("perMille");
    QTest::addColumn<qint64>("up");
    QTest::addColumn<qint64>("down");
    QTest::newRow("1.15 at ten percent: 1.265 becomes 1.27, 1.035 becomes 1.04")
        << qint64(115) << 100 << qint64(127) << qint64(104);
    QTest::newRow("10.00 at ten percent") << qint64(1000) << 100 << qint64(1100) << qint64(900);
    QTest::newRow("10.05 at five percent: 10.5525 and 9.5475") << qint64(1005) << 50 << qint64(1055) << qint64(955);
    QTest::newRow("33.33 at twenty percent: 39.996 and 26.664") << qint64(3333) << 200 << qint64(4000) << qint64(2666);
    QTest::newRow("7.77 at thirty percent: 10.101 and 5.439") << qint64(777) << 300 << qint64(1010) << qint64(544);
    QTest::newRow("one tick stays one tick") << qint64(1) << 100 << qint64(1) << qint64(1);
    QTest::newRow("no limit ratio leaves the close") << qint64(115) << 0 << qint64(115) << qint64(115);
}

void tst_price_formula::limitPricesAreRoundedHalfUp()
{
    QFETCH(qint64, close);
    QFETCH(int, perMille);
    const TickPrice::Limits limits = TickPrice::limits(close, perMille);
    QTEST(limits.up, "up");
    QTEST(limits.down, "down");
}

void tst_price_formula::aPriceIsRoundedToItsTick_data()
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

void tst_price_formula::aPriceIsRoundedToItsTick()
{
    QFETCH(double, yuan);
    QFETCH(int, precision);
    const auto ticks = TickPrice::fromYuan(yuan, precision);
    QVERIFY(ticks.has_value());
    QTEST(TickPrice::text(*ticks, precision), "text");
}

void tst_price_formula::aPriceBeyondNumbersHasNoTick()
{
    QVERIFY(!TickPrice::fromYuan(std::numeric_limits<double>::infinity(), 2));
    QVERIFY(!TickPrice::fromYuan(std::numeric_limits<double>::quiet_NaN(), 2));
    QVERIFY(!TickPrice::fromYuan(1e300, 2));
}

QTEST_GUILESS_MAIN(tst_price_formula)
#include "tst_price_formula.moc"
