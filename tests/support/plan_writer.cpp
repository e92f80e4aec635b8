// A second client without a window: creates and modifies plans through the services, issues a day, or holds a lock,
// until its work is done, its server is gone or it is killed. Prints each attempt and each answer to standard output at
// once:
//   ready | create MARK | modify ID VERSION MARK [MARK-THAT-WAS-READ] | stored ID VERSION MARK
//   refused MILLISECONDS REASON | issued NUMBER-OF-PLANS | done

#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "InstructionIssuer.h"
#include "PlanEvents.h"
#include "PlanLedger.h"
#include "SampleSession.h"
#include "ServerLocation.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

namespace {

// One call per line, so that a killed writer leaves complete lines in the pipe.
void say(const QString& text)
{
    const QByteArray line = text.toUtf8() + '\n';
    if (::write(STDOUT_FILENO, line.constData(), static_cast<size_t>(line.size())) != line.size())
        ::_exit(3);
}

/// Sends plans, each marked with the writer's name and a number.
class Writer {
public:
    explicit Writer(const QString& name)
        : m_name(name)
        , m_base(SampleSession::record())
    {
        QObject::connect(
            &PlanEvents::instance(), &PlanEvents::planStored, [this](const QString& id) { m_stored = id; });
    }

    void create()
    {
        const QString mark = nextMark();
        say(QStringLiteral("create ") + mark);
        m_clock.start();
        const QString reason = AutoPlanLogic::instance().CreateNewPlan(PlanLedger::recordOf(m_base, mark));
        if (answer(reason, 1, mark)) {
            m_plan = m_stored;
            m_version = 1;
        }
    }

    /// Changes the plan that was created last; its version is known.
    void modify()
    {
        const QString mark = nextMark();
        say(QStringLiteral("modify %1 %2 %3").arg(m_plan).arg(m_version + 1).arg(mark));
        if (answer(change(m_plan, mark), m_version + 1, mark))
            ++m_version;
    }

    /// Changes a plan that others change, too; its version is unknown, 0.
    void modifyShared(const QString& plan)
    {
        const QString mark = nextMark();
        const PlanLedger::Record read = AutoPlanLogic::instance().GetPlanInfo(plan);
        say(QStringLiteral("modify %1 0 %2 %3")
                .arg(plan, mark, read.value(AutoPlanField::BaseField::remark).toString()));
        answer(change(plan, mark), 0, mark);
    }

    bool hasPlan() const { return !m_plan.isEmpty(); }
    /// The version of a plan is not known after its connection was lost.
    void forgetPlan() { m_plan.clear(); }
    /// Whether the last plan was stored.
    bool isAcknowledged() const { return m_isAcknowledged; }

private:
    QString nextMark() { return QStringLiteral("%1-%2").arg(m_name).arg(++m_count, 6, 10, QLatin1Char('0')); }

    QString change(const QString& plan, const QString& mark)
    {
        PlanLedger::Record record = PlanLedger::recordOf(m_base, mark);
        record.insert(AutoPlanField::BaseField::autoPlanId, plan);
        m_clock.start();
        return AutoPlanLogic::instance().modifyPlan(record);
    }

    bool answer(const QString& reason, int version, const QString& mark)
    {
        if (reason.isEmpty())
            say(QStringLiteral("stored %1 %2 %3").arg(m_stored).arg(version).arg(mark));
        else
            say(QStringLiteral("refused %1 %2").arg(m_clock.elapsed()).arg(reason));
        m_isAcknowledged = reason.isEmpty();
        return m_isAcknowledged;
    }

    const QString m_name;
    const PlanLedger::Record m_base;
    QString m_stored;
    QString m_plan;
    int m_version = 0;
    int m_count = 0;
    bool m_isAcknowledged = false;
    QElapsedTimer m_clock;
};

// The system then refuses to extend any file of this process, like a full disk.
void limitFiles(rlim_t bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{ bytes, bytes };
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

void waitForEndOfInput()
{
    say(QStringLiteral("ready"));
    char byte = 0;
    while (::read(STDIN_FILENO, &byte, 1) > 0) { }
}

int holdLock()
{
    if (!ClientSession::instance().database().configure(QStringLiteral("BEGIN IMMEDIATE")))
        return 1;
    waitForEndOfInput();
    return 0;
}

int issueDay(const QDate& day)
{
    waitForEndOfInput();
    QElapsedTimer clock;
    clock.start();
    const Result<IssueResult> result = InstructionIssuer::issueDay(day);
    if (result)
        say(QStringLiteral("issued %1").arg(result->issued.size()));
    else
        say(QStringLiteral("refused %1 %2").arg(clock.elapsed()).arg(errorText(result.status())));
    return 0;
}

bool isConnected()
{
    return bool(ClientSession::instance().database().value(QStringLiteral("SELECT 1")));
}

void waitForConnection()
{
    QEventLoop loop;
    QObject::connect(&PlanEvents::instance(), &PlanEvents::connectionRestored, &loop, &QEventLoop::quit);
    loop.exec();
}

// Twice as many changes as new plans; a shared plan is changed every third time.
int writePlans(const QString& name, int count, const QString& shared)
{
    Writer writer(name);
    ClientSession::instance().watch();
    say(QStringLiteral("ready"));
    for (int i = 0; count == 0 || i < count; ++i) {
        if (!writer.isAcknowledged() && !isConnected()) {
            waitForConnection();
            writer.forgetPlan();
        }
        if (i % 3 == 0 || !writer.hasPlan())
            writer.create();
        else if (i % 3 == 1 || shared.isEmpty())
            writer.modify();
        else
            writer.modifyShared(shared);
    }
    say(QStringLiteral("done"));
    return 0;
}

} // namespace

/// plan_writer FILE lock | plan_writer FILE issue DAY | plan_writer FILE NAME COUNT [SHARED-PLAN] | plan_writer FILE
/// NAME COUNT limit=BYTES
int main(int argc, char** argv)
{
    // A test that crashes does not end its writers.
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3)
        return 2;
    setClientToday(SampleSession::today());
    // On a server, the user is the role of the location.
    const QString user = ServerLocation::isServer(arguments.at(1)) ? QString() : QStringLiteral("trader01");
    // Issues as the command does, which has no window.
    ClientSession::Options options;
    options.isPatient = arguments.at(2) == QLatin1String("issue");
    const Status status = ClientSession::instance().open(arguments.at(1), user, ClientSession::Progress(), options);
    if (!status) {
        say(QStringLiteral("closed ") + errorText(status));
        return 1;
    }
    if (arguments.at(2) == QLatin1String("lock"))
        return holdLock();
    if (arguments.at(2) == QLatin1String("issue"))
        return issueDay(QDate::fromString(arguments.value(3), Qt::ISODate));
    const QString last = arguments.value(4);
    const QString limit = QStringLiteral("limit=");
    if (last.startsWith(limit))
        limitFiles(last.mid(limit.size()).toULongLong());
    return writePlans(arguments.at(2), arguments.value(3).toInt(), last.startsWith(limit) ? QString() : last);
}
