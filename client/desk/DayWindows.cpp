#include "DayWindows.h"

#include "Alerts.h"
#include "ClientClock.h"
#include "Journal.h"
#include "PlanEvents.h"

#include <QAction>
#include <QMainWindow>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

#include <utility>

namespace {

constexpr int Delay = 1000;              // milliseconds
constexpr int Interval = 10 * 60 * 1000; // milliseconds: a new day begins while the window is open

} // namespace

DayWindows::DayWindows(QMainWindow* window)
    : QObject(window)
    , m_window(window)
    , m_alerts(new Alerts(window))
    , m_showAlerts(addAction(QStringLiteral("action_alerts"), tr("提醒"), QKeySequence(QStringLiteral("Ctrl+L"))))
    , m_showJournal(addAction(QStringLiteral("action_journal"), tr("日志"), QKeySequence(QStringLiteral("Ctrl+J"))))
    , m_count(new QPushButton(window))
    , m_day(clientToday())
    , m_untilRead(new QTimer(this))
{
    m_count->setObjectName(QStringLiteral("btn_alerts"));
    m_count->setFlat(true);
    m_count->hide();
    window->statusBar()->addPermanentWidget(m_count);
    m_untilRead->setSingleShot(true);
    m_untilRead->setInterval(Delay);
    auto* const regularly = new QTimer(this);
    regularly->setObjectName(QStringLiteral("regularly"));
    regularly->start(Interval);
    const auto later = [this] {
        if (!m_untilRead->isActive())
            m_untilRead->start();
    };
    connect(m_showAlerts, &QAction::triggered, m_alerts, &Alerts::open);
    connect(m_showJournal, &QAction::triggered, this, &DayWindows::openJournal);
    connect(m_count, &QPushButton::clicked, m_alerts, &Alerts::open);
    connect(m_alerts, &Alerts::countChanged, this, &DayWindows::showCount);
    connect(m_alerts, &Alerts::planWanted, this, &DayWindows::planWanted);
    connect(m_untilRead, &QTimer::timeout, m_alerts, &Alerts::refresh);
    connect(regularly, &QTimer::timeout, this, &DayWindows::readRegularly);
    connect(&PlanEvents::instance(), &PlanEvents::planStored, this, later);
    connect(&PlanEvents::instance(), &PlanEvents::plansStored, this, later);
    connect(&PlanEvents::instance(), &PlanEvents::plansChanged, this, later);
    connect(&PlanEvents::instance(), &PlanEvents::connectionRestored, this, later);
    m_alerts->refresh();
}

QAction* DayWindows::addAction(const QString& name, const QString& text, const QKeySequence& key)
{
    auto* const action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcut(key);
    m_window->addAction(action);
    return action;
}

void DayWindows::openJournal()
{
    if (!m_journal) {
        m_journal = new Journal(m_window);
        connect(m_journal, &Journal::planWanted, this, &DayWindows::planWanted);
    }
    m_journal->open(clientToday());
}

void DayWindows::readRegularly()
{
    m_alerts->refresh();
    if (std::exchange(m_day, clientToday()) != clientToday())
        Q_EMIT dayBegan();
}

void DayWindows::showCount()
{
    const QString count = m_alerts->countText();
    m_count->setText(tr("提醒 %1").arg(count));
    m_count->setVisible(!count.isEmpty());
    m_showAlerts->setText(count.isEmpty() ? tr("提醒") : tr("提醒（%1）").arg(count));
}
