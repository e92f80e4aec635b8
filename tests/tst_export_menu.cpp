// The menu that exports what the user sees, used by mouse and keyboard.
#include "ClientWindowTest.h"
#include "ErrorText.h"
#include "InstructionIssuer.h"
#include "TableReader.h"
#include "TestStatus.h"
#include "TransferForm.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QTableView>
#include <QtTest>

namespace {

constexpr int ManyPlans = 3000;

} // namespace

class ExportMenuTest : public ClientWindowTest {
    Q_OBJECT

private Q_SLOTS:
    void eachKindIsWritten_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("extension");
        QTest::addColumn<int>("rows");
        for (const char* const extension : { "csv", "json", "xlsx" }) {
            const QString end = QLatin1String(extension);
            QTest::addRow("plans as %s", extension) << "plans" << end << 2;
            QTest::addRow("instructions as %s", extension) << "instructions" << end << 2;
            QTest::addRow("history as %s", extension) << "history" << end << 4;
            QTest::addRow("journal as %s", extension) << "journal" << end << 2;
            QTest::addRow("positions as %s", extension) << "positions" << end << -1;
        }
    }

    void eachKindIsWritten()
    {
        QFETCH(QString, kind);
        QFETCH(QString, extension);
        QFETCH(int, rows);
        createSamples(2);
        QVERIFY(InstructionIssuer::issueDay(SampleSession::today(), IssueMode::Simulated));
        openWindow();
        const QString file = path("出口" + kind.toUtf8() + "." + extension.toUtf8());
        chooseFile([&] { choose(kind); }, file);
        waitForTheEnd();
        QCOMPARE(status(), QStringLiteral("已导出到%1").arg(file));
        const QVector<QStringList> table = tableIn(file);
        QCOMPARE(table.size() - 1, rows < 0 ? stored("positions") : rows);
        const TransferForm form = formOf(kind);
        QStringList headings;
        for (const TransferForm::Column& column : form.columns)
            headings << (extension == QLatin1String("json") ? column.id : column.caption);
        QStringList found = table.constFirst();
        found.sort();
        headings.sort();
        QCOMPARE(found, headings);
        QVERIFY(field<QMenu>(window(), "exportMenu")->isEnabled());
    }

    void anExportIsCancelled()
    {
        createSamples(1);
        QCOMPARE(session().multiply(ManyPlans), Status());
        openWindow();
        const QString file = path("history.csv");
        chooseFile([&] { choose(QStringLiteral("history")); }, file);
        QVERIFY(progress() && progress()->isVisible());
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(!field<QMenu>(window(), "exportMenu")->isEnabled());
        QCOMPARE(progress()->labelText(), QStringLiteral("正在导出历史到history.csv……"));
        // The window goes on meanwhile.
        auto* const table = field<QTableView>(window(), "planTable");
        QTest::keyClick(table, Qt::Key_Down);
        QCOMPARE(table->currentIndex().row(), 1);
        QTest::mouseClick(progress()->findChild<QPushButton*>(), Qt::LeftButton);
        waitForTheEnd();
        QCOMPARE(status(), QStringLiteral("导出已取消，没有写入%1").arg(file));
        QVERIFY(!QFile::exists(file));
        QCOMPARE(files(), QStringList());
    }

    void whatCannotBeWrittenIsReported()
    {
        openWindow();
        const QString unknown = path("plans.doc");
        QCOMPARE(boxOf([&] { chooseFile([&] { choose(QStringLiteral("plans")); }, unknown); }, "msgBoxError"),
            errorText({ Error::UnknownFileFormat, { unknown } }));
        QCOMPARE(files(), QStringList());
        boxes().expect(QStringLiteral("msgBoxError"), true);
        chooseFile([&] { choose(QStringLiteral("plans")); }, QStringLiteral("/proc/plans.csv"));
        waitForTheEnd();
        QCOMPARE(
            boxes().take().value(0).text, errorText({ Error::FileNotWritten, { QStringLiteral("/proc/plans.csv") } }));
    }

    void nothingIsWrittenWithoutAName()
    {
        openWindow();
        chooseFile([&] { choose(QStringLiteral("plans")); }, path("plans.csv"), false);
        QVERIFY(!progress());
        QCOMPARE(files(), QStringList());
    }

private:
    void prepare() override
    {
        ClientWindowTest::prepare();
        m_folder.emplace();
    }

    QProgressDialog* progress() const { return window().findChild<QProgressDialog*>(QStringLiteral("exportProgress")); }
    QString status() const { return field<QLabel>(window(), "status")->text(); }
    QStringList files() const { return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden); }
    QString path(const QByteArray& name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    void waitForTheEnd() const { QTRY_VERIFY_WITH_TIMEOUT(!progress(), Patience); }

    /// Opens the menus and clicks the entry of a kind.
    void choose(const QString& kind) const
    {
        QMenuBar* const bar = window().menuBar();
        QAction* const plans = bar->actions().constFirst();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(plans).center());
        auto* const menu = field<QMenu>(window(), "exportMenu");
        QTest::keyClick(plans->menu(), Qt::Key_Up);
        QCOMPARE(plans->menu()->activeAction(), menu->menuAction());
        QTest::keyClick(plans->menu(), Qt::Key_Right);
        QVERIFY(menu->isVisible());
        auto* const action = field<QAction>(window(), qPrintable(QStringLiteral("action_export_") + kind));
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    }

    static TransferForm formOf(const QString& kind)
    {
        for (const TransferForm& form : TransferForms::exportable()) {
            if (form.id == kind)
                return form;
        }
        return {};
    }

    static QVector<QStringList> tableIn(const QString& name)
    {
        QFile file(name);
        QVector<QStringList> rows;
        qint64 line = 0;
        if (!file.open(QIODevice::ReadOnly))
            return rows;
        const Status status = TableReader::read(file, line, [&rows](const TableRow& row) {
            QStringList cells;
            for (const std::string_view cell : row.cells)
                cells << QString::fromUtf8(cell.data(), static_cast<int>(cell.size()));
            rows << cells;
            return Status();
        });
        return status ? rows : QVector<QStringList>();
    }

    static int stored(const char* table)
    {
        Database& database = ClientSession::instance().database();
        return database.value(QStringLiteral("SELECT count(*) FROM %1").arg(QLatin1String(table)))->toInt();
    }

    std::optional<QTemporaryDir> m_folder;
};

QTEST_MAIN(ExportMenuTest)
#include "tst_export_menu.moc"
