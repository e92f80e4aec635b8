#include "AutoPlanLogic.h"

#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "PlanCheck.h"
#include "PlanEvents.h"
#include "PlanTexts.h"
#include "ReadReport.h"

#include <QDateTime>

namespace BaseField = AutoPlanField::BaseField;

namespace {

PlanCheck::Known knownOf(const ClientSession& session)
{
    return { session.market(), session.accounts(), session.calendar() };
}

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
    if (Status refused = PlanCheck::creationError(record, knownOf(session)); !refused)
        return errorText(refused);
    const Result<QString> id = session.plans().create(record, session.user().id, QDateTime::currentDateTime());
    if (id)
        Q_EMIT PlanEvents::instance().planStored(*id);
    return errorText(id.status());
}

// Reads, checks and writes in one transaction, so that the plan cannot change in between.
QString AutoPlanLogic::modifyPlan(const QMap<QString, QVariant>& record)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return errorText(Error::PlansNeedLogin);
    const QString planId = record.value(BaseField::autoPlanId).toString();
    // The editor compares a plan with its instructions, and gets none if they cannot be read.
    if (const auto instructions = session.instructionsOf(planId); !instructions)
        return errorText(instructions.status());
    QMap<QString, QVariant> content = record;
    content.remove(BaseField::autoPlanId);
    const Status status = session.database().transaction([&]() -> Status {
        PlanStore plans = session.plans();
        const Result<StoredPlan> stored = plans.plan(planId);
        if (!stored)
            return stored.status();
        if (stored->id.isEmpty())
            return { Error::UnknownPlan, { planId } };
        Status refused = PlanCheck::changeError(stored->record, content, clientToday(), knownOf(session));
        return refused ? plans.modify(planId, content, QDateTime::currentDateTime()) : refused;
    });
    if (status)
        Q_EMIT PlanEvents::instance().planStored(planId);
    return errorText(status);
}

QMap<QString, QVariant> AutoPlanLogic::GetPlanInfo(QString planId)
{
    ClientSession& session = ClientSession::instance();
    QMap<QString, QVariant> record;
    if (session.isOpen())
        record = valueOrReport(session.plans().record(planId), record);
    if (record.isEmpty())
        return record;
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
