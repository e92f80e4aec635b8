#include "ClientFormTest.h"
#include "MainWindow.h"
#include "PlanRow.h"
#include "TestStatus.h"
#include "WalkThrough.h"

#include <QDir>
#include <QImage>
#include <QtTest>

namespace {

const QSize FormSize(517, 710);

QStringList pictures(const QString& folder, const QString& pattern)
{
    return QDir(folder).entryList({ pattern }, QDir::Files, QDir::Name);
}

} // namespace

/// The walk-through on days that calendars get wrong, in both skins.
class WalkThroughTest : public ClientFormTest {
    Q_OBJECT

private:
    void tidyUp() override { endSession(); }

    /// Walks through a window of a skin and returns whether everything went as it must.
    static bool walk(const QTemporaryDir& folder, const QString& skin)
    {
        MainWindow window;
        window.setSkin(skin);
        window.show();
        return WalkThrough(window, folder.path()).run();
    }

    /// The stored states other than the usual one.
    static QStringList statesOfPlans()
    {
        QStringList states;
        const auto all = plans().page(0, 100);
        for (const StoredPlan& plan : all.valueOr({})) {
            if (plan.state != PlanState::Active)
                states << PlanRow::stateText(plan.state);
        }
        states.sort();
        return states;
    }

private Q_SLOTS:
    void initTestCase() { QApplication::setFont(QFont(QStringLiteral("Sans Serif"), 9)); }

    void everyPlanIsStoredAsFilledInOnAnyDay_data()
    {
        QTest::addColumn<QDate>("today");
        QTest::newRow("a Saturday") << QDate(2026, 11, 21);
        QTest::newRow("the day before a week of holidays") << QDate(2024, 9, 30);
        QTest::newRow("within a week of holidays") << QDate(2024, 10, 3);
        QTest::newRow("the end of a year") << QDate(2025, 12, 31);
    }

    void everyPlanIsStoredAsFilledInOnAnyDay()
    {
        QFETCH(QDate, today);
        startSession();
        goTo(today);
        QCOMPARE(session().reopen(), Status());
        const QTemporaryDir folder;
        QVERIFY(walk(folder, QStringLiteral("light")));
        QCOMPARE(*plans().count(), 10);

        const QStringList forms = pictures(folder.path(), QStringLiteral("*-form.png"));
        QCOMPARE(forms.size(), 11);
        for (const QString& form : forms)
            QCOMPARE(QImage(folder.filePath(form)).size(), FormSize);
        QCOMPARE(pictures(folder.path(), QStringLiteral("*-advisor.png")).size(), 12);
        QCOMPARE(pictures(folder.path(), QStringLiteral("*-box.png")).size(), 14);
        QCOMPARE(pictures(folder.path(), QStringLiteral("*-panel.png")).size(), 2);
        for (const char* const stage : { "*-warned-advisor.png", "*-date-advisor.png", "*-issue-sheet.png",
                 "*-pause-window.png", "*-stop-reason.png", "*-stop-window.png" })
            QCOMPARE(pictures(folder.path(), QLatin1String(stage)).size(), 1);
        QCOMPARE(statesOfPlans(), QStringList({ QStringLiteral("paused"), QStringLiteral("stopped") }));
    }

    void aSecondWalkThroughTheSameDatabasePassesToo()
    {
        startSession();
        const QTemporaryDir folder;
        for (const int count : { 10, 20 }) {
            QVERIFY(walk(folder, QStringLiteral("dark")));
            QCOMPARE(*plans().count(), count);
        }
    }

    void aUserWithoutTheAccountsFails()
    {
        startSession();
        QCOMPARE(session().reopen(QStringLiteral("trader02")), Status());
        QVERIFY(!walk(QTemporaryDir(), QStringLiteral("light")));
        QCOMPARE(*plans().count(), 0);
    }
};

QTEST_MAIN(WalkThroughTest)
#include "tst_walkthrough.moc"
