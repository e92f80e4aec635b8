#include "AutoPlanLogic.h"

#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "PlanEvents.h"
#include "PlanSubmission.h"
#include "PlanTexts.h"
#include "ReadReport.h"

namespace BaseField = AutoPlanField::BaseField;

namespace {

void answerWithoutAverages(AutoPlanLogic* service, const QString& symbol, const Status& status)
{
    // Queued, so that the signal is not emitted inside the query.
    const auto answer = [service, symbol, status] {
        Q_EMIT service->signalQuerySymbolMAResponse(symbol, QStringList(), errorText(status));
    };
    QMetaObject::invokeMethod(service, answer, Qt::QueuedConnection);
}

void queryAverages(AutoPlanLogic* service, const QString& symbol)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        answerWithoutAverages(service, symbol, Error::AveragesNeedLogin);
    else if (!session.market().find(symbol))
        answerWithoutAverages(service, symbol, { Error::UnknownSecurity, { symbol } });
    else
        session.askMovingAverages(symbol);
}

// Without a connection, a form that is open is checked with the plan that it shows: it would take no plan for one that
// has started. A change is refused all the same.
StoredPlan planOrLastRead(ClientSession& session, const QString& planId)
{
    const Result<StoredPlan> read = session.plan(planId);
    if (read.status().error() == Error::ConnectionLost) {
        const StoredPlan last = session.versions().lastRead(planId);
        if (!last.id.isEmpty())
            return last;
    }
    const StoredPlan plan = valueOrReport(read, StoredPlan());
    if (!plan.id.isEmpty())
        session.versions().noteRead(plan);
    return plan;
}

QString refusedRequest(const QString& request, const QMap<QString, QVariant>& record, const Status& reason)
{
    if (reason.error() == Error::OutcomeUnknown)
        ClientSession::instance().requests().keep(request, record);
    Q_EMIT PlanEvents::instance().planRefused(reason);
    return errorText(reason);
}

Result<QList<QDate>> tradeDates(const QString& exchange)
{
    if (!ClientSession::instance().isOpen())
        return Error::TradeDaysNeedLogin;
    return tradeDatesOf(exchange);
}

} // namespace

AutoPlanLogic::AutoPlanLogic()
{
    connect(this, &AutoPlanLogic::signalQuerySymbolMAInfo, this,
        [this](const QString&, const QString& symbol) { queryAverages(this, symbol); });
    const auto forward = [this](const QString& symbol, const Result<QStringList>& names) {
        Q_EMIT signalQuerySymbolMAResponse(symbol, names.valueOr({}), errorText(names.status()));
    };
    connect(&PlanEvents::instance(), &PlanEvents::averagesAnswered, this, forward, Qt::DirectConnection);
}

AutoPlanLogic::~AutoPlanLogic() = default;

AutoPlanLogic& AutoPlanLogic::instance()
{
    static AutoPlanLogic service;
    return service;
}

QString AutoPlanLogic::CreateNewPlan(QMap<QString, QVariant> record)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return errorText(Error::PlansNeedLogin);
    const QString request = session.requests().idOf(record);
    const Result<QString> id = PlanSubmission::create(record, request);
    if (!id)
        return refusedRequest(request, record, id.status());
    PlanSubmission::acknowledge(request, *id, 1);
    return QString();
}

QString AutoPlanLogic::modifyPlan(const QMap<QString, QVariant>& record)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return errorText(Error::PlansNeedLogin);
    const QString planId = record.value(BaseField::autoPlanId).toString();
    QMap<QString, QVariant> content = record;
    content.remove(BaseField::autoPlanId);
    const int version = session.versions().of(planId);
    const QString request = session.requests().idOf(record);
    std::optional<PlanConflict> conflict;
    const Status status = PlanSubmission::change(planId, version, content, request, conflict);
    if (conflict)
        Q_EMIT PlanEvents::instance().planConflict(*conflict);
    if (!status)
        return refusedRequest(request, record, status);
    PlanSubmission::acknowledge(request, planId, version + 1);
    return QString();
}

QMap<QString, QVariant> AutoPlanLogic::GetPlanInfo(QString planId)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return {};
    const StoredPlan plan = planOrLastRead(session, planId);
    if (plan.id.isEmpty())
        return {};
    QMap<QString, QVariant> record = plan.record;
    record.insert(BaseField::autoPlanId, planId);
    return record;
}

QMap<QString, QVariant> AutoPlanLogic::GetPlanOtherParamFromPlanInfo(const QMap<QString, QVariant>& record)
{
    const QString text = record.value(BaseField::planOtherParam).toString();
    return PlanTexts::otherParam(text).value_or(QMap<QString, QVariant>());
}

QMap<QString, QMap<QString, QVariant>> AutoPlanLogic::GetPlanInstruction(QString planId)
{
    return valueOrReport(ClientSession::instance().instructionsOf(planId), {});
}

QList<QDate> AutoPlanLogic::GetTradeDateList(const QString& exchange, QString& error)
{
    const Result<QList<QDate>> days = tradeDates(exchange);
    error = errorText(days.status());
    return days.valueOr({});
}
