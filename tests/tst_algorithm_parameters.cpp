#include "AesStrategy.h"
#include "AlgoTradeLogicNew.h"
#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "EditorTest.h"
#include "Orlo_Values.h"
#include "ParamListWidget_single.h"
#include "PlanForm.h"

#include <QPointer>
#include <QtTest>
#include <thread>
#include <type_traits>

static_assert(std::is_same_v<decltype(&ParamListWidget_single::setBaseInfoData),
                  AlgoErrorCode (ParamListWidget_single::*)(QMap<QString, QVariant>, bool)>,
    "the panel takes a copy of the base data");

namespace {

namespace Content = Algo_Fields::AlgoInstContentInfo;
using FieldMap = QMap<QString, QVariant>;

const QString Account = QStringLiteral("acc1");
const QString Stock = QStringLiteral("600000.K_SH");
const QString OtherStock = QStringLiteral("000001.K_SZ");

const QString Twap = QStringLiteral("TWAP");
const QString Vwap = QStringLiteral("VWAP");

} // namespace

class tst_algorithm_parameters : public EditorTest {
    Q_OBJECT

private Q_SLOTS:
    void withoutAnAccountOnlyTheWarningAppears();
    void theFirstPressMakesThePanel();
    void theFirstPressTakesItsStepsInOrder();
    void aLaterPressReusesThePanel();
    void thePanelOfALoadedPlanIsReused();
    void thePanelSurvivesASentPlan();

    void theAuthorisedAlgorithmIsLoaded_data();
    void theAuthorisedAlgorithmIsLoaded();
    void thePanelIsShown_data();
    void thePanelIsShown();
    void thePanelIsPlaced();
    void thePlanIsHandedOver_data();
    void thePlanIsHandedOver();
    void theEntrustTypeIsTranslated_data();
    void theEntrustTypeIsTranslated();
    void aFailureToLoadIsShownAsItStands_data();
    void aFailureToLoadIsShownAsItStands();
    void aFailureToLoadIsShownAfterTheBaseData();
    void theOutcomeOfTheBaseDataIsNotLookedAt();
    void aPressIsLogged();

    void theListsFollowTheForm_data();
    void theListsFollowTheForm();
    void theListsReachThePanelWithTheNextPress();
    void theListsAreReplacedWhole();
    void anAnswerOfTheServiceRefreshesTheLists();
    void anAnswerFromAnotherThreadRefreshesTheLists();

    void anAnswerAfterTheEditorIsGoneIsIgnored();
    void theEditorMayBeDeletedWhileItsPanelIsOpen();
    void theEditorMayBeDeletedWhileThePanelIsFilled_data();
    void theEditorMayBeDeletedWhileThePanelIsFilled();
    void theEditorMayBeDeletedWhileTheWarningIsOpen();
    void theEditorMayBeDeletedWhileTheErrorIsOpen();
    void pressedAgainWhileTheErrorIsOpenItKeepsOnePanel();

private:
    void open();
    void pressButton() { press(editor(), "btn_algoParamSetting"); }
    ParamListWidget_single* panel() const { return editor().findChild<ParamListWidget_single*>(); }
    QStringList callsFrom(const QString& operation) const;
};

void tst_algorithm_parameters::open()
{
    if (script().accounts.isEmpty())
        script().addOrdinaryAccount(Account);
    script().addStock(Stock);
    script().addStock(OtherStock);
    script().ruleProperty = 1;
    script().strategyAliases = { { Twap, QStringLiteral("时间加权") }, { Vwap, QStringLiteral("成交量加权") } };
    constructShown();
    script().forget();
    log().clear();
}

/// The calls from the first one of an operation on.
QStringList tst_algorithm_parameters::callsFrom(const QString& operation) const
{
    const QStringList found = script().callsOf(operation);
    return found.isEmpty() ? QStringList() : script().calls.mid(script().calls.indexOf(found.constFirst()));
}

void tst_algorithm_parameters::withoutAnAccountOnlyTheWarningAppears()
{
    script().addOrdinaryAccount(Account);
    script().addOrdinaryAccount(QStringLiteral("acc2"));
    open();
    pressButton();
    QCOMPARE(script().calls, QStringList(QStringLiteral("ShowWarningMsgBox(未选择资金帐号！, AutoParamSetting)")));
    QCOMPARE(script().boxes.size(), 1);
    QCOMPARE(script().boxes.constFirst().parent, static_cast<QWidget*>(&editor()));
    QVERIFY(panel() == nullptr);
    // With one it works.
    choose(editor(), "combx_fundAccount", Account);
    pressButton();
    QVERIFY(panel() != nullptr);
    QCOMPARE(script().boxes.size(), 1);
}

void tst_algorithm_parameters::theFirstPressMakesThePanel()
{
    open();
    script().whiteAlgoNames = QStringList{ Twap, Vwap };
    script().blackAlgoNames = QStringList{ QStringLiteral("SNIPER") };
    chooseSecurity(editor(), Stock);
    script().forget();
    pressButton();
    QCOMPARE(script().callsOf(QStringLiteral("CreateStrategyWgt")),
        QStringList(QStringLiteral(
            "CreateStrategyWgt(2, AutoParamSetting, av_AlgoGlobalType_instruction, [TWAP, VWAP], [], 3)")));
    QVERIFY(panel() != nullptr);
    QCOMPARE(panel()->parentWidget(), static_cast<QWidget*>(&editor()));
    QCOMPARE(static_cast<int>(panel()->windowFlags()), 0x4080B);
    QCOMPARE(panel()->windowModality(), Qt::ApplicationModal);
    QVERIFY(panel()->isWindow());
}

void tst_algorithm_parameters::theFirstPressTakesItsStepsInOrder()
{
    open();
    script().whiteAlgoNames = QStringList{ Twap, Vwap };
    script().blackAlgoNames = QStringList{ QStringLiteral("SNIPER") };
    script().authorityAlgoNames = QStringList{ Vwap, Twap };
    script().panelStrategy = Twap;
    script().panelParams = { { QStringLiteral("Slices"), 12 } };
    chooseSecurity(editor(), Stock);
    script().forget();
    pressButton();
    QCOMPARE(script().calls,
        QStringList({ QStringLiteral(
                          "CreateStrategyWgt(2, AutoParamSetting, av_AlgoGlobalType_instruction, [TWAP, VWAP], [], 3)"),
            QStringLiteral("panel.GetStrategyName()"), QStringLiteral("panel.GetParamMap()"),
            QStringLiteral("panel.setAlgoWhiteList([TWAP, VWAP])"), QStringLiteral("panel.setAlgoBlackList([SNIPER])"),
            QStringLiteral("panel.RefreshAlgoList()"), QStringLiteral("panel.getAuthorityAlgoList()"),
            QStringLiteral("GetStrategy(TWAP)"),
            QStringLiteral("panel.LoadStrategy(TWAP, {}, {Slices: 12}, 600000.K_SH)"),
            QStringLiteral("GetWidgetPos(\"\", 2)"),
            QStringLiteral("GetStaticCfgValue(oc_DictionaryKey_SideUnion2AlgoDefines, \"\")"),
            QStringLiteral("panel.setBaseInfoData({af_AlgoInstContentInfo_EntrustProp: \"\", "
                           "af_AlgoInstContentInfo_OrderSide: av_AlgoOrderSide_BuyValue, "
                           "af_AlgoInstContentInfo_Symbol: 600000.K_SH, "
                           "af_AlgoInstContentInfo_TradingAccount: acc1}, false)") }));
}

void tst_algorithm_parameters::aLaterPressReusesThePanel()
{
    open();
    pressButton();
    ParamListWidget_single* const first = panel();
    first->close();
    script().forget();
    pressButton();
    QCOMPARE(script().countOf(QStringLiteral("CreateStrategyWgt")), 0);
    QCOMPARE(script().calls.constFirst(), QStringLiteral("panel.GetStrategyName()"));
    QCOMPARE(panel(), first);
    QCOMPARE(editor().findChildren<ParamListWidget_single*>().size(), 1);
    QVERIFY(first->isVisible());
}

void tst_algorithm_parameters::thePanelOfALoadedPlanIsReused()
{
    open();
    FieldMap plan = storedPlan(QStringLiteral("P1"), Stock, Account);
    plan.insert(AutoPlanField::BaseField::InstMode, QStringLiteral("3"));
    setOtherParam(plan, AutoPlanField::BaseField::algoStrategyName, Twap);
    script().plans.insert(QStringLiteral("P1"), plan);
    editor().copyPlan(QStringLiteral("P1"));
    QCOMPARE(script().countOf(QStringLiteral("CreateStrategyWgt")), 1);
    ParamListWidget_single* const loaded = panel();
    QCOMPARE(static_cast<int>(loaded->windowFlags()), 0x4080B);
    QCOMPARE(loaded->windowModality(), Qt::ApplicationModal);
    pressButton();
    QCOMPARE(script().countOf(QStringLiteral("CreateStrategyWgt")), 1);
    QCOMPARE(panel(), loaded);
}

void tst_algorithm_parameters::thePanelSurvivesASentPlan()
{
    open();
    fillPlan(editor(), Stock);
    choose(editor(), "combx_instructionMode", QStringLiteral("3"));
    pressButton();
    ParamListWidget_single* const first = panel();
    script().panelHasParams = true;
    script().panelStrategy = Twap;
    script().panelParams = { { Content::TradingAccount, Account },
        { Content::OrderSide, Algo_Values::AlgoOrderSide::BuyValue } };
    script().forget();
    press(editor(), "btn_ok");
    QCOMPARE(script().createdRecords.size(), 1);
    QCOMPARE(script().countOf(QStringLiteral("panel.ClearParams")), 1);
    QCOMPARE(panel(), first);
    script().forget();
    pressButton();
    QCOMPARE(script().countOf(QStringLiteral("CreateStrategyWgt")), 0);
    QCOMPARE(panel(), first);
}

void tst_algorithm_parameters::theAuthorisedAlgorithmIsLoaded_data()
{
    QTest::addColumn<QStringList>("authorised");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("loaded");
    QTest::newRow("the chosen one, within what is authorised")
        << QStringList{ Vwap, Twap } << Twap << QStringLiteral("GetStrategy(TWAP)")
        << QStringLiteral("panel.LoadStrategy(TWAP, {}, {Slices: 12}, 600000.K_SH)");
    QTest::newRow("the first authorised one without parameters, where the chosen one is not authorised")
        << QStringList{ Vwap, QStringLiteral("POV") } << Twap << QStringLiteral("GetStrategy(VWAP)")
        << QStringLiteral("panel.LoadStrategy(VWAP, {}, {}, 600000.K_SH)");
    QTest::newRow("the first authorised one, where none is chosen")
        << QStringList{ Vwap, Twap } << QString() << QStringLiteral("GetStrategy(VWAP)")
        << QStringLiteral("panel.LoadStrategy(VWAP, {}, {}, 600000.K_SH)");
    QTest::newRow("names differ by case")
        << QStringList{ Vwap, QStringLiteral("twap") } << Twap << QStringLiteral("GetStrategy(VWAP)")
        << QStringLiteral("panel.LoadStrategy(VWAP, {}, {}, 600000.K_SH)");
    QTest::newRow("an empty authority list changes nothing")
        << QStringList() << Twap << QStringLiteral("GetStrategy(TWAP)")
        << QStringLiteral("panel.LoadStrategy(TWAP, {}, {Slices: 12}, 600000.K_SH)");
    QTest::newRow("nothing authorised and nothing chosen")
        << QStringList() << QString() << QStringLiteral("GetStrategy(\"\")")
        << QStringLiteral("panel.LoadStrategy(\"\", {}, {Slices: 12}, 600000.K_SH)");
    QTest::newRow("an algorithm that the service does not know")
        << QStringList() << QStringLiteral("OLD") << QStringLiteral("GetStrategy(OLD)")
        << QStringLiteral("panel.LoadStrategy(\"\", {}, {Slices: 12}, 600000.K_SH)");
}

void tst_algorithm_parameters::theAuthorisedAlgorithmIsLoaded()
{
    QFETCH(QStringList, authorised);
    QFETCH(QString, chosen);
    QFETCH(QString, asked);
    QFETCH(QString, loaded);
    open();
    chooseSecurity(editor(), Stock);
    script().authorityAlgoNames = authorised;
    script().panelStrategy = chosen;
    script().panelParams = { { QStringLiteral("Slices"), 12 } };
    script().forget();
    pressButton();
    QCOMPARE(script().callsOf(QStringLiteral("GetStrategy")), QStringList(asked));
    QCOMPARE(script().callsOf(QStringLiteral("panel.LoadStrategy")), QStringList(loaded));
}

void tst_algorithm_parameters::thePanelIsShown_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<bool>("shown");
    QTest::newRow("by the editor, where no algorithm is known") << QString() << true;
    QTest::newRow("by itself, where one is loaded") << Twap << true;
    QTest::newRow("not by the editor, where one is known that the panel does not load")
        << QStringLiteral("OLD") << false;
}

void tst_algorithm_parameters::thePanelIsShown()
{
    QFETCH(QString, chosen);
    QFETCH(bool, shown);
    open();
    script().panelStrategy = chosen;
    pressButton();
    QCOMPARE(panel()->isVisible(), shown);
}

void tst_algorithm_parameters::thePanelIsPlaced()
{
    open();
    script().widgetPos = QPoint(33, 44);
    pressButton();
    QCOMPARE(panel()->pos(), QPoint(33, 44));
    script().widgetPos = QPoint(55, 66);
    pressButton();
    QCOMPARE(panel()->pos(), QPoint(55, 66));
    QCOMPARE(script().countOf(QStringLiteral("GetWidgetPos")), 2);
}

void tst_algorithm_parameters::thePlanIsHandedOver_data()
{
    QTest::addColumn<QString>("side");
    QTest::addColumn<QString>("algorithmSide");
    QTest::newRow("a purchase") << Kelvo_Values::OrderSide::buy << Algo_Values::AlgoOrderSide::BuyValue;
    QTest::newRow("a sale") << Kelvo_Values::OrderSide::sell << Algo_Values::AlgoOrderSide::SellValue;
    QTest::newRow("a side that is neither") << QStringLiteral("neither") << QString();
    QTest::newRow("no side") << QString() << QString();
}

void tst_algorithm_parameters::thePlanIsHandedOver()
{
    QFETCH(QString, side);
    QFETCH(QString, algorithmSide);
    open();
    chooseSecurity(editor(), Stock);
    box(editor(), "combx_tradeSide")->addItem(QStringLiteral("neither"), QStringLiteral("neither"));
    if (side.isEmpty())
        box(editor(), "combx_tradeSide")->setCurrentIndex(-1);
    else
        choose(editor(), "combx_tradeSide", side);
    pressButton();
    FieldMap expected{ { Content::TradingAccount, Account }, { Content::Symbol, Stock },
        { Content::EntrustProp, QString() } };
    if (!algorithmSide.isEmpty())
        expected.insert(Content::OrderSide, algorithmSide);
    QCOMPARE(script().panelBaseData, expected);
    QVERIFY(
        script().callsOf(QStringLiteral("panel.setBaseInfoData")).constFirst().endsWith(QStringLiteral(", false)")));
}

void tst_algorithm_parameters::theEntrustTypeIsTranslated_data()
{
    QTest::addColumn<QString>("entrustType");
    QTest::addColumn<QString>("translation");
    QTest::newRow("a known one") << Orlo_Values::SideUnion::collateralSell << QStringLiteral("担保品卖出");
    QTest::newRow("one without a translation") << Orlo_Values::SideUnion::marginSell << QString();
}

void tst_algorithm_parameters::theEntrustTypeIsTranslated()
{
    QFETCH(QString, entrustType);
    QFETCH(QString, translation);
    script().addCreditAccount(Account);
    script().staticTexts.insert(QStringLiteral("oc_DictionaryKey_SideUnion2AlgoDefines/o_SideUnion_collateralSell"),
        QStringLiteral("担保品卖出"));
    open();
    chooseSecurity(editor(), Stock);
    choose(editor(), "combx_entrustType", entrustType);
    script().forget();
    pressButton();
    QVERIFY(script().panelBaseData.contains(Content::EntrustProp));
    QCOMPARE(script().panelBaseData.value(Content::EntrustProp).toString(), translation);
    QCOMPARE(script().callsOf(QStringLiteral("GetStaticCfgValue")),
        QStringList(QStringLiteral("GetStaticCfgValue(oc_DictionaryKey_SideUnion2AlgoDefines, %1)").arg(entrustType)));
}

void tst_algorithm_parameters::aFailureToLoadIsShownAsItStands_data()
{
    QTest::addColumn<QString>("result");
    QTest::addColumn<bool>("failed");
    QTest::newRow("success") << QStringLiteral("0") << false;
    QTest::newRow("a reason") << QStringLiteral("策略参数错误！") << true;
    QTest::newRow("a number") << QStringLiteral("1") << true;
    QTest::newRow("what only looks like success") << QStringLiteral("00") << true;
    QTest::newRow("with what looks like a place to fill") << QStringLiteral("%1") << true;
    QTest::newRow("an empty text") << QString() << true;
}

void tst_algorithm_parameters::aFailureToLoadIsShownAsItStands()
{
    QFETCH(QString, result);
    QFETCH(bool, failed);
    open();
    script().panelLoadAnswer = result;
    pressButton();
    QCOMPARE(script().boxes.size(), failed ? 1 : 0);
    if (!failed)
        return;
    QCOMPARE(script().boxes.constFirst().kind, QStringLiteral("error"));
    QCOMPARE(script().boxes.constFirst().text, result);
    QCOMPARE(script().boxes.constFirst().parent, static_cast<QWidget*>(&editor()));
    // The panel stays open beside the box.
    QVERIFY(panel()->isVisible());
}

void tst_algorithm_parameters::aFailureToLoadIsShownAfterTheBaseData()
{
    open();
    script().panelLoadAnswer = QStringLiteral("参数错误");
    pressButton();
    const QStringList rest = callsFrom(QStringLiteral("panel.setBaseInfoData"));
    QCOMPARE(rest.size(), 2);
    QCOMPARE(rest.at(1), QStringLiteral("ShowErrorMsgBox(参数错误, AutoParamSetting)"));
}

void tst_algorithm_parameters::theOutcomeOfTheBaseDataIsNotLookedAt()
{
    open();
    script().panelBaseDataAnswer = AlgoErrorCode::MissingField;
    pressButton();
    QCOMPARE(script().boxes.size(), 0);
    QVERIFY(panel()->isVisible());
}

void tst_algorithm_parameters::aPressIsLogged()
{
    open();
    script().whiteAlgoNames = QStringList{ QStringLiteral("white") };
    script().blackAlgoNames = QStringList{ QStringLiteral("black") };
    script().authorityAlgoNames = QStringList{ Vwap };
    script().panelStrategy = Twap;
    script().panelParams = { { QStringLiteral("Slices"), 12 } };
    chooseSecurity(editor(), Stock);
    log().clear();
    pressButton();
    const QList<LogLine> lines = log().linesWith(QtInfoMsg, QString());
    QCOMPARE(lines.size(), 2);
    for (const LogLine& line : lines)
        QVERIFY(line.text.startsWith(QStringLiteral("AutoParamSetting::slotBtnAlgoParamSettingClicked")));
    for (const QString& part :
        { Twap, QStringLiteral("Slices"), QStringLiteral("white"), QStringLiteral("black"), Vwap })
        QVERIFY2(lines.at(0).text.contains(part), qPrintable(lines.at(0).text));
    QVERIFY2(lines.at(1).text.contains(Vwap), qPrintable(lines.at(1).text));
    QVERIFY2(!lines.at(1).text.contains(QStringLiteral("Slices")), qPrintable(lines.at(1).text));
}

void tst_algorithm_parameters::theListsFollowTheForm_data()
{
    QTest::addColumn<bool>("byAmount");
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QStringList>("asked");
    QTest::newRow("a security by quantity")
        << false << Stock
        << QStringList{ QStringLiteral("getWhiteAlgoNameList(1, tt_QtyOrder, 600000.K_SH)"),
               QStringLiteral("getBlackAlgoNameList(tt_QtyOrder)") };
    QTest::newRow("another security by amount")
        << true << OtherStock
        << QStringList{ QStringLiteral("getWhiteAlgoNameList(1, tt_AmountOrder, 000001.K_SZ)"),
               QStringLiteral("getBlackAlgoNameList(tt_AmountOrder)") };
    QTest::newRow("another target type without a security")
        << true << QString()
        << QStringList{ QStringLiteral("getWhiteAlgoNameList(1, tt_AmountOrder, \"\")"),
               QStringLiteral("getBlackAlgoNameList(tt_AmountOrder)") };
}

void tst_algorithm_parameters::theListsFollowTheForm()
{
    QFETCH(bool, byAmount);
    QFETCH(QString, symbol);
    QFETCH(QStringList, asked);
    open();
    if (byAmount)
        choose(editor(), "combx_instructionTargetType", InstructionTargetType::AmountOrder);
    if (!symbol.isEmpty()) {
        script().forget();
        chooseSecurity(editor(), symbol);
    }
    const QStringList calls = script().callsOf(QStringLiteral("getWhiteAlgoNameList"))
        + script().callsOf(QStringLiteral("getBlackAlgoNameList"));
    QCOMPARE(calls, asked);
}

void tst_algorithm_parameters::theListsReachThePanelWithTheNextPress()
{
    open();
    pressButton();
    script().whiteAlgoNames = QStringList{ Vwap };
    script().blackAlgoNames = QStringList{ QStringLiteral("SNIPER") };
    script().forget();
    choose(editor(), "combx_instructionTargetType", InstructionTargetType::AmountOrder);
    QCOMPARE(script().countOf(QStringLiteral("panel.setAlgoWhiteList")), 0);
    QCOMPARE(script().countOf(QStringLiteral("panel.setAlgoBlackList")), 0);
    QCOMPARE(script().countOf(QStringLiteral("panel.RefreshAlgoList")), 0);
    script().forget();
    pressButton();
    QCOMPARE(callsFrom(QStringLiteral("panel.setAlgoWhiteList")).mid(0, 4),
        QStringList(
            { QStringLiteral("panel.setAlgoWhiteList([VWAP])"), QStringLiteral("panel.setAlgoBlackList([SNIPER])"),
                QStringLiteral("panel.RefreshAlgoList()"), QStringLiteral("panel.getAuthorityAlgoList()") }));
}

void tst_algorithm_parameters::theListsAreReplacedWhole()
{
    open();
    script().whiteAlgoNames = QStringList{ Twap, Vwap };
    script().blackAlgoNames = QStringList{ QStringLiteral("SNIPER") };
    chooseSecurity(editor(), Stock);
    script().whiteAlgoNames = QStringList();
    script().blackAlgoNames = QStringList();
    chooseSecurity(editor(), OtherStock);
    script().forget();
    pressButton();
    QCOMPARE(script().callsOf(QStringLiteral("panel.setAlgoWhiteList")),
        QStringList(QStringLiteral("panel.setAlgoWhiteList([])")));
    QCOMPARE(script().callsOf(QStringLiteral("panel.setAlgoBlackList")),
        QStringList(QStringLiteral("panel.setAlgoBlackList([])")));
}

void tst_algorithm_parameters::anAnswerOfTheServiceRefreshesTheLists()
{
    open();
    chooseSecurity(editor(), Stock);
    pressButton();
    script().whiteAlgoNames = QStringList{ Vwap };
    script().forget();
    // What the signal carries is not read.
    Q_EMIT AlgoTradeLogicNew::GetInstance()->sigQryAlgoStrategiesRsp(
        { AesStrategy{ Twap, Twap, QString(), QString() } });
    QCOMPARE(script().calls,
        QStringList({ QStringLiteral("getWhiteAlgoNameList(1, tt_QtyOrder, 600000.K_SH)"),
            QStringLiteral("getBlackAlgoNameList(tt_QtyOrder)") }));
    pressButton();
    QCOMPARE(script().callsOf(QStringLiteral("panel.setAlgoWhiteList")),
        QStringList(QStringLiteral("panel.setAlgoWhiteList([VWAP])")));
}

void tst_algorithm_parameters::anAnswerFromAnotherThreadRefreshesTheLists()
{
    open();
    std::thread worker([] { Q_EMIT AlgoTradeLogicNew::GetInstance()->sigQryAlgoStrategiesRsp({ AesStrategy() }); });
    worker.join();
    QCOMPARE(script().calls, QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(script().calls,
        QStringList({ QStringLiteral("getWhiteAlgoNameList(1, tt_QtyOrder, \"\")"),
            QStringLiteral("getBlackAlgoNameList(tt_QtyOrder)") }));
}

void tst_algorithm_parameters::anAnswerAfterTheEditorIsGoneIsIgnored()
{
    open();
    std::thread worker([] { Q_EMIT AlgoTradeLogicNew::GetInstance()->sigQryAlgoStrategiesRsp({ AesStrategy() }); });
    worker.join();
    destroy();
    script().forget();
    QCoreApplication::processEvents();
    Q_EMIT AlgoTradeLogicNew::GetInstance()->sigQryAlgoStrategiesRsp({ AesStrategy() });
    QCOMPARE(script().calls, QStringList());
}

void tst_algorithm_parameters::theEditorMayBeDeletedWhileItsPanelIsOpen()
{
    open();
    script().panelStrategy = Twap;
    pressButton();
    const QPointer<ParamListWidget_single> shown = panel();
    QVERIFY(shown->isVisible());
    QCOMPARE(QApplication::activeModalWidget(), static_cast<QWidget*>(shown));
    destroy();
    QVERIFY(shown.isNull());
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void tst_algorithm_parameters::theEditorMayBeDeletedWhileThePanelIsFilled_data()
{
    QTest::addColumn<QString>("operation");
    QTest::newRow("a strategy is loaded") << QStringLiteral("panel.LoadStrategy");
    QTest::newRow("the base data is handed over") << QStringLiteral("panel.setBaseInfoData");
}

void tst_algorithm_parameters::theEditorMayBeDeletedWhileThePanelIsFilled()
{
    QFETCH(QString, operation);
    open();
    script().panelLoadAnswer = QStringLiteral("参数错误");
    destroyDuring(operation);
    QTest::mouseClick(field<QAbstractButton>(editor(), "btn_algoParamSetting"), Qt::LeftButton);
    QCOMPARE(script().calls, QStringList());
}

void tst_algorithm_parameters::theEditorMayBeDeletedWhileTheWarningIsOpen()
{
    script().addOrdinaryAccount(Account);
    script().addOrdinaryAccount(QStringLiteral("acc2"));
    open();
    script().whileBoxOpen = [this] {
        destroy();
        script().forget();
    };
    pressButton();
    QVERIFY(!script().whileBoxOpen);
    QCOMPARE(script().calls, QStringList());
}

void tst_algorithm_parameters::theEditorMayBeDeletedWhileTheErrorIsOpen()
{
    open();
    script().panelLoadAnswer = QStringLiteral("参数错误");
    script().whileBoxOpen = [this] {
        destroy();
        script().forget();
    };
    pressButton();
    QVERIFY(!script().whileBoxOpen);
    QCOMPARE(script().calls, QStringList());
}

void tst_algorithm_parameters::pressedAgainWhileTheErrorIsOpenItKeepsOnePanel()
{
    open();
    script().panelLoadAnswer = QStringLiteral("参数错误");
    script().whileBoxOpen = [this] { pressButton(); };
    pressButton();
    QCOMPARE(script().countOf(QStringLiteral("CreateStrategyWgt")), 1);
    QCOMPARE(editor().findChildren<ParamListWidget_single*>().size(), 1);
}

QTEST_MAIN(tst_algorithm_parameters)
#include "tst_algorithm_parameters.moc"
