#include "ClientFormTest.h"

#include "ClientClock.h"
#include "Kelvo_Values.h"
#include "TestClock.h"

#include <QSettings>
#include <QtTest>

QString ClientFormTest::share()
{
    return SampleSession::symbolOf(Kelvo_Values::MdcSubSecurityType::Ashares, Kelvo_Values::SymbolPost::sh);
}

void ClientFormTest::startSession()
{
    m_session = std::make_unique<SampleSession>();
    QCOMPARE(m_session->opened(), Status());
}

QString ClientFormTest::differences(const QString& planId, const PlanForm& form, const ShownDates& dates) const
{
    DatabaseProbe probe(m_session->file());
    return ExpectedRecord(form, dates, ClientSession::instance().user().id, probe)
        .differences(probe.record(planId))
        .join(QStringLiteral("; "));
}

QString ClientFormTest::store(const PlanForm& form, const ShownDates& dates)
{
    DatabaseProbe probe(m_session->file());
    return m_session->create(ExpectedRecord(form, dates, ClientSession::instance().user().id, probe).record());
}

void ClientFormTest::goTo(const QDate& day)
{
    setToday(day);
    setClientToday(day);
}

void ClientFormTest::open()
{
    m_driver.reset();
    m_closed = 0;
    m_window = std::make_unique<QWidget>();
    m_editor = new AutoParamSetting(m_window.get());
    connect(m_editor, &AutoParamSetting::signalBtnCancelClicked, this, [this] { ++m_closed; });
    m_window->resize(m_editor->size());
    m_window->show(); // the driver activates the window when needed
    m_driver = std::make_unique<FormDriver>(m_editor);
}

void ClientFormTest::openPlan(const QString& planId, bool edits)
{
    open();
    if (edits)
        m_editor->editPlan(planId);
    else
        m_editor->copyPlan(planId);
}

QStringList ClientFormTest::ok(const QString& accepted)
{
    QStringList found = m_driver->takeProblems();
    m_boxes.expect(accepted);
    m_driver->confirm();
    for (const MessageBoxResponder::Box& box : m_boxes.take())
        found << box.name + QStringLiteral(": ") + box.text;
    return found;
}

QStringList ClientFormTest::modified(const QString& planId)
{
    return { QStringLiteral("msgBoxTip: 交易计划%1修改成功!").arg(planId) };
}

void ClientFormTest::prepare()
{
    m_settings = std::make_unique<QTemporaryDir>();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings->path());
    goTo(SampleSession::today());
}

void ClientFormTest::tidyUp()
{
    m_driver.reset();
    m_window.reset();
    m_boxes.take();
}
