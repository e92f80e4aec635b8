#include "AutoPlanLogic.h"
#include "EditorTest.h"
#include "OrloFormulaNormal.h"
#include "PlanVocabulary.h"

#include <QtTest>

/// The prices. tst_choices compares what each mode and security offers with the model; these tests cover the order of
/// the steps and the special cases.
class PriceFieldsTest : public EditorTest {
    Q_OBJECT

private:
    void answerAverages(const QStringList& names)
    {
        Q_EMIT AutoPlanLogic::instance().signalQuerySymbolMAResponse(Stock, names, QString());
    }

private Q_SLOTS:
    void aModeOutsideTheVocabularyComparesPrices_data()
    {
        QTest::addColumn<bool>("isChosen");
        QTest::newRow("any other mode") << true;
        QTest::newRow("no mode") << false;
    }

    void aModeOutsideTheVocabularyComparesPrices()
    {
        QFETCH(bool, isChosen);
        openWithAccount();
        box(editor(), "combx_priceMode")->addItem(QStringLiteral("another"), QStringLiteral("99"));
        box(editor(), "combx_priceMode")->setCurrentIndex(isChosen ? 4 : -1);
        QCOMPARE(text(editor(), "label_price1"), QStringLiteral("价格1"));
        QVERIFY(isUsable(editor(), "lineEdit_price1"));
        for (const char* const name : { "label_price2", "lineEdit_price2", "label_28" })
            QVERIFY2(isOffered(editor(), name), name);
    }

    void aPriceModeTakesItsStepsInOrder()
    {
        openWithAccount();
        chooseSecurity(editor(), Stock);
        answerAverages(lines("MA5"));
        QCOMPARE(stepsOf([this] { choose(editor(), "combx_priceMode", AutoPlanPriceModel::CompareMax); }), lines(R"(
            combx_priceMode announces 比较值取最大
            GetSecurityTypeBySymbol(600000.K_SH)
            lineEdit_price1.SetFunctionItems([])
            IsSymbolHasPriceLimit(600000.K_SH)
            lineEdit_price1.SetFormulaItems([昨收价, 涨停价, 跌停价, MA5])
            lineEdit_price2.SetFormulaItems([昨收价, 涨停价, 跌停价, MA5])
            GetPricePrecisionBySymbol(600000.K_SH, "")
            lineEdit_price1.setEnabled(true)
            label_price2.show()
            lineEdit_price2.show()
            label_28.show()
            GetCurrentUserInstructionRuleProper(acc1, 1)
            combx_instructionMode.clear()
            combx_instructionMode announces ""
            combx_instructionMode.append(主动管理, 1)
            combx_instructionMode announces 主动管理)"));
    }

    void noLimitTakesItsStepsInOrder()
    {
        openWithAccount();
        choose(editor(), "combx_priceMode", AutoPlanPriceModel::CompareMin);
        const QStringList steps = stepsOf([this] { choose(editor(), "combx_priceMode", AutoPlanPriceModel::NoLimit); });
        QCOMPARE(steps.mid(0, 11), lines(R"(
            combx_priceMode announces 不限价
            GetSecurityTypeBySymbol("")
            lineEdit_price1.SetFunctionItems([])
            IsSymbolHasPriceLimit("")
            lineEdit_price1.SetFormulaItems([昨收价])
            lineEdit_price2.SetFormulaItems([昨收价])
            lineEdit_price1.setEnabled(false)
            label_price2.hide()
            lineEdit_price2.hide()
            label_28.hide()
            GetCurrentUserInstructionRuleProper(acc1, 1))"));
        QCOMPARE(script().countOf(QStringLiteral("GetCurrentUserInstructionRuleProper")), 1);
    }

    void aLateAverageKeepsTheFormulas()
    {
        using namespace AutoPlanPriceModel;
        openWithAccount();
        chooseSecurity(editor(), Stock);
        for (const QString& mode : { Custom, CompareMax, CompareMin }) {
            choose(editor(), "combx_priceMode", mode);
            type(editor(), "lineEdit_price1", QStringLiteral("昨收价*1.01 "));
            for (const QString& second : { QStringLiteral("跌停价"), QString() }) {
                type(editor(), "lineEdit_price2", second);
                answerAverages(lines("MA5"));
                QCOMPARE(text(editor(), "lineEdit_price1"), QStringLiteral("昨收价*1.01 "));
                QCOMPARE(text(editor(), "lineEdit_price2"), second);
            }
        }
    }

    void pricesCanBeChosenWhenNoServiceAnswersAnything()
    {
        script().staticTexts.clear();
        script().tradeDates = QList<QDate>();
        log().expectWarning(QStringLiteral("AutoParamSetting::InitDateEffectivePeriod"));
        constructShown();
        QCOMPARE(box(editor(), "combx_priceMode")->count(), 4);
        QCOMPARE(text(editor(), "lineEdit_price1"), QStringLiteral("0.00"));
        QCOMPARE(field<OrloFormulaNormal>(editor(), "lineEdit_price1")->FormulaItems(), lines("昨收价"));
        choose(editor(), "combx_priceMode", AutoPlanPriceModel::CompareMin);
        QCOMPARE(text(editor(), "lineEdit_price1"), QString());
        QVERIFY(isOffered(editor(), "lineEdit_price2"));
    }
};

QTEST_MAIN(PriceFieldsTest)
#include "tst_price_fields.moc"
