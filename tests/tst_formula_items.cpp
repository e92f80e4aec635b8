#include "FormulaItems.h"

#include <QtTest>

namespace {

QStringList fixedOrder()
{
    return { QStringLiteral("昨收价"), QStringLiteral("涨停价"), QStringLiteral("跌停价"), QStringLiteral("MA20"),
        QStringLiteral("MA60"), QStringLiteral("MA120"), QStringLiteral("MA5"), QStringLiteral("MA10"),
        QStringLiteral("MA250") };
}

QStringList reversed(const QStringList& names)
{
    QStringList result;
    for (const QString& name : names)
        result.prepend(name);
    return result;
}

} // namespace

class FormulaItemsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void namesAreOfferedInTheirFixedOrder_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QStringList>("offered");
        QTest::newRow("no name") << QStringList() << QStringList();
        QTest::newRow("one name") << QStringList(QStringLiteral("昨收价")) << QStringList(QStringLiteral("昨收价"));
        QTest::newRow("every name, in order") << fixedOrder() << fixedOrder();
        QTest::newRow("every name, backwards") << reversed(fixedOrder()) << fixedOrder();
        QTest::newRow("the averages from short to long")
            << QStringList{ QStringLiteral("MA5"), QStringLiteral("MA10"), QStringLiteral("MA20"),
                   QStringLiteral("MA60"), QStringLiteral("MA120"), QStringLiteral("MA250") }
            << QStringList{ QStringLiteral("MA20"), QStringLiteral("MA60"), QStringLiteral("MA120"),
                   QStringLiteral("MA5"), QStringLiteral("MA10"), QStringLiteral("MA250") };
        QTest::newRow("a stock with two averages")
            << QStringList{ QStringLiteral("昨收价"), QStringLiteral("涨停价"), QStringLiteral("跌停价"),
                   QStringLiteral("MA5"), QStringLiteral("MA20") }
            << QStringList{ QStringLiteral("昨收价"), QStringLiteral("涨停价"), QStringLiteral("跌停价"),
                   QStringLiteral("MA20"), QStringLiteral("MA5") };
        QTest::newRow("a name that is given twice stays twice")
            << QStringList{ QStringLiteral("MA5"), QStringLiteral("昨收价"), QStringLiteral("MA5") }
            << QStringList{ QStringLiteral("昨收价"), QStringLiteral("MA5"), QStringLiteral("MA5") };
    }

    void namesAreOfferedInTheirFixedOrder()
    {
        QFETCH(QStringList, names);
        QFETCH(QStringList, offered);
        QCOMPARE(inPromptOrder(names), offered);
    }

    void everyPairOfNamesKeepsItsOrder()
    {
        const QStringList order = fixedOrder();
        for (int first = 0; first < order.size(); ++first) {
            for (int second = first + 1; second < order.size(); ++second) {
                const QStringList pair{ order.at(first), order.at(second) };
                QCOMPARE(inPromptOrder(reversed(pair)), pair);
            }
        }
    }

    void namesOutsideTheOrderComeFirstAsGiven()
    {
        const QStringList names{ QStringLiteral("MA250"), QStringLiteral("MA30"), QStringLiteral("MA20"),
            QStringLiteral("ma5"), QStringLiteral("昨收价") };
        const QStringList offered{ QStringLiteral("MA30"), QStringLiteral("ma5"), QStringLiteral("昨收价"),
            QStringLiteral("MA20"), QStringLiteral("MA250") };
        QCOMPARE(inPromptOrder(names), offered);
    }
};

QTEST_GUILESS_MAIN(FormulaItemsTest)
#include "tst_formula_items.moc"
