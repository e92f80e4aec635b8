#include "EditorTest.h"
#include "PlanSample.h"
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
    void eachConstantHasItsCode_data()
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
        row("no user named", AutoPlanAssignee::NotSpecified, "默认不指定");
        row("one percent in ninety days", ReduceHoldingsMode::Continuous90Days, "1");
        row("the field of the target type", AutoPlanFieldId::TargetType, "57134");
        row("the field of the account's branch", AutoPlanFieldId::Account10112, "10112");
        row("the field of the entrust type", AutoPlanFieldId::MarginInstructionSideType, "MarginInstructionSideType");
        row("the field of an instruction's end", AutoPlanFieldId::InstructionEnded, "12013");
        row("the field of the filled quantity", AutoPlanFieldId::FilledQty, "14");
        row("the field of the issued quantity", AutoPlanFieldId::IssuedQty, "38");
        row("the field of the issued amount", AutoPlanFieldId::IssuedAmount, "217201");
        row("texts of instruction types", AutoPlanStaticCfg::InstructionType, "AutoPlanInstructionType");
        row("texts of target types", AutoPlanStaticCfg::TargetType, "InstructionTargetType");
        row("the previous close", AutoPlanFormula::PreviousClose, "昨收价");
        row("the upper limit", AutoPlanFormula::UpperLimit, "涨停价");
        row("the lower limit", AutoPlanFormula::LowerLimit, "跌停价");
    }

    void eachConstantHasItsCode()
    {
        QFETCH(QString, constant);
        QFETCH(QString, code);
        QCOMPARE(constant, code);
    }

    void listsHaveTheirEntriesInOrder()
    {
        QCOMPARE(AutoPlanFormula::PromptOrder.join(QLatin1Char(' ')),
            QStringLiteral("昨收价 涨停价 跌停价 MA20 MA60 MA120 MA5 MA10 MA250"));
        QCOMPARE(AutoPlanRuleProperty::NoReview, 0);
        QCOMPARE(AutoPlanRuleProperty::Review, 1);
        QCOMPARE(AutoPlanAlgo::NoUnlimitedPriceList, lines("ICEBERG2\nSNIPER"));
        QCOMPARE(AutoPlanFormula::CompareFunctions, lines("max(,)\nmin(,)"));
    }

    void textsOfInstructionTypesComeFromTheConfiguration()
    {
        script().staticTexts.insert(QStringLiteral("AutoPlanInstructionType/1"), QStringLiteral("甲"));
        script().staticTexts.insert(QStringLiteral("AutoPlanInstructionType/5"), QStringLiteral("乙"));
        script().staticTexts.insert(QStringLiteral("AutoPlanInstructionType/9"), QStringLiteral("丙"));
        script().addOrdinaryAccount(Account);
        construct();
        QCOMPARE(texts(editor(), "combx_instructionType"), lines("甲\n乙\n丙"));
        QCOMPARE(codes(editor(), "combx_instructionType"), lines("1\n5\n9"));
    }

    void textsOfTargetTypesComeFromTheConfiguration()
    {
        script().staticTexts.insert(QStringLiteral("InstructionTargetType/tt_QtyOrder"), QStringLiteral("甲"));
        script().staticTexts.insert(QStringLiteral("InstructionTargetType/tt_AmountOrder"), QStringLiteral("乙"));
        script().ruleProperty = AutoPlanRuleProperty::Review;
        script().addOrdinaryAccount(Account);
        construct();
        QCOMPARE(texts(editor(), "combx_instructionTargetType"), lines("甲\n乙"));
        QCOMPARE(codes(editor(), "combx_instructionTargetType"), lines("tt_QtyOrder\ntt_AmountOrder"));
    }

    void planTypesAreComparedCaseSensitively()
    {
        script().addOrdinaryAccount(Account);
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

    void storedCodesAreFoundCaseSensitively()
    {
        openSampleMarket();
        storePlan(PlanId, PlanSample().withPlanType(QStringLiteral("tw-01")));
        construct();
        QCOMPARE(box(editor(), "combx_planType")->currentIndex(), 0);
        openPlan(PlanId, false);
        QCOMPARE(box(editor(), "combx_planType")->currentIndex(), -1);
        QCOMPARE(code(editor(), "combx_instructionType"), AutoPlanInstructionType::Ordinary);
    }

    void noTwoConstantsOfTheScriptedClientAreEqual()
    {
        // Otherwise no test would notice a constant used in place of another.
        QFile file(QStringLiteral(SCRIPTED_CONSTANTS_FILE));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString source = QString::fromUtf8(file.readAll());
        QRegularExpressionMatchIterator it = QRegularExpression(
            QStringLiteral("const QString [\\w:]+ = (?:QStringLiteral|PURCHASE_CODE)\\(\"([^\"]*)\"\\)"))
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
};

QTEST_MAIN(VocabularyTest)
#include "tst_vocabulary.moc"
