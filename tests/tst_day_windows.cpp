// The journal and the alerts of the window, missed days and cash in what the window shows, by keys and mouse.
#include "Alerts.h"
#include "AutoPlanField.h"
#include "CashStore.h"
#include "ClientClock.h"
#include "ClientWindowTest.h"
#include "InstructionIssuer.h"
#include "IssueSheet.h"
#include "IssueSheetModel.h"
#include "Journal.h"
#include "PlanColumns.h"
#include "PlanTable.h"
#include "TestStatus.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QTableView>
#include <QtTest>

#include <algorithm>

namespace {

const QDate Monday = SampleSession::today();
const QDate Tuesday = Monday.addDays(1);

} // namespace

class DayWindowsTest : public ClientWindowTest {
    Q_OBJECT

private Q_SLOTS:
    // --- Alerts

    void anAlertLeadsToItsPlanAndIsWorkedOff()
    {
        const QString plan = createSamples(1).constFirst();
        setClientToday(Tuesday);
        openWindow();
        QTRY_COMPARE_WITH_TIMEOUT(count()->text(), QStringLiteral("提醒 1"), Patience);
        QVERIFY(count()->isVisible());
        openAlerts(1);
        QCOMPARE(textsOf(alertRows(), 0).mid(0, 2), (QStringList{ QStringLiteral("漏下达"), plan }));
        QCOMPARE(textsOf(alertRows(), 0).constLast(), QStringLiteral("2024-05-06没有下达，也没有原因"));
        QVERIFY(press(alerts(), Qt::Key_Delete));
        QTRY_COMPARE_WITH_TIMEOUT(alertText(), QStringLiteral("没有提醒。"), Patience);
        QCOMPARE(alertRows()->model()->rowCount(), 0);
        QVERIFY(!count()->isVisible());
        QTest::keyClick(alerts(), Qt::Key_Escape);
        QVERIFY(!alerts()->isVisible());
        closeWindow();
        openWindow();
        openAlerts(0);
    }

    void aPlanEndsTodayOrOnTheNextTradeDay()
    {
        const QString friday = QStringLiteral("2024-05-10");
        QVERIFY(!session()
                     .create(with(with(SampleSession::record(), AutoPlanField::BaseField::beginDate, friday),
                         AutoPlanField::BaseField::endDate, friday))
                     .isEmpty());
        setClientToday(QDate(2024, 5, 9));
        openWindow();
        openAlerts(1);
        QCOMPARE(textsOf(alertRows(), 0).constFirst(), QStringLiteral("即将结束"));
        QCOMPARE(textsOf(alertRows(), 0).constLast(), QStringLiteral("下一交易日2024-05-10结束"));
        closeWindow();
        setClientToday(QDate(2024, 5, 10));
        openWindow();
        openAlerts(1);
        QCOMPARE(textsOf(alertRows(), 0).constLast(), QStringLiteral("今天结束"));
    }

    void anAlertLeadsToAPlanThatIsNotListed()
    {
        const QStringList plans = createSamples(2);
        setClientToday(Tuesday);
        openWindow();
        QTest::mouseClick(field<QAbstractButton>(window(), "filter_failed"), Qt::LeftButton);
        QCOMPARE(window().currentPlan(), QString());
        openAlerts(2);
        QTest::keyClick(alertRows(), Qt::Key_Down);
        QTest::keyClick(alertRows(), Qt::Key_Return);
        QCOMPARE(window().currentPlan(), textsOf(alertRows(), 1).at(1));
        QVERIFY(field<QAbstractButton>(window(), "filter_all")->isChecked());
        QTest::mouseClick(row(alertRows(), 0), Qt::LeftButton);
        QTest::mouseClick(alerts()->findChild<QAbstractButton*>(QStringLiteral("btn_goToPlan")), Qt::LeftButton);
        QCOMPARE(window().currentPlan(), textsOf(alertRows(), 0).at(1));
    }

    void severalAlertsAreWorkedOffAtOnce()
    {
        createSamples(3);
        setClientToday(Tuesday);
        openWindow();
        openAlerts(3);
        QTest::keyClick(alertRows(), Qt::Key_Down, Qt::ShiftModifier);
        QTest::mouseClick(alerts()->findChild<QAbstractButton*>(QStringLiteral("btn_done")), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(alertRows()->model()->rowCount(), 1, Patience);
        QTRY_COMPARE_WITH_TIMEOUT(count()->text(), QStringLiteral("提醒 1"), Patience);
    }

    void aRefusedPlanBecomesAnAlertWhileTheWindowIsOpen()
    {
        const QString plan = *plans().create(
            customPrice(SampleSession::record(), QStringLiteral("1-1")), ClientSession::instance().changeNow());
        openWindow();
        // The window has read that there is nothing yet.
        QTRY_COMPARE_WITH_TIMEOUT(alertText(), QStringLiteral("没有提醒。"), Patience);
        QVERIFY(!count()->isVisible());
        QVERIFY(InstructionIssuer::issueDay(Monday));
        QTRY_VERIFY_WITH_TIMEOUT(count()->isVisible(), Patience);
        QTest::mouseClick(count(), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(alertRows()->model()->rowCount(), 1, Patience);
        QCOMPARE(textsOf(alertRows(), 0).constLast(), QStringLiteral("2024-05-06：公式的结果不大于零"));
    }

    void theChosenAlertStaysWhenOthersAppear()
    {
        createSamples(3);
        setClientToday(Tuesday);
        openWindow();
        openAlerts(3);
        QTest::keyClick(alertRows(), Qt::Key_Down);
        const QString chosen = textsOf(alertRows(), 1).at(1);
        const QString refused = refuseAnother();
        QTRY_COMPARE_WITH_TIMEOUT(alertRows()->model()->rowCount(), 4, Patience);
        QCOMPARE(textsOf(alertRows(), 0).at(1), refused);
        QCOMPARE(textsOf(alertRows(), alertRows()->currentIndex().row()).at(1), chosen);
        QVERIFY(press(alerts(), Qt::Key_Delete));
        QTRY_COMPARE_WITH_TIMEOUT(alertRows()->model()->rowCount(), 3, Patience);
        QStringList left;
        for (int i = 0; i < 3; ++i)
            left << textsOf(alertRows(), i).at(1);
        QVERIFY(left.contains(refused));
        QVERIFY(!left.contains(chosen));
        // The next alert is the current one.
        QCOMPARE(alertRows()->currentIndex().row(), 2);
        QCOMPARE(alertRows()->selectionModel()->selectedRows().size(), 1);
    }

    void severalChosenAlertsStayWhenOthersAppear()
    {
        createSamples(3);
        setClientToday(Tuesday);
        openWindow();
        openAlerts(3);
        QTest::keyClick(alertRows(), Qt::Key_Down, Qt::ShiftModifier);
        refuseAnother();
        QTRY_COMPARE_WITH_TIMEOUT(alertRows()->model()->rowCount(), 4, Patience);
        QCOMPARE(alertRows()->selectionModel()->selectedRows().size(), 2);
        QVERIFY(!alertRows()->selectionModel()->isRowSelected(0, QModelIndex()));
        QVERIFY(!alertRows()->selectionModel()->isRowSelected(3, QModelIndex()));
    }

    // --- Missed days

    void aMissedDayIsShownInTableDetailsAndSheet()
    {
        const QString plan = createSamples(1).constFirst();
        setClientToday(Tuesday);
        openWindow();
        auto* const table = window().findChild<PlanTable*>();
        QCOMPARE(table->model()->index(0, PlanColumns::LastResult).data().toString(), QStringLiteral("05-06 漏下达"));
        QVERIFY(detailsContain(QStringLiteral("漏下达")));
        QVERIFY(press(&window(), Qt::Key_I, Qt::ControlModifier));
        auto* const sheet = window().findChild<IssueSheet*>();
        const auto* const rows = sheet->findChild<IssueSheetModel*>();
        QTRY_COMPARE_WITH_TIMEOUT(rows->rowCount(), 1, Patience);
        QCOMPARE(rows->index(0, IssueSheetModel::ResultColumn).data().toString(),
            QStringLiteral("2024-05-06漏下达，不补下达"));
        QCOMPARE(rows->index(0, IssueSheetModel::Quantity).data().toString(), QStringLiteral("300 股"));
    }

    void aMissedDayStaysWhenThePlanIsPausedAndResumed()
    {
        createSamples(1);
        setClientToday(Tuesday);
        openWindow();
        const auto result = [this] {
            auto* const table = window().findChild<PlanTable*>();
            return table->model()->index(0, PlanColumns::LastResult).data().toString();
        };
        const QString missed = QStringLiteral("05-06 漏下达");
        QCOMPARE(result(), missed);
        for (const auto& [action, done] :
            { std::pair("action_pause", "1个计划已暂停"), std::pair("action_resume", "1个计划已恢复") }) {
            field<QAction>(window(), action)->trigger();
            QTRY_VERIFY_WITH_TIMEOUT(text(window(), "status").startsWith(QString::fromUtf8(done)), Patience);
            QCOMPARE(result(), missed);
            QVERIFY(detailsContain(QStringLiteral("未下达：漏下达")));
        }
        QTRY_COMPARE_WITH_TIMEOUT(count()->text(), QStringLiteral("提醒 1"), Patience);
    }

    void theDetailsTellWhyADayWasRefused()
    {
        const QString plan = *plans().create(
            customPrice(SampleSession::record(), QStringLiteral("1-1")), ClientSession::instance().changeNow());
        QVERIFY(InstructionIssuer::issueDay(Monday));
        openWindow();
        QCOMPARE(window().currentPlan(), plan);
        QVERIFY(detailsContain(QStringLiteral("未下达：公式的结果不大于零")));
    }

    // --- Cash

    void theSheetShowsTheCash()
    {
        createSamples(2);
        setCash(6'000'00);
        openWindow();
        QVERIFY(press(&window(), Qt::Key_I, Qt::ControlModifier));
        auto* const sheet = window().findChild<IssueSheet*>();
        const auto* const rows = sheet->findChild<IssueSheetModel*>();
        QTRY_COMPARE_WITH_TIMEOUT(rows->rowCount(), 2, Patience);
        // 300 shares at 17.49 yuan.
        QCOMPARE(rows->index(0, IssueSheetModel::Amount).data().toString(), QStringLiteral("5,247.00"));
        QCOMPARE(rows->index(1, IssueSheetModel::ResultColumn).data().toString(),
            QStringLiteral("不能下达：资金不足：可用753.00元，一手需要1749.00元"));
        QCOMPARE(sheet->findChild<QLabel*>(QStringLiteral("issueSums"))->text(),
            QStringLiteral("账户100001 买入 1笔 5,247.00元，可用资金6,000.00元"));
    }

    // --- The journal

    void theJournalShowsADayAndIsCopied()
    {
        const QString plan = createSamples(1).constFirst();
        QVERIFY(InstructionIssuer::issueDay(Monday));
        openWindow();
        openJournal();
        QTRY_COMPARE_WITH_TIMEOUT(journalText(), QStringLiteral("共1条，第1至1条"), Patience);
        const QStringList texts = textsOf(journalRows(), 0);
        QCOMPARE(texts.at(0), QStringLiteral("12:00:00"));
        QCOMPARE(texts.mid(1, 2), (QStringList{ plan, QStringLiteral("100001") }));
        QCOMPARE(texts.mid(4),
            (QStringList{ QStringLiteral("买入"), QStringLiteral("下达"),
                plan + QStringLiteral("-000001 下达 300 股，成交 300 股，已结束"), QStringLiteral("trader01") }));
        QTest::keyClick(journalRows(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), texts.join(QLatin1Char('\t')));
        QTest::keyClick(journalRows(), Qt::Key_Return);
        QCOMPARE(window().currentPlan(), plan);
    }

    void theDayAndTheAccountAreChosen()
    {
        createSamples(1);
        QVERIFY(InstructionIssuer::issueDay(Monday));
        setClientToday(Tuesday);
        openWindow();
        openJournal();
        QTRY_COMPARE_WITH_TIMEOUT(journalText(), QStringLiteral("2024-05-07没有记录。"), Patience);
        QTest::mouseClick(journal()->findChild<QAbstractButton*>(QStringLiteral("btn_dayBefore")), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(journalText(), QStringLiteral("共1条，第1至1条"), Patience);
        auto* const account = journal()->findChild<QComboBox*>();
        QTest::keyClick(account, Qt::Key_End);
        QTRY_COMPARE_WITH_TIMEOUT(journalText(), QStringLiteral("2024-05-06没有记录。"), Patience);
        QTest::keyClick(account, Qt::Key_Home);
        QTRY_COMPARE_WITH_TIMEOUT(journalText(), QStringLiteral("共1条，第1至1条"), Patience);
        QTest::keyClick(journal()->findChild<QDateEdit*>(), Qt::Key_Down);
        QTRY_COMPARE_WITH_TIMEOUT(journalRows()->model()->rowCount(), 0, Patience);
    }

    void aLongJournalIsReadInPages()
    {
        const QString plan = createSamples(1).constFirst();
        Database file;
        QCOMPARE(file.open(session().ownersFile()), Status());
        QCOMPARE(file.execute(QStringLiteral("INSERT INTO instructions (plan, position, day) WITH RECURSIVE n (i) AS"
                                             " (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 501)"
                                             " SELECT 1, i, '2024-05-06' FROM n")),
            Status());
        openWindow();
        openJournal();
        QTRY_COMPARE_WITH_TIMEOUT(journalText(), QStringLiteral("共501条，第1至500条"), Patience);
        auto* const next = journal()->findChild<QAbstractButton*>(QStringLiteral("btn_nextPage"));
        QTest::mouseClick(next, Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(journalText(), QStringLiteral("共501条，第501至501条"), Patience);
        QVERIFY(!next->isEnabled());
        QTest::mouseClick(journal()->findChild<QAbstractButton*>(QStringLiteral("btn_previousPage")), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(journalText(), QStringLiteral("共501条，第1至500条"), Patience);
    }

private:
    QAbstractButton* count() const { return field<QAbstractButton>(window(), "btn_alerts"); }
    Alerts* alerts() const { return window().findChild<Alerts*>(); }
    Journal* journal() const { return window().findChild<Journal*>(); }
    QTableView* alertRows() const { return alerts()->findChild<QTableView*>(); }
    QTableView* journalRows() const { return journal()->findChild<QTableView*>(); }
    QString alertText() const { return alerts()->findChild<QLabel*>(QStringLiteral("alertText"))->text(); }
    QString journalText() const { return journal()->findChild<QLabel*>(QStringLiteral("journalText"))->text(); }

    /// The widget in which a row of a table is clicked: the first visible row is at its top.
    static QWidget* row(QTableView* table, int index)
    {
        table->setCurrentIndex(table->model()->index(index, 0));
        return table->viewport();
    }

    static QStringList textsOf(const QTableView* table, int row)
    {
        QStringList texts;
        for (int column = 0; column < table->model()->columnCount(); ++column)
            texts << table->model()->index(row, column).data().toString();
        return texts;
    }

    void openAlerts(int expected)
    {
        QVERIFY(press(&window(), Qt::Key_L, Qt::ControlModifier));
        QVERIFY(alerts()->isVisible());
        QTRY_COMPARE_WITH_TIMEOUT(alertRows()->model()->rowCount(), expected, Patience);
    }

    void openJournal()
    {
        QVERIFY(press(&window(), Qt::Key_J, Qt::ControlModifier));
        QVERIFY(journal() && journal()->isVisible());
    }

    bool detailsContain(const QString& text) const
    {
        const auto labels = field<QWidget>(window(), "planDetails")->findChildren<QLabel*>();
        return std::any_of(
            labels.cbegin(), labels.cend(), [&text](const QLabel* label) { return label->text() == text; });
    }

    /// A new plan gets no instruction; returns its id.
    static QString refuseAnother()
    {
        const QString plan = *plans().create(
            customPrice(SampleSession::record(), QStringLiteral("1-1")), ClientSession::instance().changeNow());
        DayIssue issue(ClientSession::instance().database(), InstructionIssuer::scene(Tuesday));
        IssueResult result = issue.issue(QStringList(plan), [](int) { return true; });
        InstructionIssuer::finish(result);
        return plan;
    }

    void setCash(qint64 fen) const
    {
        Database file;
        QCOMPARE(file.open(session().ownersFile()), Status());
        QCOMPARE(CashStore(file).set(QStringLiteral("100001"), fen), Status());
    }
};

QTEST_MAIN(DayWindowsTest)
#include "tst_day_windows.moc"
