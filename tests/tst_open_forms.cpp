// The forms beside the window of the plans: several at once, and the keys that send them.
#include "AutoPlanField.h"
#include "ClientWindowTest.h"
#include "PlanCodes.h"
#include "StrategyFolder.h"
#include "StrategyTexts.h"
#include "TestStatus.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QWindow>
#include <QtTest>

#include <algorithm>

using namespace PlanCodes;

namespace {

/// The open forms, in the order of their titles.
QVector<EditorDialog*> openForms()
{
    QVector<EditorDialog*> forms;
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        auto* const form = qobject_cast<EditorDialog*>(widget);
        if (form && form->isVisible())
            forms << form;
    }
    std::sort(forms.begin(), forms.end(),
        [](const EditorDialog* a, const EditorDialog* b) { return a->windowTitle() < b->windowTitle(); });
    return forms;
}

QLineEdit* remarkOf(const EditorDialog& form)
{
    return field<QLineEdit>(*form.editor(), "le_remark");
}

} // namespace

class OpenFormsTest : public ClientWindowTest {
    Q_OBJECT

private:
    /// Opens another new form and types a remark.
    EditorDialog* openWithRemark(const QString& remark)
    {
        pressForEditor(Qt::Key_N);
        QTest::keyClicks(remarkOf(dialog()), remark);
        return &dialog();
    }

    int rows() const { return field<QTableView>(window(), "planTable")->model()->rowCount(); }

private Q_SLOTS:
    void thePlansCanBeUsedWhileAFormIsOpen()
    {
        createSamples(3);
        openWindow();
        const EditorDialog* const form = openWithRemark(QStringLiteral("x"));
        auto* const failed = field<QPushButton>(window(), "filter_failed");
        QVERIFY(takeKeyboard(&window()));
        QTest::mouseClick(failed, Qt::LeftButton);
        QCOMPARE(rows(), 0);
        QTest::mouseClick(field<QPushButton>(window(), "filter_all"), Qt::LeftButton);
        QCOMPARE(rows(), 3);
        QVERIFY(press(&window(), Qt::Key_F, Qt::ControlModifier));
        auto* const search = field<QLineEdit>(window(), "le_search");
        QVERIFY(search->hasFocus());
        QTest::keyClicks(search, QStringLiteral("AP00000002"));
        QCOMPARE(rows(), 1);
        QTest::keyClick(search, Qt::Key_Escape);
        QTest::keyClick(field<QTableView>(window(), "planTable"), Qt::Key_End);
        QCOMPARE(window().currentPlan(), QStringLiteral("AP00000001"));
        QVERIFY(form->isVisible());
        QCOMPARE(remarkOf(*form)->text(), QStringLiteral("x"));
        boxes().expect(QStringLiteral("msgBoxQuestion"), true);
        window().close();
        QCOMPARE(boxes().take().size(), 1);
    }

    void aPlanHasOneForm()
    {
        createSamples(2);
        openWindow();
        for (const char* plan : { "AP00000001", "AP00000002", "AP00000001" }) {
            window().selectPlan(QLatin1String(plan));
            pressForEditor(Qt::Key_E);
            QCOMPARE(dialog().windowTitle(), QStringLiteral("修改计划 ") + QLatin1String(plan));
            QCOMPARE(QApplication::activeWindow(), &dialog());
        }
        QCOMPARE(openForms().size(), 2);
    }

    void newFormsAreSideBySide()
    {
        openWindow();
        const EditorDialog* const first = openWithRemark(QStringLiteral("a"));
        EditorDialog* const second = openWithRemark(QStringLiteral("b"));
        QVERIFY(first != second);
        QCOMPARE(openForms().size(), 2);
        QCOMPARE(remarkOf(*first)->text(), QStringLiteral("a"));
        FormDriver driver(second->editor());
        driver.fill(ordinary());
        QCOMPARE(driver.takeProblems(), QStringList());
        QCOMPARE(boxOf([&] { driver.confirm(); }), QStringLiteral("交易自动规划创建成功!"));
        QVERIFY(!second->isVisible());
        QVERIFY(first->isVisible());
        QCOMPARE(remarkOf(*first)->text(), QStringLiteral("a"));
        QCOMPARE(*plans().count(), 1);
        QCOMPARE(window().currentPlan(), newestPlan());
        QCOMPARE(boxOf([this] { window().close(); }, "msgBoxQuestion"),
            QStringLiteral("计划尚未提交，关闭后填写的内容将丢失，是否关闭？"));
    }

    void whatIsRefusedInOneFormDoesNotConcernAnother()
    {
        openWindow();
        const EditorDialog* const first = openWithRemark(QStringLiteral("a"));
        auto* const end = first->editor()->findChild<QLineEdit*>(QStringLiteral("le_end"));
        QTest::mouseClick(end, Qt::LeftButton);
        QTest::keyClick(end, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(end, QStringLiteral("never"));
        QTest::keyClick(end, Qt::Key_Tab);
        QCOMPARE(end->text(), QStringLiteral("never"));
        QVERIFY(!createPlan().isEmpty());
        QVERIFY(first->isVisible());
        QVERIFY(!boxOf([this] { window().close(); }, "msgBoxQuestion").isEmpty());
    }

    void closingTheWindowAsksOnceForAllForms()
    {
        openWindow();
        openWithRemark(QStringLiteral("a"));
        openWithRemark(QStringLiteral("b"));
        pressForEditor(Qt::Key_N);
        const QString question = QStringLiteral("2个计划尚未提交，关闭后填写的内容将丢失，是否关闭？");
        QCOMPARE(boxOf([this] { window().close(); }, "msgBoxQuestion", false), question);
        QCOMPARE(openForms().size(), 3);
        QVERIFY(window().isVisible());
        QCOMPARE(boxOf([this] { window().close(); }, "msgBoxQuestion"), question);
        QCOMPARE(openForms().size(), 0);
        QVERIFY(!window().isVisible());
    }

    void aBoxKeepsTheKeyboardWhenAnotherWindowIsClicked()
    {
        openWindow();
        const EditorDialog* const other = openWithRemark(QStringLiteral("a"));
        pressForEditor(Qt::Key_N);
        int returns = 0;
        boxes().setOnShown([&](QWidget* box) {
            const QVector<const QWidget*> windows{ other, &window() };
            for (const QWidget* const behind : windows) {
                QSignalSpy moves(qApp, &QGuiApplication::focusWindowChanged);
                behind->windowHandle()->requestActivate();
                const bool hasMoved = moves.count() > 0 || moves.wait();
                if (hasMoved && QTest::qWaitFor([box] { return QApplication::activeWindow() == box; }))
                    ++returns;
            }
            QTest::keyClick(other->windowHandle(), Qt::Key_Z);
        });
        QVERIFY(!send("msgBoxWarning").isEmpty());
        boxes().setOnShown({});
        QCOMPARE(returns, 2);
        QCOMPARE(remarkOf(*other)->text(), QStringLiteral("a"));
        QVERIFY(!boxOf([this] { window().close(); }, "msgBoxQuestion").isEmpty());
    }

    void theFormOfAPlanThatIsPausedSaysSo()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        pressForEditor(Qt::Key_E);
        field<QAction>(window(), "action_pause")->trigger();
        QTRY_COMPARE_WITH_TIMEOUT(plans().plan(plan)->state, PlanState::Paused, Patience);
        auto* const notice = field<QWidget>(dialog(), "changeNotice");
        QTRY_VERIFY_WITH_TIMEOUT(notice->isVisible(), Patience);
    }

    void anOpenFormOffersTheAlgorithmsOfNewFiles()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        FormDriver driver = dialogDriver();
        PlanForm form = ordinary(ReviewedAccount);
        form.instructionMode = InstMode::AlgoReview;
        driver.fill(form);
        const QStringList problems = driver.takeProblems();
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
        const auto offered = [this] {
            QTest::mouseClick(field<QWidget>(*dialogEditor(), "btn_algoParamSetting"), Qt::LeftButton);
            auto* const panel = field<QWidget>(*dialogEditor(), "algorithmPanel");
            const auto* const strategies = field<QComboBox>(*panel, "combx_strategy");
            QStringList names;
            for (int i = 0; i < strategies->count(); ++i)
                names << strategies->itemData(i).toString();
            QTest::mouseClick(field<QWidget>(*panel, "btn_cancel"), Qt::LeftButton);
            return names;
        };
        const QStringList before = offered();
        QCOMPARE(before.size(), 5);
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("own.xml")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(StrategyTexts::strategy(QStringLiteral("<Parameter name=\"P\" xsi:type=\"Int_t\"/>")).toUtf8());
        file.close();
        QSignalSpy changes(&StrategyFolder::instance(), &StrategyFolder::changed);
        StrategyFolder::instance().open(folder.path());
        QVERIFY(changes.wait(Patience));
        QCOMPARE(offered(), before + QStringList{ QStringLiteral("S@own") });
        StrategyFolder::instance().open(QString());
        QVERIFY(changes.wait(Patience));
        QCOMPARE(offered(), before);
        dialog().leave();
    }

    // --- Users who cannot make a plan

    void aUserWithoutRightGetsNoForm_data()
    {
        const QString noRight =
            QStringLiteral("用户%1的账户没有下单权限，或没有相应市场的证券账户，不能新建计划，请联系管理员");
        QTest::addColumn<QString>("user");
        QTest::addColumn<QString>("text");
        QTest::newRow("no account") << "trader02"
                                    << QStringLiteral("用户trader02没有账户，不能新建计划，请联系管理员分配账户");
        QTest::newRow("bonds in Beijing only") << "trader05" << noRight.arg(QStringLiteral("trader05"));
        QTest::newRow("a margin account in Beijing") << "trader08" << noRight.arg(QStringLiteral("trader08"));
        QTest::newRow("no account at an exchange") << "trader09" << noRight.arg(QStringLiteral("trader09"));
        QTest::newRow("no right") << "trader10" << noRight.arg(QStringLiteral("trader10"));
    }

    void aUserWithoutRightGetsNoForm()
    {
        QFETCH(QString, user);
        QFETCH(QString, text);
        QCOMPARE(session().reopen(user), Status());
        openWindow();
        QCOMPARE(boxOf([this] { press(&window(), Qt::Key_N, Qt::ControlModifier); }, "msgBoxWarning"), text);
        QCOMPARE(openForms().size(), 0);
        QCOMPARE(window().focusWidget(), field<QTableView>(window(), "planTable"));
    }

    void aUserWithoutAccountCannotCopy()
    {
        QVERIFY(!session().create(reduction(SampleSession::record())).isEmpty());
        QCOMPARE(session().reopen(QStringLiteral("reviewer01")), Status());
        openWindow();
        QCOMPARE(rows(), 1);
        QCOMPARE(boxOf([this] { press(&window(), Qt::Key_D, Qt::ControlModifier); }, "msgBoxWarning"),
            QStringLiteral("用户reviewer01没有账户，不能新建计划，请联系管理员分配账户"));
        QCOMPARE(openForms().size(), 0);
        QCOMPARE(window().focusWidget(), field<QTableView>(window(), "planTable"));
    }

    void oneAccountWithRightIsEnough_data()
    {
        QTest::addColumn<QString>("user");
        for (const char* const user : { "trader01", "trader03", "trader04", "trader06", "trader07" })
            QTest::newRow(user) << QString::fromLatin1(user);
    }

    void oneAccountWithRightIsEnough()
    {
        QFETCH(QString, user);
        QCOMPARE(session().reopen(user), Status());
        openWindow();
        pressForEditor(Qt::Key_N);
        auto* const account = field<QComboBox>(*dialogEditor(), "combx_fundAccount");
        account->setCurrentIndex(0);
        QVERIFY(field<QComboBox>(*dialogEditor(), "combx_instructionType")->count() > 0);
        dialog().leave();
    }

    // --- Keys

    void controlEnterIsOkInEveryField_data()
    {
        QTest::addColumn<QString>("field");
        for (const char* name : { "combx_fundAccount", "combx_planType", "le_symbol", "combx_tradeSide",
                 "lineEdit_price1", "le_targetTotalNum", "le_entrustMaxNum", "le_start", "le_end", "le_remark" })
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void controlEnterIsOkInEveryField()
    {
        QFETCH(QString, field);
        openWindow();
        pressForEditor(Qt::Key_N);
        FormDriver driver = dialogDriver();
        driver.fill(ordinary());
        driver.choose("combx_priceMode", PriceModel::Custom);
        driver.type("lineEdit_price1", QStringLiteral("17.49"));
        QCOMPARE(driver.takeProblems(), QStringList());
        auto* const widget = dialogEditor()->findChild<QWidget*>(field);
        for (const Qt::Key enter : { Qt::Key_Return, Qt::Key_Enter }) {
            widget->setFocus(Qt::TabFocusReason);
            QTest::keyClick(widget, enter);
            QVERIFY(dialog().isVisible());
            QCOMPARE(boxes().take().size(), 0);
        }
        QCOMPARE(boxOf([&] { QTest::keyClick(widget, Qt::Key_Return, Qt::ControlModifier); }),
            QStringLiteral("交易自动规划创建成功!"));
        QCOMPARE(*plans().count(), 1);
        QVERIFY(!dialog().isVisible());
    }

    void controlEnterTakesWhatIsBeingTyped()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        dialogDriver().fill(ordinary());
        const auto retype = [this](const char* name, const QString& text) {
            auto* const widget = field<QWidget>(*dialogEditor(), name);
            QTest::mouseClick(widget, Qt::LeftButton);
            QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(widget, text);
            return widget;
        };
        retype("le_targetTotalNum", QStringLiteral("20000"));
        QWidget* const end = retype("le_end", QStringLiteral("20240531"));
        QVERIFY(!boxOf([&] { QTest::keyClick(end, Qt::Key_Enter, Qt::ControlModifier); }).isEmpty());
        const auto record = plans().record(newestPlan());
        QCOMPARE(record->value(AutoPlanField::BaseField::totalQty).toString(), QStringLiteral("20000"));
        QCOMPARE(record->value(AutoPlanField::BaseField::endDate).toString(), QStringLiteral("2024-05-31"));
    }

    void controlEnterIsOkWhileAPopupIsOpen_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::newRow("securities") << QStringLiteral("le_symbol") << QStringLiteral("CODE");
        QTest::newRow("names of a formula") << QStringLiteral("lineEdit_price1") << QStringLiteral("M");
        QTest::newRow("accounts") << QStringLiteral("combx_fundAccount") << QString();
        QTest::newRow("plan types") << QStringLiteral("combx_planType") << QString();
        QTest::newRow("calendar") << QStringLiteral("le_end") << QString();
    }

    void controlEnterIsOkWhileAPopupIsOpen()
    {
        QFETCH(QString, field);
        QFETCH(QString, typed);
        typed.replace(QStringLiteral("CODE"), share().left(6));
        openWindow();
        pressForEditor(Qt::Key_N);
        FormDriver driver = dialogDriver();
        driver.fill(ordinary());
        driver.choose("combx_priceMode", PriceModel::Custom);
        QVERIFY(takeKeyboard(&dialog()));
        auto* const widget = dialogEditor()->findChild<QWidget*>(field);
        QTest::mouseClick(widget, Qt::LeftButton);
        if (typed.isEmpty()) {
            if (!QApplication::activePopupWidget())
                QTest::keyClick(widget, Qt::Key_Down, Qt::AltModifier);
            QVERIFY(QApplication::activePopupWidget());
        } else {
            QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(widget, typed);
            auto* const suggestions = widget->findChild<QWidget*>(QStringLiteral("suggestions"));
            QTRY_VERIFY(suggestions && suggestions->isVisible());
        }
        QWidget* const popup = QApplication::activePopupWidget();
        QWidget* const focused = popup ? (popup->focusWidget() ? popup->focusWidget() : popup) : widget;
        boxes().expect(QStringLiteral("msgBoxWarning"), true);
        QTest::keyClick(focused, Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(!QApplication::activePopupWidget());
        // The price is missing, or the security: the form was sent.
        QCOMPARE(boxes().take().size(), 1);
        dialog().leave();
    }
};

QTEST_MAIN(OpenFormsTest)
#include "tst_open_forms.moc"
