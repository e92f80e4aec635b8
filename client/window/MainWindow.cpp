#include "MainWindow.h"

#include "Appearance.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "DayWindows.h"
#include "DraftBar.h"
#include "EditorDialog.h"
#include "EditorForms.h"
#include "ErrorText.h"
#include "ExportActions.h"
#include "HistoryTexts.h"
#include "ImportSheet.h"
#include "IssueSheet.h"
#include "Kelvo_Fields.h"
#include "OrloWidget.h"
#include "PlainText.h"
#include "PlanDetails.h"
#include "PlanEvents.h"
#include "PlanFormatter.h"
#include "PlanPane.h"
#include "PlanTable.h"
#include "ReadReport.h"
#include "StateActions.h"
#include "StatusLine.h"
#include "StrategySheet.h"
#include "WindowPlace.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QPointer>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWindow>

#include <chrono>

namespace {

constexpr QSize UsualSize(1366, 768);
constexpr int DetailsWidth = 300;
constexpr int LineMargin = 8;
constexpr std::chrono::milliseconds UntilPainted(1);

const QString Halves = QStringLiteral("windows/halves");

QSettings settings()
{
    return QSettings(QStringLiteral("plandesk"), QStringLiteral("plandesk"));
}

QKeySequence withControl(Qt::Key key)
{
    return QKeySequence(static_cast<int>(Qt::CTRL) + key);
}

/// Why the database could not be opened, or another failure itself.
Status causeOf(const Status& failure)
{
    return failure.error() == Error::CannotOpenDatabase ? failure.cause() : failure;
}

bool isLoss(const Status& failure)
{
    const Error cause = causeOf(failure).error();
    return cause == Error::ConnectionLost || cause == Error::NoConnection;
}

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent)
    , m_pane(new PlanPane(this))
    , m_table(m_pane->table())
    , m_outdated(PlainText::newLabel(QString(), this))
    , m_calendar(PlainText::newLabel(QString(), this))
    , m_details(new PlanDetails(this))
    , m_halves(new QSplitter(this))
    , m_forms(new EditorForms(this))
    , m_status(new StatusLine(*m_table, this))
    , m_changes([this] { refreshForOthers(); }, [this] { return mayRefresh(); })
{
    const StoredUser& user = ClientSession::instance().user();
    setObjectName(QStringLiteral("plandesk"));
    setWindowTitle(tr("交易计划 - %1（%2）").arg(user.name, user.id));
    resize(UsualSize);
    new WindowPlace(this, QStringLiteral("plans"));
    m_halves->addWidget(buildList());
    m_halves->addWidget(m_details);
    m_halves->setStretchFactor(0, 1);
    m_halves->setSizes({ UsualSize.width() - DetailsWidth, DetailsWidth });
    m_halves->restoreState(settings().value(Halves).toByteArray());
    setCentralWidget(m_halves);
    buildActions();
    buildStatus();
    connect(m_forms, &EditorForms::closed, this, &MainWindow::formClosed);
    connect(&PlanEvents::instance(), &PlanEvents::readFailed, this, &MainWindow::showFailure);
    connect(&PlanEvents::instance(), &PlanEvents::plansChanged, &m_changes, &NoticeMerger::notice);
    connect(&PlanEvents::instance(), &PlanEvents::connectionLost, this, [this] { showLoss(Error::ConnectionLost); });
    connect(&PlanEvents::instance(), &PlanEvents::connectionStillLost, this, &MainWindow::showLoss);
    connect(&PlanEvents::instance(), &PlanEvents::connectionRestored, this, &MainWindow::endLoss);
    connect(&PlanEvents::instance(), &PlanEvents::outcomeKnown, this, &MainWindow::showOutcome);
    connect(m_table, &PlanTable::currentPlanChanged, this, &MainWindow::showCurrent);
    connect(m_pane, &PlanPane::listChanged, m_status, &StatusLine::showRead);
    connect(m_table, &PlanTable::counted, this, [this] { m_status->showCount(); });
    connect(m_table, &PlanTable::tooManySelected, this,
        [this](int most) { m_status->showDone(tr("一次最多选择%1个计划，请先筛选或搜索").arg(most)); });
    connect(m_table, &QTableView::doubleClicked, this, &MainWindow::openEdit);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &MainWindow::keepKeyboard, Qt::QueuedConnection);
    // Before the plans are read, so that no change is missed.
    ClientSession::instance().watch();
    refresh();
    m_table->setFocus();
}

MainWindow::~MainWindow()
{
    ClientSession::instance().endWatch();
}

void MainWindow::setSkin(const QString& name)
{
    const QString sheet = skinSheet(name);
    if (sheet.isEmpty())
        return;
    m_skin = name;
    qApp->setStyleSheet(sheet);
    m_forms->setSkin(sheet);
}

EditorDialog* MainWindow::editorDialog() const
{
    return m_forms->last();
}

void MainWindow::selectPlan(const QString& planId)
{
    m_table->selectPlan(planId);
}

QString MainWindow::currentPlan() const
{
    return m_table->currentPlan().id;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!m_forms->mayClose(this)) {
        event->ignore();
        return;
    }
    m_forms->leaveAll();
    settings().setValue(Halves, m_halves->saveState());
    QMainWindow::closeEvent(event);
}

QWidget* MainWindow::buildList()
{
    m_outdated->setObjectName(QStringLiteral("outdated"));
    m_outdated->setProperty("faulty", true);
    m_outdated->setWordWrap(true);
    m_outdated->setMargin(LineMargin);
    m_outdated->hide();
    auto* const list = new QWidget(this);
    auto* const rows = new QVBoxLayout(list);
    rows->setContentsMargins(QMargins());
    rows->addWidget(new DraftBar(*m_forms, list));
    rows->addWidget(m_outdated);
    rows->addWidget(m_pane);
    return list;
}

QAction* MainWindow::addAction(const QString& name, const QString& text, const QList<QKeySequence>& keys)
{
    auto* const action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcuts(keys);
    QMainWindow::addAction(action);
    return action;
}

void MainWindow::buildActions()
{
    QAction* const create = addAction(QStringLiteral("action_new"), tr("新建"), { withControl(Qt::Key_N) });
    m_edit = addAction(QStringLiteral("action_edit"), tr("编辑"),
        { withControl(Qt::Key_E), QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter) });
    m_copy = addAction(QStringLiteral("action_copy"), tr("复制"), { withControl(Qt::Key_D) });
    QAction* const skin = addAction(QStringLiteral("action_skin"), tr("换肤"), { QKeySequence(Qt::Key_F8) });
    QAction* const issue = addAction(QStringLiteral("action_issue"), tr("下达当日指令"), { withControl(Qt::Key_I) });
    QAction* const reload = addAction(QStringLiteral("action_refresh"), tr("刷新"), { QKeySequence(Qt::Key_F5) });
    QAction* const strategies = addAction(QStringLiteral("action_strategies"), tr("策略文件…"), {});
    connect(strategies, &QAction::triggered, this, &MainWindow::showStrategies);
    connect(create, &QAction::triggered, m_forms, &EditorForms::openNew);
    connect(m_edit, &QAction::triggered, this, &MainWindow::openEdit);
    connect(m_copy, &QAction::triggered, this, &MainWindow::openCopy);
    connect(skin, &QAction::triggered, this, &MainWindow::switchSkin);
    connect(issue, &QAction::triggered, this, &MainWindow::issueToday);
    connect(reload, &QAction::triggered, this, &MainWindow::refresh);

    const QList<QAction*> ofPlans{ create, m_edit, m_copy };
    buildPlanMenu(ofPlans, issue);
    menuBar()->addMenu(tr("视图(&V)"))->addActions({ reload, skin, strategies });
    QToolBar* const bar = addToolBar(tr("工具栏"));
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setMovable(false);
    bar->addActions(ofPlans + QList<QAction*>{ skin, issue });
}

void MainWindow::buildPlanMenu(const QList<QAction*>& ofPlans, QAction* issue)
{
    const QList<QAction*> ofStates = stateActions();
    auto* const line = new QAction(this);
    line->setSeparator(true);
    m_table->addActions(ofPlans + QList<QAction*>{ line } + ofStates);
    QMenu* const plans = menuBar()->addMenu(tr("计划(&P)"));
    plans->addActions(ofPlans);
    plans->addSeparator();
    plans->addActions(ofStates);
    plans->addSeparator();
    plans->addAction(issue);
    auto* const day = new DayWindows(this);
    plans->addActions(day->actions());
    auto* const imports = new ImportActions(this, [this] { return currentPlan(); });
    plans->addSeparator();
    plans->addActions(imports->actions());
    auto* const exports = new ExportActions(this);
    plans->addMenu(exports->menu());
    connect(exports, &ExportActions::finished, m_status, &StatusLine::showDone);
    connect(day, &DayWindows::planWanted, this, &MainWindow::goToPlan);
    connect(day, &DayWindows::dayBegan, &m_changes, &NoticeMerger::notice);
}

QList<QAction*> MainWindow::stateActions()
{
    auto* const states = new StateActions(
        this, [this] { return chosenPlans(); },
        [this] {
            const QString& account = Kelvo_Fields::UserAccount::tradingAccount;
            return m_table->currentPlan().record.value(account).toString();
        });
    connect(states, &StateActions::finished, this, &MainWindow::statesChanged);
    return states->actions();
}

void MainWindow::buildStatus()
{
    // A message of the status bar itself would vanish as soon as a menu shows its own.
    statusBar()->addWidget(m_status, 1);
    m_calendar->setObjectName(QStringLiteral("calendarEnd"));
    statusBar()->addPermanentWidget(m_calendar);
    showCalendar();
    const QString location = ClientSession::instance().database().location();
    QLabel* const database = PlainText::newLabel(QFileInfo(location).fileName(), this);
    database->setToolTip(PlainText::toolTip(location));
    statusBar()->addPermanentWidget(database);
}

void MainWindow::showCalendar()
{
    const Status status = checkCalendar(clientToday());
    m_calendar->setText(errorText(status));
    m_calendar->setVisible(!status);
}

void MainWindow::formClosed(const QString& storedPlan)
{
    if (!storedPlan.isEmpty()) {
        refresh();
        selectPlan(storedPlan);
    }
    activateWindow();
    m_table->setFocus();
}

void MainWindow::refresh()
{
    const Status shownByTheTable = readTable();
    if (currentPlan().isEmpty())
        m_table->setCurrentIndex(m_table->model()->index(0, 0));
    showCurrent();
}

// The table is painted first, by an event of a low priority: a queued call would precede it.
void MainWindow::refreshForOthers()
{
    showCalendar();
    const Status shownByTheTable = readTable();
    QTimer::singleShot(UntilPainted, this, [this] {
        showCurrent();
        m_forms->lookForChange();
        reportFailure(ClientSession::instance().refreshAccounts());
    });
}

// A menu acts on the current plan, and the rows must not move under a pressed mouse button.
bool MainWindow::mayRefresh() const
{
    return QApplication::mouseButtons() == Qt::NoButton && !QApplication::activePopupWidget();
}

Status MainWindow::readTable()
{
    if (ClientSession::instance().isConnectionLost())
        return Error::ConnectionLost;
    Status status = m_table->refresh();
    if (status)
        m_read = QDateTime::currentDateTime();
    else
        m_outdated->setText(tr("刷新失败：%1。列表仍是%2读取的内容，可能已经过时。")
                                .arg(errorText(status), HistoryTexts::timeText(m_read)));
    m_status->showRead(status);
    m_outdated->setVisible(!status);
    return status;
}

// Services report while the editor waits for their answer, so the box comes after it, and one for all of them.
void MainWindow::showFailure(const Status& failure)
{
    m_status->showRead(failure);
    // The window shows a line as long as the connection is lost.
    if (isLoss(failure))
        return;
    if (m_showsFailure || !m_forms->isAnyOpen())
        return;
    m_showsFailure = true;
    const auto show = [self = QPointer<MainWindow>(this), failure] {
        if (!self)
            return;
        OrloWidget::ShowErrorMsgBox(errorText(failure), self->frontWindow());
        if (self)
            self->m_showsFailure = false;
    };
    QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
}

// A reason other than the missing connection does not pass by itself.
void MainWindow::showLoss(const Status& reason)
{
    const QString text = tr("与服务器的连接已断开，正在重新连接……");
    m_outdated->setText(isLoss(reason) ? text : tr("%1最近一次失败：%2。").arg(text, errorText(causeOf(reason))));
    m_outdated->show();
}

void MainWindow::endLoss()
{
    refresh();
    m_forms->lookForChange();
    if (!m_outdated->isVisible())
        m_status->showRestored();
}

void MainWindow::showOutcome(UnknownRequest request, bool isStored, const QString& planId)
{
    if (isStored && request == UnknownRequest::Plan)
        m_forms->closeStored();
    refresh();
    if (!planId.isEmpty())
        selectPlan(planId);
    QWidget* const parent = frontWindow();
    const QString text = HistoryTexts::outcome(request, isStored, planId);
    if (isStored)
        OrloWidget::ShowTipMsgBox(text, parent);
    else
        OrloWidget::ShowErrorMsgBox(text, parent);
}

/// The window that is used: a form, if one is open.
QWidget* MainWindow::frontWindow()
{
    EditorDialog* const form = m_forms->last();
    return form->isVisible() ? static_cast<QWidget*>(form) : this;
}

// A click on a window behind a box gives it the keyboard, which it cannot use.
void MainWindow::keepKeyboard()
{
    const QWindow* const window = QGuiApplication::focusWindow();
    QWidget* const modal = QApplication::activeModalWidget();
    const QWindow* const front = modal ? modal->windowHandle() : nullptr;
    if (window && front && window != front && !front->isAncestorOf(window, QWindow::IncludeTransients))
        modal->activateWindow();
}

void MainWindow::showCurrent()
{
    const StoredPlan plan = m_table->currentPlan();
    m_details->showPlan(plan);
    m_edit->setEnabled(!plan.id.isEmpty());
    m_copy->setEnabled(!plan.id.isEmpty());
}

void MainWindow::switchSkin()
{
    const QStringList names = skinNames();
    setSkin(names.at((names.indexOf(m_skin) + 1) % names.size()));
    rememberSkin(m_skin);
}

void MainWindow::showStrategies()
{
    if (!m_strategies)
        m_strategies = new StrategySheet(this);
    m_strategies->open();
}

void MainWindow::issueToday()
{
    if (!m_issues) {
        m_issues = new IssueSheet(this);
        connect(m_issues, &IssueSheet::issued, this, &MainWindow::refresh);
    }
    m_issues->openToday();
}

void MainWindow::goToPlan(const QString& planId)
{
    activateWindow();
    m_pane->goTo(planId);
}

void MainWindow::statesChanged(const QString& text)
{
    m_status->showDone(text);
    refresh();
}

QStringList MainWindow::chosenPlans() const
{
    return m_table->selectedPlans();
}

void MainWindow::openEdit()
{
    if (!currentPlan().isEmpty())
        m_forms->openEdit(m_table->currentPlan());
}

void MainWindow::openCopy()
{
    if (!currentPlan().isEmpty())
        m_forms->openCopy(currentPlan());
}
