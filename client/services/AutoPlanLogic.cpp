#include "AutoPlanLogic.h"

#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "PlanCheck.h"
#include "PlanEvents.h"
#include "PlanTexts.h"

#include <QDateTime>

namespace BaseField = AutoPlanField::BaseField;

namespace {

QString notLoggedIn()
{
    return QStringLiteral("尚未登录，无法处理计划");
}

PlanCheck checkOf(const ClientSession& session)
{
    return PlanCheck(session.market(), session.accounts(), session.calendar());
}

void answerWithoutAverages(AutoPlanLogic* service, const QString& symbol, const QString& reason)
{
    // Queued, so that nobody gets an answer from within the question.
    const auto answer = [service, symbol, reason] {
        Q_EMIT service->signalQuerySymbolMAResponse(symbol, QStringList(), reason);
    };
    QMetaObject::invokeMethod(service, answer, Qt::QueuedConnection);
}

void queryAverages(AutoPlanLogic* service, const QString& symbol)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        answerWithoutAverages(service, symbol, QStringLiteral("尚未登录，无法查询均价"));
    else if (!session.market().find(symbol))
        answerWithoutAverages(service, symbol, QStringLiteral("证券“%1”不存在").arg(symbol));
    else
        session.askMovingAverages(symbol);
}

} // namespace

AutoPlanLogic::AutoPlanLogic()
{
    connect(this, &AutoPlanLogic::signalQuerySymbolMAInfo, this,
        [this](const QString&, const QString& symbol) { queryAverages(this, symbol); });
    connect(&PlanEvents::instance(), &PlanEvents::averagesAnswered, this, &AutoPlanLogic::signalQuerySymbolMAResponse,
        Qt::DirectConnection);
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
        return notLoggedIn();
    const QString refused = checkOf(session).creationError(record);
    if (!refused.isEmpty())
        return refused;
    const PlanStore::Created created = session.plans().create(record, session.user().id, QDateTime::currentDateTime());
    if (created.reason.isEmpty())
        Q_EMIT PlanEvents::instance().planStored(created.id);
    return created.reason;
}

// Reading, checking and writing share one transaction: what was checked is what is changed.
QString AutoPlanLogic::modifyPlan(const QMap<QString, QVariant>& record)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return notLoggedIn();
    const QString planId = record.value(BaseField::autoPlanId).toString();
    QMap<QString, QVariant> content = record;
    content.remove(BaseField::autoPlanId);
    const QString reason = session.database().transaction([&] {
        PlanStore plans = session.plans();
        const StoredPlan stored = plans.plan(planId);
        if (stored.id.isEmpty())
            return QStringLiteral("计划“%1”不存在").arg(planId);
        const QString refused = checkOf(session).modificationError(stored.record, content, clientToday());
        return refused.isEmpty() ? plans.modify(planId, content, QDateTime::currentDateTime()) : refused;
    });
    if (reason.isEmpty())
        Q_EMIT PlanEvents::instance().planStored(planId);
    return reason;
}

QMap<QString, QVariant> AutoPlanLogic::GetPlanInfo(QString planId)
{
    ClientSession& session = ClientSession::instance();
    QMap<QString, QVariant> record;
    if (session.isOpen())
        record = session.plans().record(planId);
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
    return ClientSession::instance().instructionsOf(planId);
}

QList<QDate> AutoPlanLogic::GetTradeDateList(const QString& exchange, QString& error)
{
    if (ClientSession::instance().isOpen())
        return tradeDatesOf(exchange, error);
    error = QStringLiteral("尚未登录，无法查询交易日");
    return {};
}
