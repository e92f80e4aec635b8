#include "AlgoTradeLogicNew.h"
#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "Appearance.h"
#include "AutoPlanField.h"
#include "LoggedTest.h"
#include "OrloStrategyFactory.h"
#include "StrategyLibrary.h"
#include "StrategyTexts.h"
#include "TestStatus.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>
#include <QtTest>

namespace Content = Algo_Fields::AlgoInstContentInfo;
using Map = QMap<QString, QVariant>;

namespace {

const QString Twap = QStringLiteral("TWAP");
const QString Pov = QStringLiteral("POV");
const QString Iceberg = QStringLiteral("ICEBERG2");
const QString Symbol = QStringLiteral("600000.SH");

Map baseData(const QString& side = Algo_Values::AlgoOrderSide::BuyValue)
{
    return { { Content::TradingAccount, QStringLiteral("A1") }, { Content::Symbol, Symbol },
        { Content::OrderSide, side }, { Content::EntrustProp, QStringLiteral("0") } };
}

AesStrategy strategy(const QString& name)
{
    return AlgoTradeLogicNew::GetInstance()->GetStrategy(name);
}

const QString CheckBox = QStringLiteral("<lay:Control ID='on' label='on' xsi:type='lay:CheckBox_t'/>");
const QString HiddenBox =
    QStringLiteral("<lay:Control ID='hidden' label='hidden' xsi:type='lay:TextField_t'><flow:StateRule "
                   "visible='true'><val:Edit field='on' operator='EQ' value='true'/></flow:StateRule></lay:Control>");

/// A panel of text fields named c0, c1 and so on.
QString panelOf(int fields, const char* attributes)
{
    QString text;
    for (int i = 0; i < fields; ++i)
        text += QStringLiteral("<lay:Control ID='c%1' label='c%1' xsi:type='lay:TextField_t'/>").arg(i);
    return QStringLiteral("<lay:StrategyPanel title='T' %1>%2</lay:StrategyPanel>")
        .arg(QLatin1String(attributes), text);
}

} // namespace

class AlgorithmPanelTest : public LoggedTest {
    Q_OBJECT

private:
    void prepare() override
    {
        m_owner = std::make_unique<QWidget>();
        m_panel = make({}, {}, 3);
    }
    void tidyUp() override
    {
        m_owner.reset();
        QVector<StrategyFile> none;
        StrategyLibrary::instance().setFiles(none);
    }

private Q_SLOTS:
    void aNewPanelIsEmptyAndHidden()
    {
        QVERIFY(!m_panel->isVisible());
        QVERIFY(!m_panel->HasParams());
        QCOMPARE(m_panel->GetStrategyName(), QString());
        QCOMPARE(m_panel->GetParamMap(), Map());
        QCOMPARE(m_panel->getAuthorityAlgoList(), StrategyLibrary::instance().names());
    }

    void loadingShowsTheStrategyWithItsDefaults()
    {
        open(Iceberg);
        QCOMPARE(child<QComboBox>("combx_strategy")->currentText(), QStringLiteral("冰山"));
        QCOMPARE(child<QComboBox>("combx_strategy")->count(), 5);
        QCOMPARE(line("input_DisplayQty")->text(), QStringLiteral("1000"));
        QCOMPARE(child<QLabel>("unit_DisplayQty")->text(), QStringLiteral("股"));
        QCOMPARE(child<QLabel>("hint_DisplayQty")->text(), QStringLiteral("100 ～ 1000000"));
        QCOMPARE(line("input_DisplayVariance")->text(), QStringLiteral("10"));
        QCOMPARE(child<QLabel>("unit_DisplayVariance")->text(), QStringLiteral("%"));
        QCOMPARE(child<QLabel>("hint_DisplayVariance")->text(), QStringLiteral("0 ～ 50，选填"));
        QCOMPARE(child<QLabel>("lab_baseData")->text(), QStringLiteral("账号：A1    证券：600000.SH    方向：买入"));
        QCOMPARE(message(), QString());
    }

    void theSkinIsBehindTheParameters()
    {
        for (const char* const skin : { "light", "dark" }) {
            m_panel->setStyleSheet(skinSheet(QLatin1String(skin)));
            open(Twap);
            const QWidget* const area = child<QScrollArea>("algorithmParameters")->viewport();
            const QPoint inside = area->mapTo(m_panel, QPoint(area->width() - 2, 2));
            const QImage image = m_panel->grab().toImage();
            QCOMPARE(image.pixelColor(inside), image.pixelColor(3, 3));
        }
    }

    void okConfirmsParametersAndBaseData()
    {
        open(Pov);
        type("input_Participation", QStringLiteral("12.5"));
        for (QRadioButton* const choice : child<QWidget>("input_Urgency")->findChildren<QRadioButton*>()) {
            if (choice->text() == QStringLiteral("高"))
                QTest::mouseClick(choice, Qt::LeftButton, {}, QPoint(5, choice->height() / 2));
        }
        press("btn_ok");
        QVERIFY(!m_panel->isVisible());
        QVERIFY(m_panel->HasParams());
        QCOMPARE(m_panel->GetStrategyName(), Pov);
        Map expected = baseData();
        expected.insert(AutoPlanField::BaseField::algoStrategyName, Pov);
        expected.insert(QStringLiteral("StartTime"), QStringLiteral("09:30:00"));
        expected.insert(QStringLiteral("EndTime"), QStringLiteral("14:57:00"));
        expected.insert(QStringLiteral("Participation"), QStringLiteral("0.125"));
        expected.insert(QStringLiteral("MaxParticipation"), QStringLiteral("0.2"));
        expected.insert(QStringLiteral("MaxDeviation"), QStringLiteral("0.02"));
        expected.insert(QStringLiteral("Urgency"), QStringLiteral("3"));
        QCOMPARE(m_panel->GetParamMap(), expected);
    }

    void unconfirmedValuesAreNotReturned()
    {
        open(Twap);
        type("input_SliceInterval", QStringLiteral("30"));
        QVERIFY(!m_panel->HasParams());
        QCOMPARE(m_panel->GetStrategyName(), QString());
        QCOMPARE(m_panel->GetParamMap(), Map());
    }

    void whatIsWrongIsRefusedAndKept_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* title, const QString& name, const char* input, const char* text,
                             const char* expected) {
            QTest::newRow(title) << name << QString::fromUtf8(input) << QString::fromUtf8(text)
                                 << QString::fromUtf8(expected);
        };
        row("nothing", Iceberg, "input_DisplayQty", "", "“显示数量”必填（单位：股）！");
        row("too little", Iceberg, "input_DisplayQty", "99", "“显示数量”应在100至1000000之间（单位：股）！");
        row("too much", Iceberg, "input_DisplayQty", "1000001", "“显示数量”应在100至1000000之间（单位：股）！");
        row("a fraction of a share", Iceberg, "input_DisplayQty", "100.5", "“显示数量”应为整数（单位：股）！");
        row("no number", Iceberg, "input_DisplayQty", "1e3", "“显示数量”应为数字（单位：股）！");
        row("a percentage too large", Pov, "input_Participation", "50.01", "“目标参与率”应在1至50之间（单位：%）！");
        row("a percentage too fine", Pov, "input_Participation", "10.001", "“目标参与率”最多2位小数（单位：%）！");
        row("no time", Twap, "input_EndTime", "25:00", "“结束时间”应为时间，如09:30:00！");
        row("a time too late", Twap, "input_EndTime", "23:00:00", "“结束时间”应在09:15:00至16:10:00之间！");
        row("a relation that does not hold", Pov, "input_Participation", "30", "目标参与率不得大于最大参与率！");
    }

    void whatIsWrongIsRefusedAndKept()
    {
        QFETCH(QString, name);
        QFETCH(QString, input);
        QFETCH(QString, text);
        QFETCH(QString, expected);
        open(name);
        const QByteArray object = input.toLatin1();
        type(object.constData(), text);
        press("btn_ok");
        QCOMPARE(message(), expected);
        QVERIFY(m_panel->isVisible());
        QVERIFY(!m_panel->HasParams());
        QCOMPARE(line(object.constData())->text(), text);
        QVERIFY(child<QWidget>(object.constData())->property("faulty").toBool());
    }

    void aCorrectedInputPasses()
    {
        open(Iceberg);
        type("input_DisplayQty", QStringLiteral("1"));
        press("btn_ok");
        QVERIFY(m_panel->isVisible());
        type("input_DisplayQty", QStringLiteral("00200"));
        press("btn_ok");
        QVERIFY(!m_panel->isVisible());
        QCOMPARE(m_panel->GetParamMap().value(QStringLiteral("DisplayQty")), QVariant(QStringLiteral("200")));
        open(Iceberg, m_panel->GetParamMap());
        QCOMPARE(message(), QString());
    }

    void theLastMomentMustFollowTheFirst()
    {
        open(Twap);
        type("input_StartTime", QStringLiteral("14:57"));
        press("btn_ok");
        QCOMPARE(message(), QStringLiteral("开始时间须早于结束时间！"));
        type("input_StartTime", QStringLiteral("9:31"));
        press("btn_ok");
        QCOMPARE(m_panel->GetParamMap().value(QStringLiteral("StartTime")), QVariant(QStringLiteral("09:31:00")));
    }

    void anOptionalParameterMayBeLeftEmptyAndStaysSo()
    {
        open(Twap);
        QCOMPARE(line("input_MaxParticipation")->text(), QStringLiteral("20"));
        type("input_MaxParticipation", QString());
        press("btn_ok");
        QVERIFY(m_panel->HasParams());
        QVERIFY(!m_panel->GetParamMap().contains(QStringLiteral("MaxParticipation")));
        open(Twap, m_panel->GetParamMap());
        QCOMPARE(line("input_MaxParticipation")->text(), QString());
    }

    void aPriceHasTheDecimalsOfItsSecurity()
    {
        open(Iceberg);
        type("input_WorstPrice", QStringLiteral("10.001"));
        press("btn_ok");
        QCOMPARE(message(), QStringLiteral("“最差价格”最多2位小数（单位：元）！"));
        type("input_WorstPrice", QStringLiteral("10.01"));
        press("btn_ok");
        QCOMPARE(m_panel->GetParamMap().value(QStringLiteral("WorstPrice")), QVariant(QStringLiteral("10.01")));
    }

    void escapeAndCancelLeaveWhatWasConfirmed_data()
    {
        QTest::addColumn<QString>("way");
        QTest::newRow("the cancel button") << QStringLiteral("button");
        QTest::newRow("escape in an input") << QStringLiteral("input");
        QTest::newRow("escape in the list of algorithms") << QStringLiteral("list");
        QTest::newRow("the window is closed") << QStringLiteral("window");
    }

    void escapeAndCancelLeaveWhatWasConfirmed()
    {
        QFETCH(QString, way);
        open(Iceberg);
        press("btn_ok");
        const Map confirmed = m_panel->GetParamMap();
        open(Iceberg, confirmed);
        type("input_DisplayQty", QStringLiteral("5000"));
        if (way == QStringLiteral("button"))
            press("btn_cancel");
        else if (way == QStringLiteral("input"))
            QTest::keyClick(line("input_DisplayQty"), Qt::Key_Escape);
        else if (way == QStringLiteral("list"))
            QTest::keyClick(child<QComboBox>("combx_strategy"), Qt::Key_Escape);
        else
            m_panel->close();
        QVERIFY(!m_panel->isVisible());
        QCOMPARE(m_panel->GetParamMap(), confirmed);
        open(Iceberg, confirmed);
        QCOMPARE(line("input_DisplayQty")->text(), QStringLiteral("1000"));
    }

    void returnPressesTheFocusedButton()
    {
        open(Iceberg);
        child<QPushButton>("btn_cancel")->setFocus();
        QTest::keyClick(child<QPushButton>("btn_cancel"), Qt::Key_Return);
        QVERIFY(!m_panel->isVisible());
        QVERIFY(!m_panel->HasParams());
        open(Iceberg);
        child<QPushButton>("btn_ok")->setFocus();
        QTest::keyClick(child<QPushButton>("btn_ok"), Qt::Key_Enter);
        QVERIFY(!m_panel->isVisible());
        QVERIFY(m_panel->HasParams());
    }

    void onlyControlEnterIsOkInAField_data()
    {
        QTest::addColumn<QString>("field");
        for (const char* name : { "combx_strategy", "input_DisplayQty", "input_DisplayVariance" })
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void onlyControlEnterIsOkInAField()
    {
        QFETCH(QString, field);
        for (const Qt::Key enter : { Qt::Key_Return, Qt::Key_Enter }) {
            open(Iceberg);
            auto* const widget = m_panel->findChild<QWidget*>(field);
            widget->setFocus();
            QTest::keyClick(widget, enter);
            QVERIFY(m_panel->isVisible());
            QVERIFY(!m_panel->HasParams());
            QTest::keyClick(widget, enter, Qt::ControlModifier);
            QVERIFY(!m_panel->isVisible());
            QVERIFY(m_panel->HasParams());
            m_panel->ClearParams();
        }
    }

    void theTabKeyPassesThroughEveryInput()
    {
        open(Pov);
        QApplication::setActiveWindow(m_panel);
        QVERIFY(QTest::qWaitForWindowActive(m_panel));
        child<QComboBox>("combx_strategy")->setFocus();
        QStringList passed;
        for (int i = 0; i < 9; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            const QWidget* const now = QApplication::focusWidget();
            passed.append(now->objectName().isEmpty() ? now->parentWidget()->objectName() : now->objectName());
        }
        QCOMPARE(passed,
            QStringList({ QStringLiteral("input_StartTime"), QStringLiteral("input_EndTime"),
                QStringLiteral("input_Participation"), QStringLiteral("input_MaxParticipation"),
                QStringLiteral("input_MaxDeviation"), QStringLiteral("input_Urgency"), QStringLiteral("btn_ok"),
                QStringLiteral("btn_cancel"), QStringLiteral("combx_strategy") }));
    }

    void arrowsStepWithinTheRange()
    {
        open(Iceberg);
        QTest::keyClick(line("input_DisplayQty"), Qt::Key_Up);
        QCOMPARE(line("input_DisplayQty")->text(), QStringLiteral("1100"));
        QTest::keyClick(line("input_DisplayQty"), Qt::Key_PageUp);
        QCOMPARE(line("input_DisplayQty")->text(), QStringLiteral("11100"));
        QTest::keyClick(line("input_DisplayQty"), Qt::Key_PageDown);
        QTest::keyClick(line("input_DisplayQty"), Qt::Key_PageDown);
        QCOMPARE(line("input_DisplayQty")->text(), QStringLiteral("100"));
        QTest::keyClick(line("input_DisplayVariance"), Qt::Key_Down);
        QCOMPARE(line("input_DisplayVariance")->text(), QStringLiteral("9"));
        type("input_TickOffset", QStringLiteral("x"));
        QTest::keyClick(line("input_TickOffset"), Qt::Key_Down);
        QCOMPARE(line("input_TickOffset")->text(), QStringLiteral("-1"));
        press("btn_cancel");
        open(Twap);
        QTest::keyClick(line("input_StartTime"), Qt::Key_Down);
        QCOMPARE(line("input_StartTime")->text(), QStringLiteral("09:29:00"));
    }

    void anotherStrategyBringsItsOwnParameters()
    {
        open(Iceberg);
        auto* const box = child<QComboBox>("combx_strategy");
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Home);
        QCOMPARE(box->currentText(), QStringLiteral("时间加权"));
        QVERIFY(child<QWidget>("input_DisplayQty") == nullptr);
        QVERIFY(child<QCheckBox>("input_ForceFinish") != nullptr);
        QTest::mouseClick(child<QCheckBox>("input_ForceFinish"), Qt::LeftButton, {}, QPoint(8, 8));
        press("btn_ok");
        QCOMPARE(m_panel->GetStrategyName(), Twap);
        QCOMPARE(m_panel->GetParamMap().value(QStringLiteral("ForceFinish")), QVariant(QStringLiteral("Y")));
        QVERIFY(!m_panel->GetParamMap().contains(QStringLiteral("DisplayQty")));
    }

    void theListsRestrictWhatIsOffered_data()
    {
        QTest::addColumn<QStringList>("white");
        QTest::addColumn<QStringList>("black");
        QTest::addColumn<QStringList>("offered");
        QTest::newRow("the white list gives names and order")
            << QStringList{ Pov, Twap } << QStringList{} << QStringList{ Pov, Twap };
        QTest::newRow("the black list takes away")
            << QStringList{ Pov, Twap } << QStringList{ Pov } << QStringList{ Twap };
        QTest::newRow("an empty white list does not restrict")
            << QStringList{} << QStringList{ Pov, Twap, Iceberg }
            << QStringList{ QStringLiteral("VWAP"), QStringLiteral("SNIPER") };
        QTest::newRow("names are compared letter by letter, and once") << QStringList{ QStringLiteral("pov"),
            QStringLiteral("NONE"), Twap, Twap } << QStringList{} << QStringList{ Twap };
        QTest::newRow("nothing may be left") << QStringList{ Twap } << QStringList{ Twap } << QStringList{};
    }

    void theListsRestrictWhatIsOffered()
    {
        QFETCH(QStringList, white);
        QFETCH(QStringList, black);
        QFETCH(QStringList, offered);
        m_panel->setAlgoWhiteList(white);
        m_panel->setAlgoBlackList(black);
        m_panel->RefreshAlgoList();
        QCOMPARE(m_panel->getAuthorityAlgoList(), offered);
        QCOMPARE(make(white, black, 3)->getAuthorityAlgoList(), offered);
    }

    void listsTakeEffectWithARefresh()
    {
        m_panel->setAlgoWhiteList({ Pov });
        QCOMPARE(m_panel->getAuthorityAlgoList().size(), 5);
        m_panel->RefreshAlgoList();
        QCOMPARE(m_panel->getAuthorityAlgoList(), QStringList{ Pov });
        open(Pov);
        QCOMPARE(child<QComboBox>("combx_strategy")->count(), 1);
    }

    void anUnknownStrategyIsRefusedWithAReason()
    {
        AesStrategy unknown;
        unknown.name = QStringLiteral("NONE");
        QCOMPARE(m_panel->LoadStrategy(unknown, {}, {}, Symbol), QStringLiteral("未找到算法【NONE】的参数定义！"));
        QVERIFY(!m_panel->isVisible());
    }

    void aStrategyOutsideTheListsIsRefusedWithAReason()
    {
        m_panel->setAlgoBlackList({ Pov });
        m_panel->RefreshAlgoList();
        QCOMPARE(m_panel->LoadStrategy(strategy(Pov), {}, {}, Symbol),
            QStringLiteral("算法【POV】不在可选范围内，请重新选择！"));
        QVERIFY(!m_panel->isVisible());
    }

    void withoutAnyAlgorithmThePanelSaysSo()
    {
        m_panel->setAlgoBlackList(StrategyLibrary::instance().names());
        m_panel->RefreshAlgoList();
        QCOMPARE(m_panel->LoadStrategy({}, {}, {}, Symbol), QStringLiteral("0"));
        QVERIFY(!m_panel->isVisible());
        m_panel->show();
        QCOMPARE(message(), QStringLiteral("当前证券和指令类型没有可用的算法。"));
        QVERIFY(!child<QPushButton>("btn_ok")->isEnabled());
        QTest::keyClick(m_panel, Qt::Key_Return);
        QVERIFY(m_panel->isVisible());
        QTest::keyClick(m_panel, Qt::Key_Escape);
        QVERIFY(!m_panel->isVisible());
    }

    void defaultsAndParametersOverruleTheFile()
    {
        const QString quantity = QStringLiteral("DisplayQty");
        const QString delay = QStringLiteral("RefreshDelay");
        QCOMPARE(m_panel->LoadStrategy(
                     strategy(Iceberg), { { quantity, 300 }, { delay, 9 } }, { { quantity, 700 } }, Symbol),
            QStringLiteral("0"));
        QCOMPARE(line("input_DisplayQty")->text(), QStringLiteral("700"));
        QCOMPARE(line("input_RefreshDelay")->text(), QStringLiteral("9"));
        QCOMPARE(line("input_TickOffset")->text(), QStringLiteral("0"));
    }

    void aStoredPlanIsConfirmedAsItIs()
    {
        open(Iceberg);
        type("input_DisplayQty", QStringLiteral("2500"));
        press("btn_ok");
        const Map confirmed = m_panel->GetParamMap();
        const QByteArray stored = QJsonDocument::fromVariant(confirmed).toJson();
        const Map loaded = QJsonDocument::fromJson(stored).object().toVariantMap();

        ParamListWidget_single* const fresh = make({ Twap }, {}, 3);
        QCOMPARE(fresh->setBaseInfoData(loaded, false), AlgoErrorCode::Ok);
        QVERIFY(!fresh->isVisible());
        QVERIFY(fresh->HasParams());
        QCOMPARE(fresh->GetStrategyName(), Iceberg);
        QCOMPARE(fresh->GetParamMap(), confirmed);

        m_panel->ClearParams();
        m_panel->setBaseInfoData(loaded, false);
        open(Iceberg, m_panel->GetParamMap());
        QCOMPARE(line("input_DisplayQty")->text(), QStringLiteral("2500"));
        press("btn_ok");
        QCOMPARE(m_panel->GetParamMap(), confirmed);
    }

    void aStoredPlanThatDoesNotFitIsNotConfirmed_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("value");
        const QString quantity = QStringLiteral("DisplayQty");
        QTest::newRow("a strategy that is not known")
            << AutoPlanField::BaseField::algoStrategyName << QVariant(QStringLiteral("NONE"));
        QTest::newRow("nan") << quantity << QVariant(QStringLiteral("nan"));
        QTest::newRow("too large a number") << quantity << QVariant(QStringLiteral("1e400"));
        QTest::newRow("a negative number") << quantity << QVariant(-100);
        QTest::newRow("a list in place of a number") << quantity << QVariant(QVariantList{ 1, 2 });
        QTest::newRow("a map in place of a number") << quantity << QVariant(QVariantMap());
        QTest::newRow("a megabyte of text") << quantity << QVariant(QString(1 << 20, QLatin1Char('9')));
        QTest::newRow("nothing") << quantity << QVariant();
    }

    void aStoredPlanThatDoesNotFitIsNotConfirmed()
    {
        QFETCH(QString, key);
        QFETCH(QVariant, value);
        open(Iceberg);
        press("btn_ok");
        Map stored = m_panel->GetParamMap();
        stored.insert(key, value);
        log().expectWarning(QStringLiteral("AlgorithmChoice::takeStrategy"));
        QCOMPARE(m_panel->setBaseInfoData(stored, false), AlgoErrorCode::UnknownStrategy);
        QVERIFY(!m_panel->HasParams());
        QCOMPARE(m_panel->GetStrategyName(), QString());
        QCOMPARE(m_panel->GetParamMap(), Map());
    }

    void baseDataAreReportedByTheirGaps()
    {
        QCOMPARE(m_panel->setBaseInfoData(baseData(), false), AlgoErrorCode::UnknownStrategy);
        open(Twap);
        QCOMPARE(m_panel->setBaseInfoData(baseData(), false), AlgoErrorCode::Ok);
        for (const QString& key : { Content::TradingAccount, Content::Symbol, Content::OrderSide }) {
            Map gaps = baseData();
            gaps.remove(key);
            QCOMPARE(m_panel->setBaseInfoData(gaps, false), AlgoErrorCode::MissingField);
        }
        press("btn_ok");
        QVERIFY(!m_panel->GetParamMap().contains(Content::OrderSide));
    }

    void baseDataOfALaterPressCountFromTheNextOk()
    {
        open(Twap);
        press("btn_ok");
        open(Twap, m_panel->GetParamMap());
        m_panel->setBaseInfoData(baseData(Algo_Values::AlgoOrderSide::SellValue), false);
        QCOMPARE(child<QLabel>("lab_baseData")->text(), QStringLiteral("账号：A1    证券：600000.SH    方向：卖出"));
        QCOMPARE(m_panel->GetParamMap().value(Content::OrderSide), QVariant(Algo_Values::AlgoOrderSide::BuyValue));
        press("btn_cancel");
        QCOMPARE(m_panel->GetParamMap().value(Content::OrderSide), QVariant(Algo_Values::AlgoOrderSide::BuyValue));
        open(Twap, m_panel->GetParamMap());
        m_panel->setBaseInfoData(baseData(Algo_Values::AlgoOrderSide::SellValue), false);
        press("btn_ok");
        QCOMPARE(m_panel->GetParamMap().value(Content::OrderSide), QVariant(Algo_Values::AlgoOrderSide::SellValue));
    }

    void resettingForgetsTheParameters()
    {
        open(Twap);
        press("btn_ok");
        QCOMPARE(m_panel->setBaseInfoData(m_panel->GetParamMap(), true), AlgoErrorCode::Ok);
        QVERIFY(!m_panel->HasParams());
        QCOMPARE(m_panel->GetParamMap(), Map());
    }

    void reInitKeepsWhatIsConfirmedAndWhatIsTyped()
    {
        open(Iceberg);
        press("btn_ok");
        const Map confirmed = m_panel->GetParamMap();
        open(Iceberg, confirmed);
        type("input_DisplayQty", QStringLiteral("4000"));
        m_panel->ReInit();
        QCOMPARE(line("input_DisplayQty")->text(), QStringLiteral("4000"));
        QCOMPARE(child<QComboBox>("combx_strategy")->currentText(), QStringLiteral("冰山"));
        QCOMPARE(m_panel->GetParamMap(), confirmed);
        QCOMPARE(m_panel->GetStrategyName(), Iceberg);
    }

    void clearingForgetsEverything()
    {
        open(Iceberg);
        press("btn_ok");
        open(Iceberg, m_panel->GetParamMap());
        m_panel->ClearParams();
        QVERIFY(!m_panel->isVisible());
        QVERIFY(!m_panel->HasParams());
        QCOMPARE(m_panel->GetStrategyName(), QString());
        QCOMPARE(m_panel->GetParamMap(), Map());
        m_panel->show();
        QCOMPARE(message(), QStringLiteral("请选择算法。"));
        QCOMPARE(child<QComboBox>("combx_strategy")->currentIndex(), -1);
    }

    void thePanelMayDieWhileItIsOpen()
    {
        open(Pov);
        const QPointer<ParamListWidget_single> panel = m_panel;
        QTest::keyClick(line("input_Participation"), Qt::Key_Up);
        m_owner.reset();
        QVERIFY(panel.isNull());
        QCOMPARE(QApplication::activeModalWidget(), nullptr);

        m_owner = std::make_unique<QWidget>();
        m_panel = make({}, {}, 3);
        open(Pov);
        child<QComboBox>("combx_strategy")->showPopup();
        m_owner.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(QApplication::activePopupWidget(), nullptr);
    }

    void theFactoryHonoursWhatMayBeOffered()
    {
        m_panel = make({}, {}, 2);
        open(Iceberg);
        QVERIFY(!child<QComboBox>("combx_strategy")->isEnabled());
        QVERIFY(child<QWidget>("input_DisplayQty") != nullptr);
        press("btn_cancel");
        m_panel = make({}, {}, 1);
        open(Iceberg);
        QVERIFY(child<QComboBox>("combx_strategy")->isEnabled());
        QVERIFY(child<QWidget>("input_DisplayQty") == nullptr);
        press("btn_ok");
        QCOMPARE(m_panel->GetParamMap().value(QStringLiteral("DisplayQty")), QVariant(QStringLiteral("1000")));
    }

    void theWindowGrowsAndShrinksWithItsParameters()
    {
        openFile(StrategyTexts::parts({}, CheckBox + HiddenBox + panelOf(5, "collapsible='true' collapsed='true'")));
        const int closed = m_panel->height();
        QVERIFY(isWhole("input_on"));
        QTest::mouseClick(child<QToolButton>("panelTitle"), Qt::LeftButton);
        QTRY_VERIFY(isWhole("input_c4"));
        QVERIFY(isWhole("btn_ok"));
        QVERIFY(m_panel->height() > closed);
        QTest::mouseClick(child<QToolButton>("panelTitle"), Qt::LeftButton);
        QTRY_COMPARE(m_panel->height(), closed);
        QTest::keyClick(child<QCheckBox>("input_on"), Qt::Key_Space);
        QTRY_VERIFY(m_panel->height() > closed);
        for (const char* const name : { "input_hidden", "panelTitle", "btn_ok" })
            QVERIFY2(isWhole(name), name);
    }

    void theWindowIsAsWideAsItsParameters()
    {
        // A scroll area of its own accord is at most 36 lines wide.
        QFont small = m_panel->font();
        small.setPixelSize(8);
        m_panel->setFont(small);
        openFile(StrategyTexts::parts({}, panelOf(4, "orientation='HORIZONTAL'")));
        QVERIFY(m_panel->width() > 36 * m_panel->fontMetrics().height());
        for (const char* const name : { "input_c0", "input_c1", "input_c2", "input_c3" })
            QVERIFY2(isWhole(name), name);
    }

    void aFormWiderThanTheScreenIsScrolled()
    {
        openFile(StrategyTexts::parts({}, panelOf(12, "orientation='HORIZONTAL'")));
        const auto* const area = child<QScrollArea>("algorithmParameters");
        QVERIFY(area->horizontalScrollBar()->maximum() > 0);
        QCOMPARE(area->verticalScrollBar()->maximum(), 0);
        QVERIFY(isWhole("algorithmParameters"));
        QVERIFY(isWhole("input_c0"));
        QVERIFY(room().contains(m_panel->frameGeometry()));
    }

    void theButtonsStayOnTheScreen()
    {
        openFile(StrategyTexts::parts({}, panelOf(60, "collapsible='true' collapsed='true'")));
        m_panel->move(room().bottomRight() - m_panel->rect().bottomRight());
        const int closed = m_panel->height();
        QTest::mouseClick(child<QToolButton>("panelTitle"), Qt::LeftButton);
        QTRY_VERIFY(m_panel->height() > closed);
        QVERIFY(child<QScrollArea>("algorithmParameters")->verticalScrollBar()->maximum() > 0);
        QVERIFY(isWhole("btn_ok") && isWhole("btn_cancel"));
        QVERIFY(room().contains(m_panel->frameGeometry()));
    }

private:
    /// Opens the strategy of a file.
    void openFile(const QString& text) const
    {
        QVector<StrategyFile> files{ StrategyTexts::read(text) };
        QCOMPARE(files.constFirst().strategies.constFirst().remarks.refusal, Status());
        StrategyLibrary::instance().setFiles(files);
        m_panel->RefreshAlgoList();
        open(StrategyLibrary::instance().names().constLast());
        QVERIFY(QTest::qWaitForWindowExposed(m_panel));
    }
    /// Whether a part is visible and nothing of it is cut.
    bool isWhole(const char* name) const
    {
        const QWidget* const part = child<QWidget>(name);
        return part && part->visibleRegion().boundingRect() == part->rect();
    }
    QRect room() const { return m_panel->screen()->availableGeometry(); }

    template <typename Widget> Widget* child(const char* name) const
    {
        Widget* found = nullptr;
        const auto all = m_panel->findChildren<Widget*>(QLatin1String(name));
        for (Widget* const each : all) {
            if (each->isVisibleTo(m_panel))
                found = each;
        }
        return found;
    }
    QLineEdit* line(const char* name) const { return child<QAbstractSpinBox>(name)->findChild<QLineEdit*>(); }

    void type(const char* name, const QString& text) const
    {
        QLineEdit* const edit = line(name);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, text);
    }

    void open(const QString& name, const Map& parameters = {}) const
    {
        QCOMPARE(m_panel->LoadStrategy(strategy(name), {}, parameters, Symbol), QStringLiteral("0"));
        m_panel->setBaseInfoData(baseData(), false);
        QVERIFY(m_panel->isVisible());
    }

    void press(const char* button) const { QTest::mouseClick(child<QPushButton>(button), Qt::LeftButton); }

    QString message() const { return child<QLabel>("lab_message") ? child<QLabel>("lab_message")->text() : QString(); }

    ParamListWidget_single* make(const QStringList& white, const QStringList& black, int flags)
    {
        auto* const panel = OrloStrategyFactory::instance().CreateStrategyWgt(
            StrategyMode::Single, m_owner.get(), Algo_Values::AlgoGlobalType::instruction, white, black, flags);
        panel->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        panel->setWindowModality(Qt::ApplicationModal);
        return panel;
    }

    std::unique_ptr<QWidget> m_owner;
    ParamListWidget_single* m_panel = nullptr;
};

QTEST_MAIN(AlgorithmPanelTest)
#include "tst_algorithm_panel.moc"
