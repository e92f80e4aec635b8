#include "AutoPlanField.h"
#include "ClientWindowTest.h"
#include "EditorForm.h"
#include "FieldMark.h"
#include "Kelvo_Values.h"
#include "Language.h"
#include "OrloDateEdit.h"
#include "PlanCodes.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTranslator>
#include <QWindow>
#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;

namespace {

/// A change of the ordinary plan that one rule refuses.
struct Fault {
    const char* name;
    PlanForm (*form)(const PlanForm& plan);
    const char* box;
    const char* text;
    const char* field;
};

PlanForm withTarget(PlanForm plan, const QString& target)
{
    plan.target = target;
    return plan;
}

const QVector<Fault>& faults()
{
    static const QVector<Fault> list{
        { "no security",
            [](const PlanForm& plan) {
                PlanForm form = plan;
                form.symbol.clear();
                return form;
            },
            "msgBoxWarning", "未输入代码！", "le_symbol" },
        { "no target", [](const PlanForm& plan) { return withTarget(plan, QStringLiteral("x")); }, "msgBoxWarning",
            "未输入目标总量！", "le_targetTotalNum" },
        { "a target of zero", [](const PlanForm& plan) { return withTarget(plan, QStringLiteral("0")); },
            "msgBoxWarning", "沪市债券目标总量需为1的正整数倍，是否继续？", "le_targetTotalNum" },
        { "no daily quantity",
            [](const PlanForm& plan) {
                PlanForm form = plan;
                form.planType = PlanType::SameElements;
                form.perDay = QStringLiteral("0");
                return form;
            },
            "msgBoxWarning", "未输入每日计划量!", "le_entrustMaxNum" },
        { "a formula with a character",
            [](const PlanForm& plan) { return plan.priced(PriceModel::Custom, QStringLiteral("1;2")); },
            "msgBoxWarning", "价格公式包含特殊字符;，请重新编辑！", "lineEdit_price1" },
        { "a second formula with a character",
            [](const PlanForm& plan) {
                return plan.priced(PriceModel::CompareMax, QStringLiteral("1"), QStringLiteral("2;"));
            },
            "msgBoxWarning", "价格2公式包含特殊字符;，请重新编辑！", "lineEdit_price2" },
        { "a formula that cannot be computed",
            [](const PlanForm& plan) { return plan.priced(PriceModel::Custom, QStringLiteral("1+")); }, "msgBoxError",
            nullptr, "lineEdit_price1" },
        { "a daily maximum that is no number",
            [](const PlanForm& plan) {
                PlanForm form = plan;
                form.perDay = QStringLiteral("1,5");
                return form;
            },
            "msgBoxError", nullptr, "le_entrustMaxNum" },
        { "more than the account may buy",
            [](const PlanForm& plan) { return withTarget(plan, QStringLiteral("20亿")); }, "msgBoxError", nullptr,
            "le_targetTotalNum" },
        { "more than the holdings, declined",
            [](const PlanForm& plan) {
                PlanForm form = withTarget(plan, QStringLiteral("1亿"));
                form.side = Kelvo_Values::OrderSide::sell;
                return form;
            },
            "msgBoxQuestion", nullptr, "le_targetTotalNum" },
    };
    return list;
}

} // namespace

/// After a message of the editor, the field that it is about has the keyboard and is marked.
class MessageFocusTest : public ClientWindowTest {
    Q_OBJECT

private:
    void prepare() override
    {
        ClientWindowTest::prepare();
        openWindow();
        pressForEditor(Qt::Key_N);
    }

    QWidget* formField(const char* name) const { return field<QWidget>(*dialogEditor(), name); }
    bool isMarked(const char* name) const { return FieldMark::isSet(formField(name), FieldMark::Faulty); }

    QStringList marked() const
    {
        QStringList names;
        for (const QWidget* const widget : dialogEditor()->findChildren<QWidget*>()) {
            if (FieldMark::isSet(widget, FieldMark::Faulty))
                names << widget->objectName();
        }
        return names;
    }

    // As a window system sends it: the clicked window is activated first.
    static void clickThroughItsWindow(const QWidget& target)
    {
        QWindow* const behind = target.window()->windowHandle();
        behind->requestActivate();
        QTest::mouseClick(
            behind, Qt::LeftButton, Qt::NoModifier, target.mapTo(target.window(), target.rect().center()));
    }

private Q_SLOTS:
    void theFieldOfAMessageHasTheFocus_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < faults().size(); ++i)
            QTest::newRow(faults().at(i).name) << i;
    }

    void theFieldOfAMessageHasTheFocus()
    {
        QFETCH(int, index);
        const Fault& fault = faults().at(index);
        FormDriver driver = dialogDriver();
        driver.fill(fault.form(ordinary()));
        QCOMPARE(driver.takeProblems(), QStringList());
        const QString text = boxOf([this] { dialogDriver().confirm(); }, fault.box,
            QLatin1String(fault.box) != QLatin1String("msgBoxQuestion"));
        QVERIFY(!text.isEmpty());
        if (fault.text)
            QCOMPARE(text, QString::fromUtf8(fault.text));
        QVERIFY(takeKeyboard(&dialog()));
        QVERIFY2(formField(fault.field)->hasFocus(), qPrintable(QApplication::focusWidget()->objectName()));
        QCOMPARE(marked(), QStringList(QLatin1String(fault.field)));
        QCOMPARE(*plans().count(), 0);
    }

    void theMarkIsRemovedByAChange()
    {
        FormDriver driver = dialogDriver();
        driver.fill(withTarget(ordinary(), QStringLiteral("0")));
        QVERIFY(!send("msgBoxWarning").isEmpty());
        QVERIFY(isMarked("le_targetTotalNum"));
        QVERIFY(takeKeyboard(&dialog()));
        // The whole number is selected, so that the next key replaces it.
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("10000"));
        QCOMPARE(marked(), QStringList());
        QCOMPARE(send(), QStringLiteral("交易自动规划创建成功!"));
        QCOMPARE(plans().record(newestPlan())->value(BaseField::totalQty).toString(), QStringLiteral("10000"));
    }

    void theNextMessageMovesTheMark()
    {
        FormDriver driver = dialogDriver();
        PlanForm form = withTarget(ordinary(), QStringLiteral("0"));
        form.perDay = QStringLiteral("x");
        driver.fill(form);
        QVERIFY(!send("msgBoxWarning").isEmpty());
        QCOMPARE(marked(), QStringList(QStringLiteral("le_targetTotalNum")));
        driver.type("le_targetTotalNum", QStringLiteral("1万"));
        QVERIFY(!send("msgBoxError").isEmpty());
        QCOMPARE(marked(), QStringList(QStringLiteral("le_entrustMaxNum")));
    }

    void anAcceptedQuestionMarksNothing()
    {
        FormDriver driver = dialogDriver();
        PlanForm form = withTarget(ordinary(), QStringLiteral("300000"));
        form.side = Kelvo_Values::OrderSide::sell;
        driver.fill(form);
        boxes().expect(QStringLiteral("msgBoxQuestion"));
        boxes().expect(QStringLiteral("msgBoxTip"));
        driver.confirm();
        QCOMPARE(boxes().take().size(), 2);
        QCOMPARE(marked(), QStringList());
        QCOMPARE(*plans().count(), 1);
    }

    void aRefusedDateHasTheFocus()
    {
        FormDriver driver = dialogDriver();
        driver.fill(ordinary());
        auto* const end = field<QLineEdit>(*formField("date_effectivePeriod_Multi"), "le_end");
        QTest::mouseClick(end, Qt::LeftButton);
        QTest::keyClick(end, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(end, QStringLiteral("2024-05-18"));
        QVERIFY(!send("msgBoxError").isEmpty());
        QVERIFY(takeKeyboard(&dialog()));
        QVERIFY(end->hasFocus());
        QCOMPARE(marked(), QStringList(QStringLiteral("le_end")));
    }

    void anAlgorithmWithoutParametersIsShown()
    {
        FormDriver driver = dialogDriver();
        PlanForm form = ordinary(ReviewedAccount);
        form.instructionMode = InstMode::AlgoReview;
        driver.fill(form);
        QCOMPARE(send("msgBoxWarning"), QStringLiteral("未设置算法参数！"));
        QVERIFY(takeKeyboard(&dialog()));
        QVERIFY(formField("btn_algoParamSetting")->hasFocus());
        QVERIFY(isMarked("btn_algoParamSetting"));
    }

    void theFieldIsFoundInEnglishToo()
    {
        dialog().leave();
        closeWindow();
        QCOMPARE(useLanguage(QStringLiteral("en")), Status());
        openWindow();
        pressForEditor(Qt::Key_N);
        dialogDriver().fill(withTarget(ordinary(), QStringLiteral("x")));
        QCOMPARE(send("msgBoxWarning"), QStringLiteral("No target total is entered!"));
        QCOMPARE(marked(), QStringList(QStringLiteral("le_targetTotalNum")));
        qDeleteAll(qApp->findChildren<QTranslator*>());
    }

    // On a small screen the form is scrolled.
    void theFieldIsScrolledIntoView()
    {
        FormDriver driver = dialogDriver();
        PlanForm form = ordinary();
        form.symbol.clear();
        driver.fill(form);
        dialog().setMaximumHeight(300);
        auto* const area = qobject_cast<QScrollArea*>(dialogEditor()->parentWidget()->parentWidget());
        area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
        QVERIFY(formField("le_symbol")->visibleRegion().isEmpty());
        QVERIFY(!send("msgBoxWarning").isEmpty());
        const QWidget* const symbol = formField("le_symbol");
        QCOMPARE(symbol->visibleRegion().boundingRect(), symbol->rect());
    }

    void aClickBehindABoxLeavesTheKeyboardToTheBox()
    {
        dialogDriver().fill(withTarget(ordinary(), QStringLiteral("0")));
        int returns = 0;
        bool isPressed = false;
        boxes().setOnShown([&](QWidget* box) {
            const QVector<const QWidget*> targets{ formField("le_remark"), formField("btn_cancel"),
                field<QWidget>(window(), "filter_today") };
            for (const QWidget* const target : targets) {
                QSignalSpy moves(qApp, &QGuiApplication::focusWindowChanged);
                clickThroughItsWindow(*target);
                const bool hasMoved = moves.count() > 0 || moves.wait();
                if (hasMoved && QTest::qWaitFor([box] { return QApplication::activeWindow() == box; }))
                    ++returns;
            }
            QTest::keyPress(QGuiApplication::focusWindow(), Qt::Key_Space);
            isPressed = box->findChild<QAbstractButton*>(QStringLiteral("btnConfirm"))->isDown();
        });
        QVERIFY(!send("msgBoxWarning").isEmpty());
        boxes().setOnShown({});
        QCOMPARE(returns, 3);
        QVERIFY(isPressed);
        QVERIFY(dialog().isVisible());
        QVERIFY(!formField("le_remark")->hasFocus());
        QVERIFY(field<QAbstractButton>(window(), "filter_all")->isChecked());
    }
};

QTEST_MAIN(MessageFocusTest)
#include "tst_message_focus.moc"
