#include "AutoPlanLogic.h"
#include "EditorTest.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "OrloDoubleSpinBox.h"
#include "OrloFormulaNormal.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

#include <thread>

namespace {

QString typeListQuery(const QString& type, const QStringList& subTypes, const char* suffixes)
{
    return QStringLiteral("GetAllSymbolByTypeList(%1, [%2], %3, false, [])")
        .arg(type, subTypes.join(QStringLiteral(", ")), QLatin1String(suffixes));
}

QString typeQuery(const QString& type, const QString& subType)
{
    return QStringLiteral("GetAllSymbolByType(%1, %2, \"\", false, [])").arg(type, subType);
}

} // namespace

/// The security and the fields that depend on it. tst_choices compares what the form shows for each security with the
/// model.
class SecurityFieldsTest : public EditorTest {
    Q_OBJECT

private:
    void answer(const QString& symbol, const QStringList& names, const QString& error = QString())
    {
        Q_EMIT AutoPlanLogic::instance().signalQuerySymbolMAResponse(symbol, names, error);
    }

    /// The last name that the formula input offers.
    QString lastName() const { return field<OrloFormulaNormal>(editor(), "lineEdit_price1")->FormulaItems().last(); }

private Q_SLOTS:
    void aTypeOffersItsSecurities_data()
    {
        using namespace Kelvo_Values::MdcSecurityType;
        using namespace Kelvo_Values::MdcSubSecurityType;
        using namespace Orlo_Values::MdcSubSecurityType;
        namespace Instruction = AutoPlanInstructionType;
        QTest::addColumn<QString>("instructionType");
        QTest::addColumn<bool>("byAmount");
        QTest::addColumn<QStringList>("queries");
        const char* const mainland = "[.K_SH, .K_SZ]";
        const QString stocks =
            typeListQuery(StockType, { Ashares, Gemstock, ScienTechInnovateBoard, BjSelectedStock }, "[]");
        const QString creditStocks =
            typeListQuery(StockType, { Ashares, Smallandmediumstock, Gemstock, ScienTechInnovateBoard }, "[]");
        const QString funds = typeQuery(FundType, TradingopenindexfundETF);
        const QString trusts = typeListQuery(FundType, { Reits }, mainland);
        const QString convertibles = typeListQuery(BondType, ConvertableBondTypeList, mainland);
        const QString bonds = typeListQuery(BondType,
            lines("o_bond_treasury\no_bond_convertible\no_bond_corporate") << Assetbackedsecurities, mainland);
        const QString connect = typeQuery(StockType, HStcokCirculation);
        QTest::newRow("ordinary by quantity") << Instruction::Ordinary << false << QStringList{ stocks, funds, trusts };
        QTest::newRow("ordinary by amount: neither funds nor trusts")
            << Instruction::Ordinary << true << QStringList{ stocks };
        QTest::newRow("credit by quantity")
            << Instruction::Credit << false << QStringList{ creditStocks, convertibles, trusts };
        QTest::newRow("credit by amount: no trusts")
            << Instruction::Credit << true << QStringList{ creditStocks, convertibles };
        QTest::newRow("bonds by quantity: no directed convertibles")
            << Instruction::Bond << false << QStringList{ bonds };
        QTest::newRow("bonds by amount") << Instruction::Bond << true << QStringList{ bonds };
        QTest::newRow("Hong Kong connect") << Instruction::HkConnect << false << QStringList{ connect };
    }

    void aTypeOffersItsSecurities()
    {
        QFETCH(QString, instructionType);
        QFETCH(bool, byAmount);
        QFETCH(QStringList, queries);
        script().ruleProperty = AutoPlanRuleProperty::Review;
        if (instructionType == AutoPlanInstructionType::Credit)
            script().addCreditAccount(Account);
        else
            script().addOrdinaryAccount(Account);
        construct();
        choose(editor(), "combx_instructionType", instructionType);
        choose(editor(), "combx_instructionTargetType",
            byAmount ? InstructionTargetType::AmountOrder : InstructionTargetType::QtyOrder);
        // Every query returns one symbol, which contains the query's position.
        int asked = 0;
        script().symbols = [&asked](const SymbolQuery&) { return SymbolList({ QString::number(++asked) }); };
        // Again from an empty script, to see the calls of one refill alone.
        script().forget();
        callSlot("slotComboxInstructionTargetTypeChanged");
        const QStringList answers = lines("1\n2\n3").mid(0, queries.size());
        const QStringList expected = lines("le_symbol.setSymbol(\"\")") + queries
            + lines(R"(
            le_symbol.setSecurityList([LIST])
            le_symbol.setSearchMode(1)
            le_symbol.setMinMatchLength(6))")
                  .replaceInStrings(QStringLiteral("LIST"), answers.join(QStringLiteral(", ")));
        const int start = script().calls.indexOf(expected.constFirst());
        QCOMPARE(script().calls.mid(start, expected.size()), expected);
        QCOMPARE(script().countOf(QStringLiteral("le_symbol.setSecurityList")), 1);
    }

    void choosingNoSecurityEmptiesItsFieldsAndNothingElse()
    {
        openWithAccount();
        chooseSecurity(editor(), HkStock);
        choose(editor(), "combx_priceMode", AutoPlanPriceModel::Custom);
        type(editor(), "lineEdit_price1", QStringLiteral("昨收价"));
        QVERIFY(isOffered(editor(), "label_targetQtyStep"));
        script().forget();
        chooseSecurity(editor(), QString());
        QCOMPARE(script().calls, lines("le_symbol.setSymbol(\"\")"));
        for (const char* const name :
            { "la_symbolName", "le_exchange", "label_targetQtyStep", "label_maxEntrustQtyStep" })
            QCOMPARE(text(editor(), name), QString());
        QVERIFY(!isOffered(editor(), "label_targetQtyStep"));
        QVERIFY(!isOffered(editor(), "label_maxEntrustQtyStep"));
        QCOMPARE(text(editor(), "lineEdit_price1"), QStringLiteral("昨收价"));
    }

    void aSecurityTakesItsStepsInOrder()
    {
        openWithAccount();
        script().tradeDates = QList<QDate>{ QDate(2024, 5, 7) };
        chooseSecurity(editor(), Stock);
        // The market, the unit, the prices and modes, the algorithms, the averages, the effective period.
        QCOMPARE(script().calls, lines(R"(
            le_symbol.setSymbol(600000.K_SH)
            GetFirstSecurityExchangeBySymbol(600000.K_SH)
            GetStaticCfgValue(oc_DictionaryKey_exchangeChineseName, k_Exchange_sh)
            GetSecuritySubTypeBySymbol(600000.K_SH)
            GetSecurityTypeBySymbol(600000.K_SH)
            GetSecurityTypeBySymbol(600000.K_SH)
            lineEdit_price1.SetFunctionItems([])
            IsSymbolHasPriceLimit(600000.K_SH)
            lineEdit_price1.SetFormulaItems([昨收价, 涨停价, 跌停价])
            lineEdit_price2.SetFormulaItems([昨收价, 涨停价, 跌停价])
            GetPricePrecisionBySymbol(600000.K_SH, "")
            GetCurrentUserInstructionRuleProper(acc1, 1)
            getWhiteAlgoNameList(1, tt_QtyOrder, 600000.K_SH)
            getBlackAlgoNameList(tt_QtyOrder)
            signalQuerySymbolMAInfo(acc1, 600000.K_SH)
            GetFirstSecurityExchangeBySymbol(600000.K_SH)
            GetTradeDateList(k_Exchange_sh, "")
            date_effectivePeriod_Multi.SetExceptDateList([])
            date_effectivePeriod_Single.SetExceptDateList([])
            date_effectivePeriod_Multi.SetMinDate(2024-05-07)
            date_effectivePeriod_Multi.SetMaxDate(2024-05-07)
            date_effectivePeriod_Multi.SetStartEndDate(2024-05-07, 2024-05-07)
            date_effectivePeriod_Single.SetMinDate(2024-05-07)
            date_effectivePeriod_Single.SetMaxDate(2024-08-07)
            date_effectivePeriod_Single.SetDate(2024-05-07))"));
    }

    void aSecurityRefillsTheEntrustTypesBetweenUnitAndPrices()
    {
        script().addCreditAccount(Account);
        addSecurities();
        construct();
        script().forget();
        chooseSecurity(editor(), Stock);
        const QStringList calls = script().calls;
        const int unit = calls.indexOf(QStringLiteral("GetSecurityTypeBySymbol(600000.K_SH)"));
        const int entrustType = calls.indexOf(script().callsOf(QStringLiteral("GetSideUnionChineseName")).value(0));
        const int prices = calls.indexOf(QStringLiteral("IsSymbolHasPriceLimit(600000.K_SH)"));
        QVERIFY(0 <= unit && unit < entrustType && entrustType < prices);
    }

    void aSecurityUpdatesAnOpenAlgorithmPanel_data()
    {
        QTest::addColumn<int>("ruleProperty");
        QTest::addColumn<int>("updates");
        QTest::newRow("by the security alone") << 0 << 1;
        QTest::newRow("by the instruction modes as well, where they are rebuilt under review") << 1 << 2;
    }

    void aSecurityUpdatesAnOpenAlgorithmPanel()
    {
        QFETCH(int, ruleProperty);
        QFETCH(int, updates);
        script().ruleProperty = ruleProperty;
        openWithAccount();
        press(editor(), "btn_algoParamSetting");
        script().forget();
        chooseSecurity(editor(), OtherStock);
        QCOMPARE(script().countOf(QStringLiteral("panel.ReInit")), updates);
        const int lists = script().calls.indexOf(script().callsOf(QStringLiteral("getBlackAlgoNameList")).value(0));
        QCOMPARE(script().calls.mid(lists + 1, 2), lines("panel.ReInit()\nsignalQuerySymbolMAInfo(acc1, 000001.K_SZ)"));
    }

    void theLotStepFollowsTheSubType_data()
    {
        QTest::addColumn<QString>("subType");
        QTest::addColumn<int>("step");
        QTest::addColumn<QString>("shown");
        const QString connect = Orlo_Values::MdcSubSecurityType::HStcokCirculation;
        QTest::newRow("a step of one") << connect << 1 << "1";
        QTest::newRow("an unknown step") << connect << 0 << "0";
        QTest::newRow("the exchange does not count") << Kelvo_Values::MdcSubSecurityType::Ashares << 500 << QString();
    }

    void theLotStepFollowsTheSubType()
    {
        QFETCH(QString, subType);
        QFETCH(int, step);
        QFETCH(QString, shown);
        openWithAccount();
        script().securities[HkStock].subType = subType;
        script().securities[HkStock].qtyStep = step;
        chooseSecurity(editor(), HkStock);
        for (const char* const name : { "label_targetQtyStep", "label_maxEntrustQtyStep" }) {
            QCOMPARE(text(editor(), name), shown);
            QCOMPARE(isOffered(editor(), name), !shown.isEmpty());
        }
        QCOMPARE(script().countOf(QStringLiteral("GetQtyStepBySymbol")), shown.isEmpty() ? 0 : 1);
    }

    void theUnitStaysWithoutATargetType()
    {
        openWithAccount();
        chooseSecurity(editor(), Bond);
        box(editor(), "combx_instructionTargetType")->setCurrentIndex(-1);
        chooseSecurity(editor(), Stock);
        QCOMPARE(text(editor(), "lab_targetTotalNumUnit"), QStringLiteral("张"));
        QCOMPARE(text(editor(), "lab_entrustMaxNumUnit"), QStringLiteral("张"));
    }

    // --- The averages

    void withoutAnAccountTheAveragesAreAskedForAllTheSame()
    {
        script().addOrdinaryAccount(OtherAccount);
        openWithAccount();
        const QSignalSpy query(&editor(), &AutoParamSetting::signalQuerySymbolMAInfo);
        chooseSecurity(editor(), Stock);
        QCOMPARE(query.count(), 1);
        QCOMPARE(query.constFirst(), QVariantList({ QString(), Stock }));
    }

    void theAveragesOfTheLastSecurityLastUntilTheAnswer()
    {
        openWithAccount();
        chooseSecurity(editor(), Stock);
        answer(Stock, lines("MA5"));
        chooseSecurity(editor(), OtherStock);
        // The names are rebuilt before the averages are cleared, and again with the answer.
        QCOMPARE(lastName(), QStringLiteral("MA5"));
        answer(OtherStock, {}, QStringLiteral("行情不足"));
        QCOMPARE(lastName(), QStringLiteral("跌停价"));
    }

    void anAnswerWithinTheQueryIsKept()
    {
        openWithAccount();
        script().onCall = [this](const ScriptCall& call) {
            if (call.operation == QLatin1String("signalQuerySymbolMAInfo"))
                answer(Stock, lines("MA10"));
        };
        chooseSecurity(editor(), Stock);
        script().onCall = nullptr;
        QCOMPARE(lastName(), QStringLiteral("MA10"));
        // Still there when the names are rebuilt later.
        choose(editor(), "combx_priceMode", AutoPlanPriceModel::Custom);
        QCOMPARE(lastName(), QStringLiteral("MA10"));
    }

    void anAnswerForAnotherSecurityIsIgnored()
    {
        openWithAccount();
        chooseSecurity(editor(), Stock);
        script().forget();
        answer(OtherStock, lines("MA5"));
        QCOMPARE(script().calls, QStringList());
        choose(editor(), "combx_priceMode", AutoPlanPriceModel::Custom);
        QCOMPARE(lastName(), QStringLiteral("跌停价"));
    }

    void anErrorAfterAnAnswerKeepsTheAverages()
    {
        openWithAccount();
        chooseSecurity(editor(), Stock);
        answer(Stock, lines("MA5"));
        answer(Stock, {}, QStringLiteral("查询失败"));
        QCOMPARE(lastName(), QStringLiteral("MA5"));
        QCOMPARE(said(), QStringList());
        answer(Stock, {});
        QCOMPARE(lastName(), QStringLiteral("跌停价"));
    }

    void anAnswerIsLogged()
    {
        openWithAccount();
        answer(Stock, lines("MA5\nMA60"), QStringLiteral("查询失败"));
        QCOMPARE(log().lines().size(), 1);
        const LogLine line = log().lines().constFirst();
        QCOMPARE(line.type, QtDebugMsg);
        QVERIFY(line.text.startsWith(QStringLiteral("AutoParamSetting::slotQuerySymbolMAResponse")));
        for (const QString& part : lines("600000.K_SH\nMA5\nMA60\n查询失败"))
            QVERIFY2(line.text.contains(part), qPrintable(line.text));
    }

    void anAnswerFromAnotherThreadArrives()
    {
        openWithAccount();
        chooseSecurity(editor(), Stock);
        std::thread worker([this] { answer(Stock, lines("MA120")); });
        worker.join();
        QCOMPARE(lastName(), QStringLiteral("跌停价"));
        QCoreApplication::processEvents();
        QCOMPARE(lastName(), QStringLiteral("MA120"));
    }

    void anAnswerAfterTheEditorIsGoneIsIgnored()
    {
        openWithAccount();
        chooseSecurity(editor(), Stock);
        // One answer is queued when the editor is deleted, another one arrives later.
        std::thread worker([this] { answer(Stock, lines("MA120")); });
        worker.join();
        destroy();
        script().forget();
        QCoreApplication::processEvents();
        answer(Stock, lines("MA5"));
        QCOMPARE(script().calls, QStringList());
    }

    void theHostMayDeleteTheEditorWhenItHearsTheQuery_data()
    {
        QTest::addColumn<int>("queries");
        QTest::newRow("at once") << 1;
        QTest::newRow("after it chose another security there") << 2;
    }

    void theHostMayDeleteTheEditorWhenItHearsTheQuery()
    {
        QFETCH(int, queries);
        openWithAccount();
        const QPointer<QWidget> searchBox = field<QWidget>(editor(), "le_symbol");
        int heard = 0;
        bool boxIsLeft = false;
        connect(&editor(), &AutoParamSetting::signalQuerySymbolMAInfo, this, [&] {
            if (++heard == queries) {
                destroy();
                script().forget();
                return;
            }
            chooseSecurity(editor(), OtherStock);
            // The inner signal has returned, the outer one is still being emitted.
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            boxIsLeft = !searchBox.isNull();
        });
        chooseSecurity(editor(), Stock);
        QCOMPARE(heard, queries);
        QCOMPARE(script().calls, QStringList());
        QCOMPARE(boxIsLeft, queries > 1);
        QVERIFY(!searchBox.isNull());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(searchBox.isNull());
    }

    void theServiceMayDeleteTheEditorWhenItHearsTheQuery()
    {
        openWithAccount();
        destroyDuring(QStringLiteral("signalQuerySymbolMAInfo"));
        chooseSecurity(editor(), Stock);
        QCOMPARE(script().calls, QStringList());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // --- The numbers

    void theNumberInputsAreSetUp()
    {
        script().addOrdinaryAccount(Account);
        construct();
        for (const char* const name : { "le_targetTotalNum", "le_entrustMaxNum", "le_reduceHRatio" }) {
            const bool isRatio = qstrcmp(name, "le_reduceHRatio") == 0;
            const auto* const input = field<OrloDoubleSpinBox>(editor(), name);
            QCOMPARE(input->minimum(), 0.0);
            QCOMPARE(input->maximum(), isRatio ? 1.0 : 2000000000.0);
            QCOMPARE(input->decimals(), isRatio ? 4 : 0);
        }
    }

    void anUnknownSecurityLeavesItsFieldsEmpty()
    {
        openWithAccount();
        chooseSecurity(editor(), Unknown);
        QCOMPARE(text(editor(), "la_symbolName"), QString());
        QCOMPARE(text(editor(), "le_exchange"), QString());
        QVERIFY(!isOffered(editor(), "label_targetQtyStep"));
        QCOMPARE(script().callsOf(QStringLiteral("signalQuerySymbolMAInfo")),
            lines("signalQuerySymbolMAInfo(acc1, 999999.K_SH)"));
        QCOMPARE(script().callsOf(QStringLiteral("GetTradeDateList")), lines("GetTradeDateList(\"\", \"\")"));
    }
};

QTEST_MAIN(SecurityFieldsTest)
#include "tst_security_fields.moc"
