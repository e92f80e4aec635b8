#include "AutoPlanField.h"
#include "EditorTest.h"
#include "Kelvo_Fields.h"
#include "Orlo_Fields.h"
#include "PlanVocabulary.h"
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>
#include <type_traits>

static_assert(std::is_same_v<decltype(AutoPlanTemplate::CumulativeQty), const QString>, "no code is ever changed");
static_assert(std::is_same_v<decltype(AutoPlanAlgo::NoUnlimitedPriceList), const QStringList>, "nor is a list");

/// The codes and their texts, as constants and as the form offers them.
class VocabularyTest : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void eachConstantHasItsCode_data();
    void eachConstantHasItsCode();
    void listsHoldTheirEntriesInOrder();
    void codesOfDifferentFamiliesMayBeEqual();
    void theFormOffersTheVocabulary_data();
    void theFormOffersTheVocabulary();
    void textsOfInstructionTypesComeFromTheConfiguration();
    void textsOfTargetTypesComeFromTheConfiguration();
    void theFirstAssigneeIsNobody();
    void planTypesAreComparedCaseSensitively();
    void storedCodesAreFoundCaseSensitively();
    void noTwoConstantsOfTheScriptedClientAreEqual();
};

void VocabularyTest::eachConstantHasItsCode_data()
{
    QTest::addColumn<QString>("constant");
    QTest::addColumn<QString>("code");
    const auto row = [](const char* name, const QString& constant, const char* code) {
        QTest::newRow(name) << constant << QString::fromUtf8(code);
    };
    row("a plan of a cumulative quantity", AutoPlanTemplate::CumulativeQty, "TW-01");
    row("a plan of an average quantity", AutoPlanTemplate::AverageQty, "TW-02");
    row("a plan of the same elements", AutoPlanTemplate::SameElements, "TW-03");
    row("a holdings reduction", AutoPlanTemplate::ReduceHoldings, "JC-01");
    row("ordinary instructions", AutoPlanInstructionType::Ordinary, "1");
    row("credit instructions", AutoPlanInstructionType::Credit, "2");
    row("bond instructions", AutoPlanInstructionType::Bond, "5");
    row("Hong Kong connect instructions", AutoPlanInstructionType::HkConnect, "9");
    row("active management", AutoPlanInstMode::ActiveManage, "1");
    row("ordinary review", AutoPlanInstMode::NormalTradeReview, "2");
    row("algorithmic review", AutoPlanInstMode::AlgoTradeReview, "3");
    row("no price limit", AutoPlanPriceModel::NoLimit, "1");
    row("a custom price", AutoPlanPriceModel::Custom, "6");
    row("the larger of two prices", AutoPlanPriceModel::CompareMax, "7");
    row("the smaller of two prices", AutoPlanPriceModel::CompareMin, "8");
    row("nobody named", AutoPlanAssignee::NotSpecified, "默认不指定");
    row("one percent in ninety days", ReduceHoldingsMode::Continuous90Days, "1");
    row("the field of the target type", AutoPlanFieldId::TargetType, "57134");
    row("the field of the account's text", AutoPlanFieldId::Account10112, "10112");
}

void VocabularyTest::eachConstantHasItsCode()
{
    QFETCH(QString, constant);
    QFETCH(QString, code);
    QCOMPARE(constant, code);
}

void VocabularyTest::listsHoldTheirEntriesInOrder()
{
    QCOMPARE(AutoPlanAlgo::NoUnlimitedPriceList, lines("ICEBERG2\nSNIPER"));
    QCOMPARE(AutoPlanFormula::CompareFunctions, lines("max(,)\nmin(,)"));
}

void VocabularyTest::codesOfDifferentFamiliesMayBeEqual()
{
    QCOMPARE(AutoPlanInstructionType::Ordinary, AutoPlanInstMode::ActiveManage);
    QCOMPARE(AutoPlanInstMode::ActiveManage, AutoPlanPriceModel::NoLimit);
    QCOMPARE(AutoPlanPriceModel::NoLimit, ReduceHoldingsMode::Continuous90Days);
    QCOMPARE(AutoPlanInstructionType::Credit, AutoPlanInstMode::NormalTradeReview);
}

void VocabularyTest::theFormOffersTheVocabulary_data()
{
    QTest::addColumn<QByteArray>("box");
    QTest::addColumn<QString>("offeredTexts");
    QTest::addColumn<QString>("offeredCodes");
    QTest::newRow("plan types") << QByteArray("combx_planType") << "累计数量 平均数量 相同要素 减持"
                                << "TW-01 TW-02 TW-03 JC-01";
    QTest::newRow("sides") << QByteArray("combx_tradeSide") << "买入 卖出"
                           << "k_side_buy k_side_sell";
    QTest::newRow("price modes") << QByteArray("combx_priceMode") << "不限价 自定义 比较值取最大 比较值取最小"
                                 << "1 6 7 8";
    QTest::newRow("price types") << QByteArray("combx_priceType") << "增强限价盘 竞价限价盘"
                                 << "o_HKTimeInForce_InTrade o_HKTimeInForce_BeforeTrade";
    QTest::newRow("modes under review") << QByteArray("combx_instructionMode") << "普通交易复核 算法交易复核"
                                        << "2 3";
    QTest::newRow("reduction modes") << QByteArray("combx_reduceHMode") << "连续90天减持不超过总股本1%"
                                     << "1";
}

void VocabularyTest::theFormOffersTheVocabulary()
{
    QFETCH(QByteArray, box);
    QFETCH(QString, offeredTexts);
    QFETCH(QString, offeredCodes);
    script().ruleProperty = 1;
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    choose(editor(), "combx_priceMode", QStringLiteral("6"));
    QCOMPARE(texts(editor(), box.constData()), offeredTexts.split(QLatin1Char(' ')));
    QCOMPARE(codes(editor(), box.constData()), offeredCodes.split(QLatin1Char(' ')));
}

void VocabularyTest::textsOfInstructionTypesComeFromTheConfiguration()
{
    script().staticTexts.insert(QStringLiteral("AutoPlanInstructionType/1"), QStringLiteral("甲"));
    script().staticTexts.insert(QStringLiteral("AutoPlanInstructionType/5"), QStringLiteral("乙"));
    script().staticTexts.insert(QStringLiteral("AutoPlanInstructionType/9"), QStringLiteral("丙"));
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    QCOMPARE(texts(editor(), "combx_instructionType"), lines("甲\n乙\n丙"));
    QCOMPARE(codes(editor(), "combx_instructionType"), lines("1\n5\n9"));
}

void VocabularyTest::textsOfTargetTypesComeFromTheConfiguration()
{
    script().staticTexts.insert(QStringLiteral("InstructionTargetType/tt_QtyOrder"), QStringLiteral("甲"));
    script().staticTexts.insert(QStringLiteral("InstructionTargetType/tt_AmountOrder"), QStringLiteral("乙"));
    script().ruleProperty = 1;
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    QCOMPARE(texts(editor(), "combx_instructionTargetType"), lines("甲\n乙"));
    QCOMPARE(codes(editor(), "combx_instructionTargetType"), lines("tt_QtyOrder\ntt_AmountOrder"));
}

void VocabularyTest::theFirstAssigneeIsNobody()
{
    script().forwardUsers = lines("李四");
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    QCOMPARE(texts(editor(), "combx_assignTo"), lines("默认不指定\n李四"));
    QCOMPARE(code(editor(), "combx_assignTo"), QString());
}

void VocabularyTest::planTypesAreComparedCaseSensitively()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    construct();
    box(editor(), "combx_planType")->addItem(QStringLiteral("lower case"), QStringLiteral("jc-01"));
    choose(editor(), "combx_planType", QStringLiteral("jc-01"));
    QVERIFY(isUsable(editor(), "combx_tradeSide"));
    QVERIFY(!isOffered(editor(), "le_reduceHRatio"));
    QCOMPARE(text(editor(), "la_assignTo"), QStringLiteral("分配给"));
    box(editor(), "combx_planType")->addItem(QStringLiteral("also lower case"), QStringLiteral("tw-03"));
    choose(editor(), "combx_planType", QStringLiteral("tw-03"));
    QCOMPARE(text(editor(), "la_entrustMaxNum"), QStringLiteral("每日最大委托量"));
}

void VocabularyTest::storedCodesAreFoundCaseSensitively()
{
    script().addOrdinaryAccount(QStringLiteral("acc1"));
    script().plans.insert(QStringLiteral("plan1"),
        { { Kelvo_Fields::UserAccount::tradingAccount, QStringLiteral("acc1") },
            { Orlo_Fields::AutoPlan::subType, QStringLiteral("1") },
            { Orlo_Fields::AutoPlan::templateCode, QStringLiteral("tw-01") },
            { AutoPlanField::BaseField::priceModel, QStringLiteral("1") },
            { AutoPlanField::BaseField::InstMode, QStringLiteral("1") },
            { AutoPlanField::BaseField::beginDate, QStringLiteral("2024/05/10") },
            { AutoPlanField::BaseField::endDate, QStringLiteral("2024/05/13") },
            { AutoPlanField::BaseField::planOtherParam, QStringLiteral("{\"a\":\"b\"}") } });
    construct();
    QCOMPARE(box(editor(), "combx_planType")->currentIndex(), 0);
    editor().copyPlan(QStringLiteral("plan1"));
    QCOMPARE(box(editor(), "combx_planType")->currentIndex(), -1);
    QCOMPARE(code(editor(), "combx_instructionType"), QStringLiteral("1"));
}

void VocabularyTest::noTwoConstantsOfTheScriptedClientAreEqual()
{
    // Else a constant that is taken for another would not show in any test.
    QFile file(QStringLiteral(SCRIPTED_CONSTANTS_FILE));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString source = QString::fromUtf8(file.readAll());
    QRegularExpressionMatchIterator it =
        QRegularExpression(QStringLiteral("const QString [\\w:]+ = (?:QStringLiteral|PURCHASE_CODE)\\(\"([^\"]*)\"\\)"))
            .globalMatch(source);
    QSet<QString> values;
    while (it.hasNext()) {
        const QString value = it.next().captured(1);
        QVERIFY2(!values.contains(value), qPrintable(value));
        QVERIFY(!value.isEmpty());
        values.insert(value);
    }
    QCOMPARE(values.size(), source.count(QLatin1String("const QString ")));
    QVERIFY(values.size() > 80);
}

QTEST_MAIN(VocabularyTest)
#include "tst_vocabulary.moc"
