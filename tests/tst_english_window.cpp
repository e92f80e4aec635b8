// The client in English: no window, menu, tool tip, box or message has a Chinese text that is not data.
#include "AdvisorPanel.h"
#include "AutoPlanField.h"
#include "ChineseTexts.h"
#include "ClientWindowTest.h"
#include "DayPrice.h"
#include "ErrorText.h"
#include "HistoryTexts.h"
#include "InstructionIssuer.h"
#include "Language.h"
#include "PlanCodes.h"
#include "PlanLife.h"
#include "PlanTable.h"
#include "StrategyFolder.h"
#include "StrategyTexts.h"
#include "TestStatus.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QTemporaryDir>
#include <QTranslator>
#include <QTreeWidget>
#include <QtTest>

#include <memory>

using namespace PlanCodes;

namespace {

void addModel(const QAbstractItemModel* model, QStringList& texts)
{
    for (int column = 0; model && column < model->columnCount(); ++column) {
        texts << model->headerData(column, Qt::Horizontal).toString();
        for (int row = 0; row < qMin(model->rowCount(), 200); ++row)
            for (const int role : { Qt::DisplayRole, Qt::ToolTipRole, Qt::AccessibleTextRole })
                texts << model->index(row, column).data(role).toString();
    }
}

void addTexts(const QWidget* widget, QStringList& texts)
{
    texts << widget->windowTitle() << widget->toolTip() << widget->statusTip() << widget->accessibleName()
          << widget->accessibleDescription();
    if (const auto* const label = qobject_cast<const QLabel*>(widget))
        texts << label->text();
    if (const auto* const button = qobject_cast<const QAbstractButton*>(widget))
        texts << button->text();
    if (const auto* const line = qobject_cast<const QLineEdit*>(widget))
        texts << line->text() << line->placeholderText();
    if (const auto* const group = qobject_cast<const QGroupBox*>(widget))
        texts << group->title();
    if (const auto* const text = qobject_cast<const QPlainTextEdit*>(widget))
        texts << text->toPlainText();
    if (const auto* const view = qobject_cast<const QAbstractItemView*>(widget))
        addModel(view->model(), texts);
    if (const auto* const box = qobject_cast<const QComboBox*>(widget))
        addModel(box->model(), texts);
    for (const QAction* const action : widget->actions())
        texts << action->text() << action->toolTip() << action->statusTip();
}

} // namespace

class EnglishWindowTest : public ClientWindowTest {
    Q_OBJECT

private:
    void prepare() override
    {
        // First, because the algorithms are read once.
        QCOMPARE(useLanguage(QStringLiteral("en")), Status());
        ClientWindowTest::prepare();
        m_chinese = std::make_unique<ChineseTexts>(session().file());
        // What a message says can be typed.
        m_chinese->allow({ QStringLiteral("50,000 or 5万"), QStringLiteral("千, 万, 百万, 千万 and 亿") });
    }
    void tidyUp() override
    {
        ClientWindowTest::tidyUp();
        qDeleteAll(qApp->findChildren<QTranslator*>());
    }

    /// The Chinese texts of all visible windows.
    QStringList chinese() const
    {
        QStringList texts;
        for (const QWidget* const top : QApplication::topLevelWidgets()) {
            if (!top->isVisible())
                continue;
            addTexts(top, texts);
            for (const QWidget* const widget : top->findChildren<QWidget*>())
                addTexts(widget, texts);
        }
        QStringList found;
        for (const QString& text : qAsConst(texts)) {
            if (m_chinese->isIn(text) && !found.contains(text))
                found << text;
        }
        return found;
    }

    void fillForm()
    {
        pressForEditor(Qt::Key_N);
        FormDriver driver = dialogDriver();
        driver.fill(ordinary());
        driver.choose("combx_priceMode", PriceModel::Custom);
        driver.type("lineEdit_price1", PriceItem::PreviousClose + QStringLiteral("*0.99"));
        driver.takeProblems();
        const AdvisorPanel* const advisor = dialog().advisor();
        QTRY_VERIFY_WITH_TIMEOUT(advisor->isSettled(), Patience);
    }

    std::unique_ptr<ChineseTexts> m_chinese;

private Q_SLOTS:
    void theWindow()
    {
        createSamples(3);
        openWindow();
        QCOMPARE(chinese(), QStringList());
        press(&window(), Qt::Key_F5);
        QCOMPARE(chinese(), QStringList());
    }

    void thePlansInEveryState()
    {
        QStringList words;
        for (const PlanStage stage : { PlanStage::NotStarted, PlanStage::Running, PlanStage::Failed, PlanStage::Paused,
                 PlanStage::Stopped, PlanStage::Completed, PlanStage::Expired, PlanStage::Archived })
            words << PlanLife::word(stage);
        QCOMPARE(words.join(QLatin1Char(' ')),
            QStringLiteral("Not started Running Failed Paused Stopped Completed Expired Archived"));
        const QString plan = createSamples(1).constFirst();
        session().create(reduction(SampleSession::record()));
        session().create(customPrice(SampleSession::record(), QStringLiteral("1-1")));
        openWindow();
        for (int row = 0; row < 3; ++row) {
            QTest::keyClick(field<PlanTable>(window(), "planTable"), Qt::Key_Down);
            QCOMPARE(chinese(), QStringList());
        }
        window().selectPlan(plan);
        field<QAction>(window(), "action_pause")->trigger();
        QTRY_COMPARE_WITH_TIMEOUT(plans().plan(plan)->state, PlanState::Paused, Patience);
        QTRY_VERIFY_WITH_TIMEOUT(!field<QLabel>(window(), "status")->text().isEmpty(), Patience);
        press(&window(), Qt::Key_F5);
        QCOMPARE(chinese(), QStringList());
    }

    void theColumnsAreWideEnough()
    {
        createSamples(1);
        openWindow();
        const auto* const table = field<PlanTable>(window(), "planTable");
        const auto fits = [table](int column, const QString& text) {
            return table->fontMetrics().horizontalAdvance(text) < table->columnWidth(column);
        };
        for (const PlanStage stage : { PlanStage::NotStarted, PlanStage::Running, PlanStage::Failed, PlanStage::Paused,
                 PlanStage::Stopped, PlanStage::Completed, PlanStage::Expired, PlanStage::Archived })
            QVERIFY2(fits(PlanColumns::State, PlanLife::word(stage)), qPrintable(PlanLife::word(stage)));
        QVERIFY(fits(PlanColumns::Target, QStringLiteral("1,500,000.50 yuan")));
        for (int column = 0; column < PlanColumns::Count; ++column) {
            const QString text = table->model()->index(0, column).data().toString();
            QVERIFY2(fits(column, text), qPrintable(text));
        }
    }

    void theFormWithTheAdvisor()
    {
        openWindow();
        fillForm();
        QCOMPARE(chinese(), QStringList());
        dialogDriver().choose("combx_planType", PlanType::ReduceHoldings);
        QTRY_VERIFY_WITH_TIMEOUT(dialog().advisor()->isSettled(), Patience);
        QCOMPARE(chinese(), QStringList());
        boxes().take();
        dialog().leave();
    }

    void theHintsOfFields()
    {
        openWindow();
        fillForm();
        for (const char* number : { "5w", "1.25x", "-1", "0.5", "5万", "1.2亿", "3手" }) {
            auto* const target = field<QWidget>(*dialogEditor(), "le_targetTotalNum");
            QTest::mouseClick(target, Qt::LeftButton);
            QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
            target->findChild<QLineEdit*>()->insert(QString::fromUtf8(number));
            QStringList found = chinese();
            found.removeAll(QString::fromUtf8(number));
            QCOMPARE(found.join(QLatin1Char('\n')), QString());
        }
        dialog().leave();
    }

    void theSheetOfTheDay()
    {
        createSamples(2);
        QVERIFY(plans().create(
            customPrice(SampleSession::record(), QStringLiteral("1-1")), ClientSession::instance().changeNow()));
        openWindow();
        press(&window(), Qt::Key_I, Qt::ControlModifier);
        const auto isReady = [this] {
            const auto* const button = window().findChild<QAbstractButton*>(QStringLiteral("btn_issue"));
            return button && button->isEnabled();
        };
        QTRY_VERIFY_WITH_TIMEOUT(isReady(), Patience);
        QCOMPARE(chinese(), QStringList());
        boxes().setOnShown([this](QWidget*) { QCOMPARE(chinese(), QStringList()); });
        boxOf([this] { QTest::mouseClick(field<QAbstractButton>(window(), "btn_issue"), Qt::LeftButton); },
            "msgBoxQuestion");
        boxes().setOnShown({});
        QTRY_VERIFY_WITH_TIMEOUT(!field<QWidget>(window(), "issueProgress")->isVisible(), Patience);
        QCOMPARE(chinese(), QStringList());
    }

    void theSheetOfAnImport()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        window().selectPlan(plan);
        field<QAction>(window(), "action_sheet")->trigger();
        QCOMPARE(chinese(), QStringList());
        QGuiApplication::clipboard()->setText(
            QStringLiteral("code\tquantity\tamount\n%1\t1000\t\n%1\t1.5\t\nX\t\t\n").arg(share()));
        QTest::mouseClick(field<QAbstractButton>(window(), "btn_paste"), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(!field<QWidget>(window(), "importProgress")->isVisible(), Patience);
        QCOMPARE(field<QLabel>(window(), "importText")->text(),
            QStringLiteral("Clipboard: 1 added, 0 changed, 0 unchanged, 2 errors, not imported"));
        QCOMPARE(chinese(), QStringList());
        auto* const kinds = field<QComboBox>(window(), "combx_importKind");
        for (int kind = 0; kind < kinds->count(); ++kind) {
            kinds->setCurrentIndex(kind);
            QCOMPARE(chinese(), QStringList());
        }
    }

    void theExport()
    {
        createSamples(1);
        openWindow();
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("plans.xlsx"));
        const auto act = [this] { field<QAction>(window(), "action_export_plans")->trigger(); };
        chooseFile(act, file);
        QCOMPARE(field<QProgressDialog>(window(), "exportProgress")->labelText(),
            QStringLiteral("Exporting Plans to plans.xlsx…"));
        QCOMPARE(chinese(), QStringList());
        QTRY_VERIFY_WITH_TIMEOUT(!window().findChild<QProgressDialog*>(), Patience);
        QCOMPARE(field<QLabel>(window(), "status")->text(), QStringLiteral("Exported to ") + file);
        boxes().expect(QStringLiteral("msgBoxError"), true);
        chooseFile(act, folder.filePath(QStringLiteral("plans.doc")));
        QCOMPARE(m_chinese->linesIn(boxes().take().value(0).text), QStringList());
        QCOMPARE(chinese(), QStringList());
    }

    void theFormWithOldLists()
    {
        openWindow();
        fillForm();
        Market none;
        QCOMPARE(ClientSession::instance().takeImported(none), Status());
        dialog().lookForChange();
        QVERIFY(field<QWidget>(dialog(), "oldLists")->isVisible());
        QCOMPARE(chinese(), QStringList());
        dialog().leave();
    }

    void theBoxesAndDialogs()
    {
        createSamples(1);
        openWindow();
        QStringList found;
        boxes().setOnShown([this, &found](QWidget*) { found << chinese(); });
        pressForEditor(Qt::Key_N);
        QVERIFY(!send("msgBoxWarning").isEmpty());
        QTest::keyClicks(field<QLineEdit>(*dialogEditor(), "le_remark"), QStringLiteral("x"));
        QVERIFY(!boxOf([this] { press(&dialog(), Qt::Key_Escape); }, "msgBoxQuestion").isEmpty());
        pressForEditor(Qt::Key_N);
        QTest::keyClick(&dialog(), Qt::Key_F4);
        found << chinese();
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        dialog().leave();
        QTimer::singleShot(0, this, [&] {
            found << chinese();
            QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        });
        field<QAction>(window(), "action_stop")->trigger();
        QVERIFY(!boxOf([this] { field<QAction>(window(), "action_pauseAll")->trigger(); }, "msgBoxQuestion", false)
                     .isEmpty());
        boxes().setOnShown({});
        QCOMPARE(found, QStringList());
    }

    void theMenuOfTheColumns()
    {
        openWindow();
        QHeaderView* const header = field<PlanTable>(window(), "planTable")->horizontalHeader();
        QStringList found;
        QTimer::singleShot(0, this, [&] {
            found << chinese();
            QApplication::activePopupWidget()->close();
        });
        Q_EMIT header->customContextMenuRequested(QPoint(5, 5));
        QCOMPARE(found, QStringList());
    }

    void thePanelOfEveryAlgorithm()
    {
        openWindow();
        fillForm();
        FormDriver driver = dialogDriver();
        driver.choose("combx_instructionMode", InstMode::AlgoReview);
        QTest::mouseClick(field<QWidget>(*dialogEditor(), "btn_algoParamSetting"), Qt::LeftButton);
        auto* const panel = field<QWidget>(*dialogEditor(), "algorithmPanel");
        QVERIFY(panel->isVisible());
        auto* const strategies = field<QComboBox>(*panel, "combx_strategy");
        QCOMPARE(strategies->count(), 5);
        for (int i = 0; i < strategies->count(); ++i) {
            strategies->setCurrentIndex(i);
            QCOMPARE(chinese(), QStringList());
            // Every parameter is wrong, so that one is refused.
            for (QLineEdit* const line : panel->findChildren<QLineEdit*>())
                line->setText(QStringLiteral("x"));
            QTest::mouseClick(field<QWidget>(*panel, "btn_ok"), Qt::LeftButton);
            QVERIFY(panel->isVisible());
            QCOMPARE(chinese(), QStringList());
        }
        boxes().take();
        dialog().leave();
    }

    void theConflict()
    {
        const QString plan = createSamples(1).constFirst();
        openWindow();
        pressForEditor(Qt::Key_E);
        dialogDriver().type("le_targetTotalNum", QStringLiteral("3000"));
        PlanStore::Record record = SampleSession::record();
        record.insert(AutoPlanField::BaseField::totalQty, QStringLiteral("2000"));
        record.insert(AutoPlanField::BaseField::priceModel, PriceModel::Custom);
        record.insert(AutoPlanField::BaseField::priceFormula1, QStringLiteral("9.9"));
        QCOMPARE(plans().modify(plan, 1, record, ClientSession::instance().changeNow()), Status());
        const QString refusal = send("msgBoxError");
        QVERIFY(!refusal.isEmpty() && !m_chinese->isIn(refusal));
        QTRY_VERIFY_WITH_TIMEOUT(QApplication::activeModalWidget(), Patience);
        QCOMPARE(chinese(), QStringList());
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        dialog().leave();
    }

    void theStrategyFiles()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("bad.xml")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(
            StrategyTexts::strategy(QStringLiteral("<Parameter name=\"P\" xsi:type=\"UTCTimestamp_t\"/>")).toUtf8());
        file.close();
        QVERIFY(QFile::copy(file.fileName(), folder.filePath(QStringLiteral("worse.xml"))));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<Strategies/>");
        file.close();
        openWindow();
        field<QAction>(window(), "action_strategies")->trigger();
        QCOMPARE(chinese(), QStringList());
        StrategyFolder::instance().open(folder.path());
        auto* const files = field<QTreeWidget>(window(), "strategyFiles");
        QTRY_COMPARE_WITH_TIMEOUT(files->topLevelItemCount(), 2, Patience);
        QCOMPARE(chinese(), QStringList());
        StrategyFolder::instance().open(QString());
        QTRY_COMPARE_WITH_TIMEOUT(files->topLevelItemCount(), 0, Patience);
    }

    void theJournalAndTheAlerts()
    {
        createSamples(2);
        QVERIFY(plans().create(
            customPrice(SampleSession::record(), QStringLiteral("1-1")), ClientSession::instance().changeNow()));
        QVERIFY(InstructionIssuer::issueDay(SampleSession::today()));
        openWindow();
        press(&window(), Qt::Key_J, Qt::ControlModifier);
        QTRY_VERIFY_WITH_TIMEOUT(field<QTableView>(window(), "journalRows")->model()->rowCount() > 0, Patience);
        QCOMPARE(chinese(), QStringList());
        press(&window(), Qt::Key_L, Qt::ControlModifier);
        QTRY_VERIFY_WITH_TIMEOUT(field<QTableView>(window(), "alertRows")->model()->rowCount() > 0, Patience);
        QCOMPARE(chinese(), QStringList());
    }

    void aUserWithoutRight()
    {
        for (const char* const user : { "trader02", "trader10" }) {
            QCOMPARE(session().reopen(QString::fromLatin1(user)), Status());
            openWindow();
            const QString text = boxOf([this] { press(&window(), Qt::Key_N, Qt::ControlModifier); }, "msgBoxWarning");
            QVERIFY2(!text.isEmpty() && !m_chinese->isIn(text), qPrintable(text));
        }
    }

    void theMessages()
    {
        QStringList found;
        for (int code = 0; code < static_cast<int>(Error::Count); ++code) {
            const QString text = errorText(static_cast<Error>(code));
            if (m_chinese->isIn(text))
                found << text;
        }
        for (const UnknownRequest request :
            { UnknownRequest::Plan, UnknownRequest::State, UnknownRequest::Issue, UnknownRequest::Signature })
            for (const bool isStored : { false, true })
                if (m_chinese->isIn(HistoryTexts::outcome(request, isStored, QStringLiteral("AP00000001"))))
                    found << HistoryTexts::outcome(request, isStored, QString());
        QCOMPARE(found, QStringList());
    }

    void theCaptionsInMessages_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        namespace Base = AutoPlanField::BaseField;
        QTest::newRow("a code") << Base::orderSide << QStringLiteral("9");
        QTest::newRow("a total") << Base::totalQty << QStringLiteral("-1");
        QTest::newRow("a date") << Base::beginDate << QStringLiteral("tomorrow");
        QTest::newRow("a closed day") << Base::endDate << QStringLiteral("2024-05-11");
        QTest::newRow("a formula") << Base::priceFormula1 << QStringLiteral("1+");
    }

    void theCaptionsInMessages()
    {
        QFETCH(QString, key);
        QFETCH(QString, value);
        const QString plan =
            session().create(with(customPrice(SampleSession::record(), QStringLiteral("9.9")), key, value));
        QCOMPARE(plan, QString());
        QVERIFY2(!session().reason().isEmpty() && !m_chinese->isIn(session().reason()), qPrintable(session().reason()));
    }
};

QTEST_MAIN(EnglishWindowTest)
#include "tst_english_window.moc"
