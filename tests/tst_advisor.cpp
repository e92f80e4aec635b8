#include "AdvisorPanel.h"
#include "ClientWindowTest.h"
#include "RowView.h"

#include <QLabel>
#include <QToolButton>
#include <QtTest>

/// The panel beside the plan editor, filled in by keys and mouse.
class AdvisorTest : public ClientWindowTest {
    Q_OBJECT

private:
    AdvisorPanel& panel() const { return *dialog().advisor(); }
    /// The rows of one of the panel's tables, each with its cells joined.
    QStringList rows(const char* table) const
    {
        QStringList texts;
        for (const AdvisorRow& row : field<RowView>(panel(), table)->rows())
            texts << row.cells.join(QStringLiteral(" | "));
        return texts;
    }
    /// The second cell of the row with a first cell.
    QString cell(const char* table, const QString& first) const
    {
        for (const AdvisorRow& row : field<RowView>(panel(), table)->rows()) {
            if (row.cells.constFirst() == first)
                return row.cells.value(1);
        }
        return {};
    }
    QString headline() const { return field<QLabel>(panel(), "forecastHeadline")->text(); }

    /// Opens the editor for a new plan, fills it in and waits until the panel has read what is stored.
    void openFilled(const PlanForm& form)
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        fill(form);
    }
    void fill(const PlanForm& form)
    {
        FormDriver driver = dialogDriver();
        driver.fill(form);
        QCOMPARE(driver.takeProblems(), QStringList());
        QVERIFY(QTest::qWaitFor([this] { return panel().isSettled(); }));
    }

private Q_SLOTS:
    void anEmptyFormHasNoSecurity()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        QVERIFY(QTest::qWaitFor([this] { return panel().isSettled(); }));
        QCOMPARE(rows("advisorSecurity"), QStringList{ QStringLiteral("证券 | 尚未选择") });
        QCOMPARE(rows("forecastDays"), QStringList());
    }
};

QTEST_MAIN(AdvisorTest)
#include "tst_advisor.moc"
