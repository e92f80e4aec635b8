#include "StateActions.h"

#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "HistoryStore.h"
#include "OrloWidget.h"
#include "PlanEvents.h"
#include "PlanLife.h"
#include "ReasonDialog.h"

#include <QAction>
#include <QProgressDialog>
#include <QTimer>

#include <memory>
#include <utility>

namespace {

constexpr int MostReasons = 10;
constexpr int UntilShown = 200; // milliseconds

QString reasonsOf(const StateChanges& changes)
{
    QStringList lines;
    const auto shown = changes.refused.mid(0, MostReasons);
    for (const StateChanges::Refused& refused : shown)
        lines << errorText(refused.reason);
    if (changes.refused.size() > MostReasons)
        lines << StateActions::tr("……共%1个计划").arg(changes.refused.size());
    return lines.join(QLatin1Char('\n'));
}

/// Adds the plans that are changed although their COMMIT has failed.
void lookUp(StateChanges& changes)
{
    const StateChanges::Unknown unknown = *std::exchange(changes.unknown, std::nullopt);
    const auto find = [request = unknown.request, process = unknown.process](Database& database) -> Result<qint64> {
        const Status ended = database.endProcess(process);
        return ended ? HistoryStore(database).planOfRequest(request) : ended;
    };
    const auto known = [](qint64 found) {
        Q_EMIT PlanEvents::instance().outcomeKnown(UnknownRequest::State, found != 0, QString());
    };
    const Result<qint64> stored = ClientSession::instance().lookUp(unknown.request, find, known);
    if (!stored) {
        changes.failure = { Error::OutcomeUnknown, {}, changes.failure };
    } else if (*stored != 0) {
        changes.changed += unknown.changed;
        changes.refused += unknown.refused;
        changes.failure = unknown.hasMore ? changes.failure : Status();
    }
}

} // namespace

StateActions::StateActions(
    QWidget* window, const std::function<QStringList()>& chosen, const std::function<QString()>& account)
    : QObject(window)
    , m_window(window)
    , m_chosen(chosen)
    , m_account(account)
    , m_work(ClientSession::instance().database())
{
    add(QStringLiteral("action_pause"), tr("暂停"), [this] { setChosen(PlanState::Paused); });
    add(QStringLiteral("action_resume"), tr("恢复"), [this] { setChosen(PlanState::Active); });
    add(QStringLiteral("action_stop"), tr("停止……"), [this] { stopChosen(); });
    add(QStringLiteral("action_archive"), tr("归档"), [this] { setChosen(PlanState::Archived); });
    add(QStringLiteral("action_pauseAll"), tr("全部暂停……"), [this] { pauseAccount(); });
}

void StateActions::add(const QString& name, const QString& text, const std::function<void()>& act)
{
    auto* const action = new QAction(text, this);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, act);
    m_actions << action;
}

void StateActions::setEnabled(bool isEnabled)
{
    for (QAction* const action : qAsConst(m_actions))
        action->setEnabled(isEnabled);
}

void StateActions::setChosen(PlanState state)
{
    const QStringList plans = m_chosen();
    if (!plans.isEmpty())
        set([plans](Database&) { return Result<QStringList>(plans); }, state, QString());
}

void StateActions::stopChosen()
{
    const QStringList plans = m_chosen();
    if (plans.isEmpty())
        return;
    ReasonDialog dialog(tr("停止%1个计划后不能恢复，也不能再修改。").arg(plans.size()), m_window);
    if (dialog.exec() == QDialog::Accepted)
        set([plans](Database&) { return Result<QStringList>(plans); }, PlanState::Stopped, dialog.reason());
}

void StateActions::pauseAccount()
{
    const QString account = m_account();
    constexpr int No = 0;
    if (account.isEmpty()
        || OrloWidget::ShowQuestionMsgBox(tr("暂停账户%1的全部计划？").arg(account), m_window, No) == No)
        return;
    const auto find = [account, user = ClientSession::instance().user(), day = clientToday()](
                          Database& database) { return PlanStore(database, user).runningOf(account, day); };
    set(find, PlanState::Paused, QString());
}

void StateActions::set(const FindPlans& find, PlanState state, const QString& reason)
{
    setEnabled(false);
    auto* const progress = new QProgressDialog(tr("正在变更计划的状态……"), tr("取消"), 0, 0, m_window);
    progress->setObjectName(QStringLiteral("stateProgress"));
    progress->setWindowModality(Qt::WindowModal);
    QTimer::singleShot(UntilShown, progress, &QWidget::show);
    connect(progress, &QProgressDialog::canceled, this, [this] { m_work.cancel(); });
    connect(&m_work, &LongWork::progressed, progress,
        [progress](int done) { progress->setLabelText(tr("已变更%1个计划……").arg(done)); });
    auto changes = std::make_shared<StateChanges>();
    const auto work = [=, user = ClientSession::instance().user(), calendar = ClientSession::instance().calendar(),
                          day = clientToday()](
                          Database& database, const Status& opened, const LongWork::Progress& tell) {
        const Result<QStringList> plans = opened ? find(database) : opened;
        if (plans)
            *changes = PlanStates(database, user, calendar, day).set(*plans, state, reason, tell);
        else
            changes->failure = plans.status();
    };
    m_work.start(work, [this, changes, state, progress] {
        delete progress;
        setEnabled(true);
        report(*changes, state);
    });
}

void StateActions::report(StateChanges& done, PlanState state)
{
    if (done.unknown)
        lookUp(done);
    if (!done.changed.isEmpty())
        Q_EMIT PlanEvents::instance().plansStored();
    const QString word = state == PlanState::Active ? tr("已恢复") : PlanLife::word(state);
    QString text = tr("%1个计划%2").arg(QString::number(done.changed.size()), word);
    if (done.cancelled)
        text += tr("，其余已取消");
    Q_EMIT finished(text);
    if (!done.failure)
        OrloWidget::ShowErrorMsgBox(errorText(done.failure), m_window);
    else if (!done.refused.isEmpty())
        OrloWidget::ShowWarningMsgBox(reasonsOf(done), m_window);
}
