#include "AesStrategy.h"
#include "AlgoTradeLogicNew.h"
#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "EditorTest.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "ParamListWidget_single.h"
#include "PlanVocabulary.h"

#include <QAbstractButton>
#include <QPointer>
#include <QtTest>

#include <thread>
#include <type_traits>

static_assert(std::is_same_v<decltype(&ParamListWidget_single::setBaseInfoData),
                  AlgoErrorCode (ParamListWidget_single::*)(QMap<QString, QVariant>, bool)>,
    "the panel takes a copy of the base data");

namespace {

namespace Content = Algo_Fields::AlgoInstContentInfo;

const QString Twap = QStringLiteral("TWAP");
const QString Vwap = QStringLiteral("VWAP");

void strategiesArrive()
{
    // The signal's argument is not used.
    Q_EMIT AlgoTradeLogicNew::GetInstance()->sigQryAlgoStrategiesRsp({ AesStrategy{ Twap, Twap, {}, {} } });
}

} // namespace

/// The algorithm panel: how it is created, the data that it gets, and the lists of algorithms.
class AlgorithmParametersTest : public EditorTest {
    Q_OBJECT

private:
    void open()
    {
        if (script().accounts.isEmpty())
            script().addOrdinaryAccount(Account);
        addSecurities();
        script().ruleProperty = AutoPlanRuleProperty::Review;
        script().strategyAliases = { { Twap, QStringLiteral("时间加权") }, { Vwap, QStringLiteral("成交量加权") } };
        constructShown();
        script().forget();
        log().clear();
    }

    void openWithTwoAccounts()
    {
        script().addOrdinaryAccount(Account);
        script().addOrdinaryAccount(OtherAccount);
        open();
    }

    void setLists(const QStringList& white, const QStringList& black)
    {
        script().whiteAlgoNames = white;
        script().blackAlgoNames = black;
    }

    void pressButton() { press(editor(), "btn_algoParamSetting"); }
    ParamListWidget_single* panel() const { return editor().findChild<ParamListWidget_single*>(); }

    /// Deletes the editor while the next box is open.
    void destroyUnderBox()
    {
        script().whileBoxOpen = [this] {
            destroy();
            script().forget();
        };
    }

private Q_SLOTS:
    // --- The panel

    void withoutAnAccountOnlyTheWarningAppears()
    {
        openWithTwoAccounts();
        pressButton();
        QCOMPARE(script().calls, lines("ShowWarningMsgBox(未选择资金帐号！, AutoParamSetting)"));
        QVERIFY(panel() == nullptr);
        choose(editor(), "combx_fundAccount", Account);
        pressButton();
        QVERIFY(panel() != nullptr);
        QCOMPARE(script().boxes.size(), 1);
    }

    void theFirstPressTakesItsStepsInOrder()
    {
        open();
        setLists({ Twap, Vwap }, lines("SNIPER"));
        script().authorityAlgoNames = QStringList{ Vwap, Twap };
        script().panelStrategy = Twap;
        script().panelParams = { { QStringLiteral("Slices"), 12 } };
        chooseSecurity(editor(), Stock);
        script().forget();
        pressButton();
        QCOMPARE(script().calls, lines(R"(
            CreateStrategyWgt(2, AutoParamSetting, av_AlgoGlobalType_instruction, [TWAP, VWAP], [], 3)
            panel.GetStrategyName()
            panel.GetParamMap()
            panel.setAlgoWhiteList([TWAP, VWAP])
            panel.setAlgoBlackList([SNIPER])
            panel.RefreshAlgoList()
            panel.getAuthorityAlgoList()
            GetStrategy(TWAP)
            panel.LoadStrategy(TWAP, {}, {Slices: 12}, 600000.K_SH)
            GetWidgetPos("", 2)
            GetStaticCfgValue(oc_DictionaryKey_SideUnion2AlgoDefines, "")
            panel.setBaseInfoData({af_AlgoInstContentInfo_EntrustProp: "", af_AlgoInstContentInfo_OrderSide: av_AlgoOrderSide_BuyValue, af_AlgoInstContentInfo_Symbol: 600000.K_SH, af_AlgoInstContentInfo_TradingAccount: acc1}, false))"));
        QCOMPARE(panel()->parentWidget(), static_cast<QWidget*>(&editor()));
        QCOMPARE(static_cast<int>(panel()->windowFlags()), 0x4080B);
        QCOMPARE(panel()->windowModality(), Qt::ApplicationModal);
    }

    void aLaterPressReusesThePanel()
    {
        open();
        pressButton();
        ParamListWidget_single* const first = panel();
        first->close();
        script().forget();
        pressButton();
        QCOMPARE(script().calls.constFirst(), QStringLiteral("panel.GetStrategyName()"));
        QCOMPARE(editor().findChildren<ParamListWidget_single*>(), QList<ParamListWidget_single*>{ first });
        QVERIFY(first->isVisible());
    }

    void thePanelOfALoadedPlanIsReusedAndSurvivesASentPlan()
    {
        openSampleMarket();
        script().ruleProperty = AutoPlanRuleProperty::Review;
        storePlan(PlanId, PlanSample().withMode(AutoPlanInstMode::AlgoTradeReview));
        keepWhatIsSent();
        constructShown();
        editor().copyPlan(PlanId);
        ParamListWidget_single* const loaded = panel();
        QCOMPARE(static_cast<int>(loaded->windowFlags()), 0x4080B);
        QCOMPARE(loaded->windowModality(), Qt::ApplicationModal);
        pressButton();
        loaded->hide();
        QCOMPARE(ok(), lines("tip: 交易自动规划创建成功!"));
        QCOMPARE(script().countOf(QStringLiteral("panel.ClearParams")), 1);
        script().addOrdinaryAccount(Account);
        choose(editor(), "combx_fundAccount", Account);
        pressButton();
        QCOMPARE(panel(), loaded);
        QCOMPARE(script().countOf(QStringLiteral("CreateStrategyWgt")), 1);
    }

    void theAuthorisedAlgorithmIsLoaded_data()
    {
        QTest::addColumn<QStringList>("authorised");
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<QString>("asked");
        QTest::addColumn<QString>("loaded");
        const QString kept = QStringLiteral("TWAP, {}, {Slices: 12}");
        const QString first = QStringLiteral("VWAP, {}, {}");
        const QString unknown = QStringLiteral("\"\", {}, {Slices: 12}");
        QTest::newRow("the chosen one, within what is authorised") << QStringList{ Vwap, Twap } << Twap << Twap << kept;
        QTest::newRow("the first authorised one without parameters, where the chosen one is not authorised")
            << QStringList{ Vwap, QStringLiteral("POV") } << Twap << Vwap << first;
        QTest::newRow("the first authorised one, if none is chosen")
            << QStringList{ Vwap, Twap } << QString() << Vwap << first;
        QTest::newRow("names differ by case") << QStringList{ Vwap, QStringLiteral("twap") } << Twap << Vwap << first;
        QTest::newRow("an empty authority list changes nothing") << QStringList() << Twap << Twap << kept;
        QTest::newRow("nothing authorised and nothing chosen")
            << QStringList() << QString() << QStringLiteral("\"\"") << unknown;
        QTest::newRow("an algorithm that the service does not know") << QStringList() << "OLD"
                                                                     << "OLD" << unknown;
    }

    void theAuthorisedAlgorithmIsLoaded()
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
        pressButton();
        QCOMPARE(
            script().callsOf(QStringLiteral("GetStrategy")), QStringList(QStringLiteral("GetStrategy(%1)").arg(asked)));
        QCOMPARE(script().callsOf(QStringLiteral("panel.LoadStrategy")),
            QStringList(QStringLiteral("panel.LoadStrategy(%1, 600000.K_SH)").arg(loaded)));
    }

    void thePanelIsShown_data()
    {
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<bool>("shown");
        QTest::newRow("by the editor, where no algorithm is known") << QString() << true;
        QTest::newRow("by itself, where one is loaded") << Twap << true;
        QTest::newRow("not by the editor, where one is known that the panel does not load") << "OLD" << false;
    }

    void thePanelIsShown()
    {
        QFETCH(QString, chosen);
        QFETCH(bool, shown);
        open();
        script().panelStrategy = chosen;
        pressButton();
        QCOMPARE(panel()->isVisible(), shown);
    }

    void thePanelIsPlaced()
    {
        open();
        for (const QPoint place : { QPoint(33, 44), QPoint(55, 66) }) {
            script().widgetPos = place;
            pressButton();
            QCOMPARE(panel()->pos(), place);
        }
    }

    void thePlanIsHandedOver_data()
    {
        QTest::addColumn<QString>("side");
        QTest::addColumn<QString>("algorithmSide");
        QTest::newRow("a purchase") << Kelvo_Values::OrderSide::buy << Algo_Values::AlgoOrderSide::BuyValue;
        QTest::newRow("a sale") << Kelvo_Values::OrderSide::sell << Algo_Values::AlgoOrderSide::SellValue;
        QTest::newRow("a side that is neither") << "neither" << QString();
        QTest::newRow("no side") << QString() << QString();
    }

    void thePlanIsHandedOver()
    {
        QFETCH(QString, side);
        QFETCH(QString, algorithmSide);
        open();
        chooseSecurity(editor(), Stock);
        if (side.isEmpty())
            chooseNothing(editor(), "combx_tradeSide");
        else
            chooseSilently(editor(), "combx_tradeSide", side);
        pressButton();
        FieldMap expected{ { Content::TradingAccount, Account }, { Content::Symbol, Stock },
            { Content::EntrustProp, QString() } };
        if (!algorithmSide.isEmpty())
            expected.insert(Content::OrderSide, algorithmSide);
        QCOMPARE(script().panelBaseData, expected);
    }

    void theEntrustTypeIsTranslated_data()
    {
        QTest::addColumn<QString>("entrustType");
        QTest::addColumn<QString>("translation");
        QTest::newRow("a known one") << Orlo_Values::SideUnion::collateralSell << "担保品卖出";
        QTest::newRow("one without a translation") << Orlo_Values::SideUnion::marginSell << QString();
    }

    void theEntrustTypeIsTranslated()
    {
        QFETCH(QString, entrustType);
        QFETCH(QString, translation);
        script().addCreditAccount(Account);
        script().staticTexts.insert(QStringLiteral("oc_DictionaryKey_SideUnion2AlgoDefines/o_SideUnion_collateralSell"),
            QStringLiteral("担保品卖出"));
        open();
        chooseSecurity(editor(), Stock);
        choose(editor(), "combx_entrustType", entrustType);
        pressButton();
        QCOMPARE(script().panelBaseData.value(Content::EntrustProp), QVariant(translation));
    }

    void aLoadErrorIsShownUnchangedAfterTheBaseData_data()
    {
        QTest::addColumn<QString>("result");
        QTest::addColumn<bool>("failed");
        QTest::newRow("success") << "0" << false;
        QTest::newRow("a reason") << "策略参数错误！" << true;
        QTest::newRow("a number") << "1" << true;
        QTest::newRow("what only looks like success") << "00" << true;
        QTest::newRow("with what looks like a place to fill") << "%1" << true;
        QTest::newRow("an empty text") << QString() << true;
    }

    void aLoadErrorIsShownUnchangedAfterTheBaseData()
    {
        QFETCH(QString, result);
        QFETCH(bool, failed);
        open();
        script().panelLoadAnswer = result;
        // The editor ignores whether the base data were accepted.
        script().panelBaseDataAnswer = AlgoErrorCode::MissingField;
        pressButton();
        QCOMPARE(said(), failed ? QStringList(QStringLiteral("error: ") + result) : QStringList());
        if (failed)
            QCOMPARE(script().boxes.constFirst().parent, static_cast<QWidget*>(&editor()));
        const QString last = script().typedCalls.last().operation;
        QCOMPARE(last, failed ? QStringLiteral("ShowErrorMsgBox") : QStringLiteral("panel.setBaseInfoData"));
        // The panel stays open while the box is shown.
        QVERIFY(panel()->isVisible());
    }

    void aPressIsLogged()
    {
        open();
        setLists(lines("white"), lines("black"));
        script().authorityAlgoNames = QStringList{ Vwap };
        script().panelStrategy = Twap;
        script().panelParams = { { QStringLiteral("Slices"), 12 } };
        chooseSecurity(editor(), Stock);
        log().clear();
        pressButton();
        const QList<LogLine> found =
            log().linesWith(QtInfoMsg, QStringLiteral("AutoParamSetting::slotBtnAlgoParamSettingClicked"));
        QCOMPARE(found.size(), 2);
        for (const QString& part : lines("TWAP\nSlices\nwhite\nblack\nVWAP"))
            QVERIFY2(found.at(0).text.contains(part), qPrintable(found.at(0).text));
        QVERIFY2(found.at(1).text.contains(Vwap), qPrintable(found.at(1).text));
        QVERIFY2(!found.at(1).text.contains(QStringLiteral("Slices")), qPrintable(found.at(1).text));
    }

    // --- The lists

    void theListsReachThePanelWithTheNextPress()
    {
        open();
        setLists({ Twap, Vwap }, lines("SNIPER"));
        chooseSecurity(editor(), Stock);
        pressButton();
        setLists({}, {});
        script().forget();
        choose(editor(), "combx_instructionTargetType", InstructionTargetType::AmountOrder);
        QCOMPARE(script().callsOf(QStringLiteral("getWhiteAlgoNameList")),
            lines("getWhiteAlgoNameList(1, tt_AmountOrder, \"\")"));
        QCOMPARE(
            script().callsOf(QStringLiteral("getBlackAlgoNameList")), lines("getBlackAlgoNameList(tt_AmountOrder)"));
        QCOMPARE(script().countOf(QStringLiteral("panel.setAlgoWhiteList")), 0);
        QCOMPARE(script().countOf(QStringLiteral("panel.RefreshAlgoList")), 0);
        script().forget();
        pressButton();
        // The map is replaced as a whole.
        QCOMPARE(script().calls.mid(2, 3), lines(R"(
            panel.setAlgoWhiteList([])
            panel.setAlgoBlackList([])
            panel.RefreshAlgoList())"));
    }

    void anAnswerOfTheServiceRefreshesTheLists_data()
    {
        QTest::addColumn<bool>("fromAnotherThread");
        QTest::newRow("at once") << false;
        QTest::newRow("later, from another thread") << true;
    }

    void anAnswerOfTheServiceRefreshesTheLists()
    {
        QFETCH(bool, fromAnotherThread);
        open();
        chooseSecurity(editor(), Stock);
        pressButton();
        script().whiteAlgoNames = QStringList{ Vwap };
        script().forget();
        if (fromAnotherThread) {
            std::thread(strategiesArrive).join();
            QCOMPARE(script().calls, QStringList());
            QCoreApplication::processEvents();
        } else {
            strategiesArrive();
        }
        QCOMPARE(script().calls, lines(R"(
            getWhiteAlgoNameList(1, tt_QtyOrder, 600000.K_SH)
            getBlackAlgoNameList(tt_QtyOrder))"));
        pressButton();
        QCOMPARE(script().callsOf(QStringLiteral("panel.setAlgoWhiteList")), lines("panel.setAlgoWhiteList([VWAP])"));
    }

    // --- The end of the editor

    void anAnswerAfterTheEditorIsGoneIsIgnored()
    {
        open();
        std::thread(strategiesArrive).join();
        destroy();
        script().forget();
        QCoreApplication::processEvents();
        strategiesArrive();
        QCOMPARE(script().calls, QStringList());
    }

    void theEditorMayBeDeletedWhileItsPanelIsOpen()
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

    void theEditorMayBeDeletedWhileThePanelIsFilled_data()
    {
        QTest::addColumn<QString>("operation");
        QTest::newRow("a strategy is loaded") << "panel.LoadStrategy";
        QTest::newRow("the base data is handed over") << "panel.setBaseInfoData";
    }

    void theEditorMayBeDeletedWhileThePanelIsFilled()
    {
        QFETCH(QString, operation);
        open();
        script().panelLoadAnswer = QStringLiteral("参数错误");
        destroyDuring(operation);
        QTest::mouseClick(field<QAbstractButton>(editor(), "btn_algoParamSetting"), Qt::LeftButton);
        QCOMPARE(script().calls, QStringList());
    }

    void theEditorMayBeDeletedWhileTheWarningIsOpen()
    {
        openWithTwoAccounts();
        destroyUnderBox();
        pressButton();
        QVERIFY(!script().whileBoxOpen);
        QCOMPARE(script().calls, QStringList());
    }

    void theEditorMayBeDeletedWhileTheErrorIsOpen()
    {
        open();
        script().panelLoadAnswer = QStringLiteral("参数错误");
        destroyUnderBox();
        pressButton();
        QVERIFY(!script().whileBoxOpen);
        QCOMPARE(script().calls, QStringList());
    }

    void pressedAgainWhileTheErrorIsOpenItKeepsOnePanel()
    {
        open();
        script().panelLoadAnswer = QStringLiteral("参数错误");
        script().whileBoxOpen = [this] { pressButton(); };
        pressButton();
        QCOMPARE(script().countOf(QStringLiteral("CreateStrategyWgt")), 1);
        QCOMPARE(editor().findChildren<ParamListWidget_single*>().size(), 1);
    }
};

QTEST_MAIN(AlgorithmParametersTest)
#include "tst_algorithm_parameters.moc"
