#include "InstructionIssuer.h"

#include "ClientClock.h"
#include "ClientSession.h"
#include "ClosureFiles.h"
#include "PlanEvents.h"

namespace {

QString planOf(const QString& instruction)
{
    return instruction.section(QLatin1Char('-'), 0, 0);
}

/// Whether instructions are stored all the same whose COMMIT has failed: all of them, or none.
Status lookUp(const QStringList& instructions, const Status& failure)
{
    const auto find = [first = instructions.constFirst()](Database& database) -> Result<qint64> {
        const auto stored = InstructionStore(database).ofPlan(planOf(first));
        return stored ? Result<qint64>(stored->contains(first) ? 1 : 0) : stored.status();
    };
    const auto known = [](qint64 found) {
        Q_EMIT PlanEvents::instance().outcomeKnown(UnknownRequest::Issue, found != 0, QString());
    };
    const Result<qint64> stored = ClientSession::instance().lookUp(QStringLiteral("issue"), find, known);
    if (!stored)
        return { Error::OutcomeUnknown, {}, failure };
    return *stored == 0 ? failure : Status();
}

} // namespace

IssueScene InstructionIssuer::scene(const QDate& day, IssueMode mode)
{
    const ClientSession& session = ClientSession::instance();
    const QDateTime now = mode == IssueMode::Live ? clientNow() : QDateTime();
    return { session.user(), session.market(), session.calendar(), day, now, ClosureFiles::status() };
}

Result<IssueResult> InstructionIssuer::issueDay(const QDate& day, IssueMode mode)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return Error::IssuingNeedsLogin;
    if (!day.isValid())
        return { Error::InvalidDate, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "日期")) } };
    DayIssue issue(session.database(), scene(day, mode));
    const Result<DayPlans> plans = issue.plans();
    if (!plans)
        return plans.status();
    IssueResult result = issue.issue(plans->due, [](int) { return true; });
    result.alreadyIssued = plans->issued + result.alreadyIssued;
    finish(result);
    return result.failure || !result.issued.isEmpty() ? Result<IssueResult>(result) : result.failure;
}

void InstructionIssuer::finish(IssueResult& result)
{
    if (!result.unknown.isEmpty()) {
        const Status looked = lookUp(result.unknown, result.failure);
        if (looked)
            result.issued += result.unknown;
        if (!looked || !result.hasRest)
            result.failure = looked;
        result.unknown.clear();
    }
    if (!result.issued.isEmpty() || !result.skipped.isEmpty())
        Q_EMIT PlanEvents::instance().plansStored();
}

Status InstructionIssuer::liveError(const QDate& day)
{
    const QDate today = clientToday();
    if (day == today)
        return {};
    return { Error::NotToday, { day.toString(Qt::ISODate), today.toString(Qt::ISODate) } };
}
