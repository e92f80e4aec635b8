// Texts from data that look like HTML, are very long or turn the direction of writing, in the windows of the day, the
// import and the advisor.
#include "AdvisorPanel.h"
#include "Alerts.h"
#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientWindowTest.h"
#include "HostileTexts.h"
#include "ImportSheet.h"
#include "InstructionIssuer.h"
#include "IssueSheet.h"
#include "Journal.h"
#include "RowView.h"
#include "TestStatus.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QTableView>
#include <QtTest>

using namespace HostileTexts;

namespace {

constexpr int WidestWindow = 2000;

} // namespace

class HostileWindowsTest : public ClientWindowTest {
    Q_OBJECT

private Q_SLOTS:
    void theIssueSheetShowsThemAsTheyAre_data() { addTexts(); }
    void theIssueSheetShowsThemAsTheyAre()
    {
        spoil();
        createSamples(1);
        openWindow();
        QVERIFY(press(&window(), Qt::Key_I, Qt::ControlModifier));
        auto* const sheet = window().findChild<IssueSheet*>();
        auto* const table = field<QTableView>(*sheet, "issueRows");
        QTRY_COMPARE_WITH_TIMEOUT(table->model()->rowCount(), 1, Patience);
        check(QStringLiteral("issueRows item"));
        checkWidths(table);
        Finding inBox;
        boxes().setOnShown([&inBox](QWidget*) { inBox = lookAtWidgets(); });
        boxOf([sheet] { QTest::mouseClick(field<QAbstractButton>(*sheet, "btn_issue"), Qt::LeftButton); },
            "msgBoxQuestion", false);
        boxes().setOnShown({});
        QCOMPARE(inBox.rich, QStringList());
    }

    void theImportSheetShowsThemAsTheyAre_data() { addTexts(); }
    void theImportSheetShowsThemAsTheyAre()
    {
        QFETCH(QString, text);
        const QString cell = QStringLiteral("\"%1\"").arg(text.replace(QLatin1Char('"'), QStringLiteral("\"\"")));
        openWindow();
        window().findChild<QAction*>(QStringLiteral("action_import"))->trigger();
        auto* const sheet = window().findChild<ImportSheet*>();
        QVERIFY(takeKeyboard(sheet));
        auto* const kinds = field<QComboBox>(*sheet, "combx_importKind");
        while (kinds->currentData() != QStringLiteral("securities") && kinds->currentIndex() + 1 < kinds->count())
            QTest::keyClick(kinds, Qt::Key_Down);
        // A new name, and a type that there is not.
        paste(QStringLiteral("symbol,name,type,sub-type,decimals,factor,step,limit\n"
                             "600999.SH,%1,股票,主板,2,1,100,10%\n600998.SH,名,%1,主板,2,1,100,10%\n")
                  .arg(cell));
        check(QStringLiteral("importRows item"));
        checkWidths(field<QTableView>(*sheet, "importRows"));
        // A heading that there is not.
        paste(cell + QStringLiteral("\nx\n"));
        check(QStringLiteral("importRows item"));
    }

    void halfACharacterIsNotImportedAsAnother()
    {
        openWindow();
        window().findChild<QAction*>(QStringLiteral("action_import"))->trigger();
        paste(QStringLiteral("symbol,name\nx,") + QChar(0xD83D) + QLatin1Char('\n'));
        const auto* const sheet = window().findChild<ImportSheet*>();
        QCOMPARE(field<QLabel>(*sheet, "importText")->text(), QStringLiteral("剪贴板中的文字含有无法保存的字符。"));
        QVERIFY(!field<QAbstractButton>(*sheet, "btn_preview")->isEnabled());
    }

    void theNamesOfFilesAreShownAsTheyAre()
    {
        openWindow();
        window().findChild<QAction*>(QStringLiteral("action_import"))->trigger();
        auto* const sheet = window().findChild<ImportSheet*>();
        const QTemporaryDir folder;
        const QString name = folder.filePath(Tag + QStringLiteral("x><br>.csv"));
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("x\n") == 2);
        file.close();
        QTimer::singleShot(0, this, [name] {
            auto* const line = QApplication::activeModalWidget()->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            line->clear();
            line->insert(name);
            QTest::keyClick(line, Qt::Key_Return);
        });
        QTest::mouseClick(field<QAbstractButton>(*sheet, "btn_files"), Qt::LeftButton);
        waitForImport();
        const Finding found = lookAtWidgets();
        QCOMPARE(found.rich, QStringList());
        for (const char* const place : { "QLabel importFiles", "QLabel importText", "importRows item" })
            QVERIFY2(found.places.contains(QLatin1String(place)), place);
    }

    void theJournalShowsThemAsTheyAre_data() { addTexts(); }
    void theJournalShowsThemAsTheyAre()
    {
        QFETCH(QString, text);
        spoil();
        const QStringList made = createSamples(2);
        QVERIFY(InstructionIssuer::issueDay(SampleSession::today()));
        const Change change = ClientSession::instance().changeNow();
        QCOMPARE(plans().setState(made.constFirst(), 1, PlanState::Paused, text, change), Status());
        QCOMPARE(
            ClientSession::instance().instructions().refuse(made.constLast(), SampleSession::today(), text, change),
            Status());
        openWindow();
        QVERIFY(press(&window(), Qt::Key_J, Qt::ControlModifier));
        auto* const table = field<QTableView>(*window().findChild<Journal*>(), "journalRows");
        QTRY_COMPARE_WITH_TIMEOUT(table->model()->rowCount(), 4, Patience);
        check(QStringLiteral("journalRows item"));
        check(QStringLiteral("journalRows item's tip"));
        checkWidths(table);
    }

    void theAlertsShowThemAsTheyAre_data() { addTexts(); }
    void theAlertsShowThemAsTheyAre()
    {
        QFETCH(QString, text);
        spoil();
        const QString plan = createSamples(1).constFirst();
        QCOMPARE(ClientSession::instance().instructions().refuse(
                     plan, SampleSession::today(), text, ClientSession::instance().changeNow()),
            Status());
        setClientToday(SampleSession::today().addDays(1));
        openWindow();
        QVERIFY(press(&window(), Qt::Key_L, Qt::ControlModifier));
        auto* const table = field<QTableView>(*window().findChild<Alerts*>(), "alertRows");
        QTRY_COMPARE_WITH_TIMEOUT(table->model()->rowCount(), 1, Patience);
        check(QStringLiteral("alertRows item"));
        check(QStringLiteral("alertRows item's tip"));
        checkWidths(table);
    }

    void theAdvisorShowsThemAsTheyAre_data() { addTexts(); }
    void theAdvisorShowsThemAsTheyAre()
    {
        // The names of accounts would be typed.
        spoil({ QStringLiteral("securities") });
        openWindow();
        pressForEditor(Qt::Key_N);
        dialogDriver().fill(ordinary());
        QVERIFY(QTest::qWaitFor([this] { return dialog().advisor()->isSettled(); }));
        check(QStringLiteral("advisorSecurity item"));
        check(QStringLiteral("advisorSecurity item's tip"));
    }

private:
    static void addTexts()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("HTML") << hostile(QStringLiteral("文字"));
        QTest::newRow("a very long text") << hostile(QString(20000, QLatin1Char('x')));
        QTest::newRow("marks of direction")
            << hostile(QStringLiteral("\u202e\u2066文字\u2067")) + QStringLiteral("\u202e");
        QTest::newRow("lines") << hostile(QStringLiteral("a\n\n\n\u2028b"));
    }

    /// Gives everything in some tables the text as its name.
    void spoil(const QStringList& tables = {
                   QStringLiteral("securities"), QStringLiteral("accounts"), QStringLiteral("users") })
    {
        QFETCH(QString, text);
        Database& database = ClientSession::instance().database();
        for (const QString& table : tables)
            QCOMPARE(database.execute(QStringLiteral("UPDATE %1 SET name = ? || name").arg(table), { text }), Status());
        QCOMPARE(session().reopen(), Status());
    }

    void paste(const QString& text)
    {
        QGuiApplication::clipboard()->setText(text);
        auto* const sheet = window().findChild<ImportSheet*>();
        QTest::mouseClick(field<QAbstractButton>(*sheet, "btn_paste"), Qt::LeftButton);
        waitForImport();
    }

    void waitForImport()
    {
        const auto* const close = field<QAbstractButton>(*window().findChild<ImportSheet*>(), "btn_close");
        QTRY_VERIFY_WITH_TIMEOUT(close->text() == QStringLiteral("关闭"), Patience);
    }

    /// Nothing is shown as HTML, the text is in a place, and the windows stay on the screen.
    static void check(const QString& place)
    {
        const Finding found = lookAtWidgets();
        QCOMPARE(found.rich, QStringList());
        QVERIFY2(found.places.contains(place), qPrintable(place));
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (const QWidget* const window : windows) {
            if (window->isVisible())
                QVERIFY2(window->minimumSizeHint().width() < WidestWindow && window->width() < WidestWindow,
                    qPrintable(window->objectName()));
        }
    }

    /// No column hides the others.
    static void checkWidths(const QTableView* table)
    {
        for (int column = 0; column < table->model()->columnCount(); ++column)
            QVERIFY2(table->columnWidth(column) < WidestWindow, qPrintable(QString::number(column)));
    }
};

QTEST_MAIN(HostileWindowsTest)
#include "tst_hostile_windows.moc"
