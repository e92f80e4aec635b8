#include "ClientFormTest.h"
#include "FaultCount.h"
#include "FaultyDisk.h"
#include "PlanCodes.h"
#include "TestStatus.h"
#include "WriterProcess.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QtTest>

using FaultyDisk::Fault;
using FaultyDisk::Lasting;

namespace {

enum class DiskFault { Locked, ReadOnly, Full, WriteError };

constexpr int OneSecond = 1000 * TEST_TIMEOUT_SCALE;

/// The value of every field of the form, and whether it is visible and enabled.
QStringList stateOf(const QWidget& form)
{
    QStringList state;
    const QList<QWidget*> fields = form.findChildren<QWidget*>();
    for (const QWidget* field : fields) {
        QString content;
        if (const auto* const line = qobject_cast<const QLineEdit*>(field))
            content = line->text();
        else if (const auto* const box = qobject_cast<const QComboBox*>(field))
            content = box->currentText() + QLatin1Char('/') + box->currentData(Qt::UserRole).toString();
        else
            continue;
        state << QStringLiteral("%1=%2 %3%4")
                     .arg(field->objectName(), content)
                     .arg(field->isVisible())
                     .arg(field->isEnabled());
    }
    return state;
}

} // namespace

Q_DECLARE_METATYPE(DiskFault)

/// OK in a filled form when the database cannot be written: a message appears within a second, the form is unchanged
/// and nothing is stored. The same form stores its plan once the fault is gone.
class FormFaultsTest : public ClientFormTest {
    Q_OBJECT

private:
    /// The file is read-only before the session opens; every other fault occurs during the session.
    void begin(DiskFault fault)
    {
        if (fault == DiskFault::Locked) {
            m_other = std::make_unique<WriterProcess>();
            QVERIFY(m_other->start(session().file(), { QStringLiteral("lock") }));
        } else if (fault == DiskFault::ReadOnly) {
            FaultyDisk::setReadOnly(true);
            QCOMPARE(session().reopen(), Status());
        } else {
            FaultyDisk::failAt(1, fault == DiskFault::Full ? Fault::Full : Fault::InputOutput, Lasting::ForGood);
        }
    }

    void end(DiskFault fault)
    {
        FaultyDisk::heal();
        if (fault == DiskFault::Locked)
            QVERIFY(m_other->release());
        if (fault == DiskFault::ReadOnly)
            QCOMPARE(session().reopen(), Status());
    }

    void prepare() override
    {
        ClientFormTest::prepare();
        startSession();
    }

    void tidyUp() override
    {
        FaultyDisk::heal();
        m_sent.compare(session().ownersFile());
        QCOMPARE(m_sent.lost(), 0);
        ClientFormTest::tidyUp();
        m_other.reset();
        endSession();
    }

    std::unique_ptr<WriterProcess> m_other;
    SentPlans m_sent{ QStringLiteral("forms on a failing disk") };

private Q_SLOTS:
    void initTestCase() { FaultyDisk::install(); }

    void aPlanThatCannotBeStoredKeepsTheForm_data()
    {
        QTest::addColumn<DiskFault>("fault");
        QTest::addColumn<bool>("edits");
        QTest::addColumn<QString>("message");
        const QString busy = QStringLiteral("数据库正被其他程序或一次导入占用，请稍后再试");
        const QString readOnly = QStringLiteral("数据库文件只读，无法写入");
        const QString full = QStringLiteral("磁盘空间不足，无法写入数据库");
        const QString failed = QStringLiteral("读写数据库文件出错");
        QTest::newRow("a new plan, locked by another process") << DiskFault::Locked << false << busy;
        QTest::newRow("a new plan, file read-only") << DiskFault::ReadOnly << false << readOnly;
        QTest::newRow("a new plan, disk full") << DiskFault::Full << false << full;
        QTest::newRow("a new plan, every write failing") << DiskFault::WriteError << false << failed;
        QTest::newRow("a change, locked by another process") << DiskFault::Locked << true << busy;
        QTest::newRow("a change, file read-only") << DiskFault::ReadOnly << true << readOnly;
        QTest::newRow("a change, disk full") << DiskFault::Full << true << full;
        QTest::newRow("a change, every write failing") << DiskFault::WriteError << true << failed;
    }

    void aPlanThatCannotBeStoredKeepsTheForm()
    {
        QFETCH(DiskFault, fault);
        QFETCH(bool, edits);
        QFETCH(QString, message);
        QString id;
        if (edits) {
            id = session().create(SampleSession::record());
            QCOMPARE(session().opened(), Status());
            openPlan(id, true);
            driver().type("le_remark", QStringLiteral("changed"));
        } else {
            open();
            PlanForm form = ordinary().priced(PlanCodes::PriceModel::Custom, QStringLiteral("昨收价*1.01"));
            form.endSteps = 3;
            form.remark = QStringLiteral("kept");
            driver().fill(form);
        }
        const QStringList before = stateOf(editor());
        QVERIFY(before.size() > 10);
        const int stored = *plans().count();

        begin(fault);
        QElapsedTimer clock;
        qint64 shownAfter = -1;
        boxes().setOnShown([&](QWidget*) { shownAfter = shownAfter < 0 ? clock.elapsed() : shownAfter; });
        clock.start();
        const QStringList said = ok();
        boxes().setOnShown({});
        QCOMPARE(said.size(), 1);
        QVERIFY2(said.constFirst().startsWith(QStringLiteral("msgBoxError: ")), qPrintable(said.constFirst()));
        QVERIFY2(said.constFirst().contains(message), qPrintable(said.constFirst()));
        QVERIFY2(shownAfter >= 0 && shownAfter < OneSecond, qPrintable(QString::number(shownAfter)));
        QCOMPARE(stateOf(editor()), before);
        QCOMPARE(closed(), 0);
        end(fault);
        QCOMPARE(*plans().count(), stored);

        QCOMPARE(ok(), edits ? modified(id) : created());
        QCOMPARE(closed(), 1);
        QCOMPARE(*plans().count(), edits ? stored : stored + 1);
        QCOMPARE(plans().page(0, 1)->value(0).version, edits ? 2 : 1);
    }
};

QTEST_MAIN(FormFaultsTest)
#include "tst_form_faults.moc"
