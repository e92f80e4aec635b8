#include "AutoParamSetting.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "FaultyDisk.h"
#include "FormDriver.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "LogCatcher.h"
#include "MessageBoxResponder.h"
#include "PlanCodes.h"
#include "SampleSession.h"
#include "TestClock.h"
#include "WriterProcess.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

using FaultyDisk::Fault;
using FaultyDisk::Lasting;
using namespace PlanCodes;

namespace {

enum class Trouble { Locked, ReadOnly, Full, WriteError };

constexpr int oneSecond = 1000;

PlanForm planForm()
{
    PlanForm form;
    form.account = QStringLiteral("100001");
    form.instructionType = InstructionType::Ordinary;
    form.targetType = InstructionTargetType::QtyOrder;
    form.planType = PlanType::CumulativeQty;
    form.symbol = SampleSession::symbolOf(Kelvo_Values::MdcSubSecurityType::Ashares, Kelvo_Values::SymbolPost::sh);
    form.side = Kelvo_Values::OrderSide::buy;
    form.priceMode = PriceModel::Custom;
    form.price1 = QStringLiteral("昨收价*1.01");
    form.target = QStringLiteral("10000");
    form.perDay = QStringLiteral("500");
    form.instructionMode = InstMode::ActiveManage;
    form.endSteps = 3;
    form.remark = QStringLiteral("kept");
    return form;
}

/// What every field of the form holds, and whether it is shown and enabled.
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

Q_DECLARE_METATYPE(Trouble)

/// OK of a filled form over a database that cannot be written: a message within a second, the form as it was, nothing
/// stored; and the same form stores its plan once the trouble is over.
class TestFormFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void a_plan_that_cannot_be_stored_keeps_the_form_data();
    void a_plan_that_cannot_be_stored_keeps_the_form();

private:
    void open();
    void begin(Trouble trouble);
    void end(Trouble trouble);
    QVector<MessageBoxResponder::Box> confirm(const QString& box);

    std::unique_ptr<LogCatcher> m_log;
    std::unique_ptr<SampleSession> m_session;
    std::unique_ptr<WriterProcess> m_other;
    std::unique_ptr<QWidget> m_window;
    AutoParamSetting* m_editor = nullptr;
    std::unique_ptr<FormDriver> m_driver;
    MessageBoxResponder m_boxes;
    qint64 m_shownAfter = 0; ///< milliseconds from OK to the first box
};

void TestFormFaults::initTestCase()
{
    FaultyDisk::install();
    setToday(SampleSession::today());
}

void TestFormFaults::init()
{
    m_log = std::make_unique<LogCatcher>();
    m_session = std::make_unique<SampleSession>();
    QCOMPARE(m_session->reason(), QString());
}

void TestFormFaults::cleanup()
{
    FaultyDisk::heal();
    m_driver.reset();
    m_window.reset();
    m_other.reset();
    m_session.reset();
    QCOMPARE(m_log->trouble(), QStringList());
    m_log.reset();
}

void TestFormFaults::open()
{
    m_window = std::make_unique<QWidget>();
    m_editor = new AutoParamSetting(m_window.get());
    m_window->resize(m_editor->size());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_driver = std::make_unique<FormDriver>(m_editor);
}

/// The read-only file is opened as such; everything else comes over an open session.
void TestFormFaults::begin(Trouble trouble)
{
    if (trouble == Trouble::Locked) {
        m_other = std::make_unique<WriterProcess>();
        QVERIFY(m_other->start(m_session->file(), { QStringLiteral("lock") }));
    } else if (trouble == Trouble::ReadOnly) {
        FaultyDisk::setReadOnly(true);
        QCOMPARE(m_session->reopen(), QString());
    } else {
        FaultyDisk::failAt(1, trouble == Trouble::Full ? Fault::Full : Fault::InputOutput, Lasting::ForGood);
    }
}

void TestFormFaults::end(Trouble trouble)
{
    FaultyDisk::heal();
    if (trouble == Trouble::Locked)
        QVERIFY(m_other->release());
    if (trouble == Trouble::ReadOnly)
        QCOMPARE(m_session->reopen(), QString());
}

QVector<MessageBoxResponder::Box> TestFormFaults::confirm(const QString& box)
{
    QElapsedTimer clock;
    m_shownAfter = -1;
    m_boxes.setOnShown([&](QWidget*) { m_shownAfter = m_shownAfter < 0 ? clock.elapsed() : m_shownAfter; });
    m_boxes.expect(box);
    clock.start();
    m_driver->confirm();
    m_boxes.setOnShown({});
    return m_boxes.take();
}

void TestFormFaults::a_plan_that_cannot_be_stored_keeps_the_form_data()
{
    QTest::addColumn<Trouble>("trouble");
    QTest::addColumn<bool>("edits");
    QTest::addColumn<QString>("message");
    const QString busy = QStringLiteral("数据库正被其他程序占用，请稍后再试");
    const QString readOnly = QStringLiteral("数据库文件只读，无法写入");
    const QString full = QStringLiteral("磁盘空间不足，无法写入数据库");
    const QString failed = QStringLiteral("数据库操作失败：");
    QTest::newRow("a new plan, locked by another process") << Trouble::Locked << false << busy;
    QTest::newRow("a new plan, file read-only") << Trouble::ReadOnly << false << readOnly;
    QTest::newRow("a new plan, disk full") << Trouble::Full << false << full;
    QTest::newRow("a new plan, every write failing") << Trouble::WriteError << false << failed;
    QTest::newRow("a change, locked by another process") << Trouble::Locked << true << busy;
    QTest::newRow("a change, file read-only") << Trouble::ReadOnly << true << readOnly;
    QTest::newRow("a change, disk full") << Trouble::Full << true << full;
    QTest::newRow("a change, every write failing") << Trouble::WriteError << true << failed;
}

void TestFormFaults::a_plan_that_cannot_be_stored_keeps_the_form()
{
    QFETCH(Trouble, trouble);
    QFETCH(bool, edits);
    QFETCH(QString, message);
    open();
    if (edits) {
        const QString id = m_session->create(SampleSession::record());
        QCOMPARE(m_session->reason(), QString());
        m_editor->editPlan(id);
        m_driver->type("le_remark", QStringLiteral("changed"));
    } else {
        m_driver->fill(planForm());
    }
    QCOMPARE(m_driver->takeProblems(), QStringList());
    const QStringList before = stateOf(*m_editor);
    QVERIFY(before.size() > 10);
    const int stored = ClientSession::instance().plans().count();
    QSignalSpy closed(m_editor, &AutoParamSetting::signalBtnCancelClicked);

    begin(trouble);
    QVector<MessageBoxResponder::Box> boxes = confirm(QStringLiteral("msgBoxError"));
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.constFirst().name, QStringLiteral("msgBoxError"));
    QVERIFY2(boxes.constFirst().text.contains(message), qPrintable(boxes.constFirst().text));
    QVERIFY2(m_shownAfter >= 0 && m_shownAfter < oneSecond, qPrintable(QString::number(m_shownAfter)));
    QCOMPARE(stateOf(*m_editor), before);
    QCOMPARE(closed.count(), 0);
    end(trouble);
    QCOMPARE(ClientSession::instance().plans().count(), stored);

    boxes = confirm(QStringLiteral("msgBoxTip"));
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.constFirst().name, QStringLiteral("msgBoxTip"));
    QCOMPARE(closed.count(), 1);
    QCOMPARE(ClientSession::instance().plans().count(), edits ? stored : stored + 1);
    QCOMPARE(ClientSession::instance().plans().page(0, 1).value(0).version, edits ? 2 : 1);
}

QTEST_MAIN(TestFormFaults)
#include "tst_form_faults.moc"
