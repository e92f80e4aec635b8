#include "AutoPlanLogic.h"

#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "Kelvo_Fields.h"
#include "PlanCheck.h"
#include "PlanEvents.h"
#include "PlanFacts.h"
#include "PlanTexts.h"
#include "ReadReport.h"

#include <QDateTime>

namespace BaseField = AutoPlanField::BaseField;

namespace {

using Record = QMap<QString, QVariant>;

Result<PlanCheck::Known> knownFor(ClientSession& session, const Record& record)
{
    const QDate today = clientToday();
    const QString& user = session.user().id;
    const auto rights = PlanRightsReader(session.database(), today).read(user, record);
    if (!rights)
        return rights.status();
    const Security* security = session.market().find(record.value(Kelvo_Fields::Security::symbol).toString());
    const auto closes = security ? PlanFacts::closesBefore(session, *security, today) : QVector<qint64>();
    if (!closes)
        return closes.status();
    const auto sellable = security ? PlanFacts::sellable(session, record, *security) : 0.0;
    if (!sellable)
        return sellable.status();
    return PlanCheck::Known{ session.market(), session.calendar(), today, user, *rights, *closes, *sellable };
}

Result<QString> create(ClientSession& session, const Record& record)
{
    const auto known = knownFor(session, record);
    if (!known)
        return known.status();
    if (Status refused = PlanCheck::creationError(record, *known); !refused)
        return refused;
    return session.plans().create(record, session.user().id, QDateTime::currentDateTime());
}

Status change(ClientSession& session, const QString& planId, const Record& record)
{
    PlanStore plans = session.plans();
    const Result<StoredPlan> stored = plans.plan(planId);
    if (!stored)
        return stored.status();
    if (stored->id.isEmpty())
        return { Error::UnknownPlan, { planId } };
    const auto known = knownFor(session, record);
    if (!known)
        return known.status();
    const auto used = PlanFacts::used(session, *stored);
    if (!used)
        return used.status();
    Status refused = PlanCheck::changeError(stored->record, record, *used, *known);
    return refused ? plans.modify(planId, record, QDateTime::currentDateTime()) : refused;
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

// Rights and plans are read, checked and written in one transaction, so that they cannot change in between.
QString AutoPlanLogic::CreateNewPlan(QMap<QString, QVariant> record)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return errorText(Error::PlansNeedLogin);
    QString id;
    const Status status = session.database().transaction([&] {
        const Result<QString> created = create(session, record);
        id = created.valueOr(QString());
        return created.status();
    });
    if (status)
        Q_EMIT PlanEvents::instance().planStored(id);
    return errorText(status);
}

QString AutoPlanLogic::modifyPlan(const QMap<QString, QVariant>& record)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return errorText(Error::PlansNeedLogin);
    const QString planId = record.value(BaseField::autoPlanId).toString();
    QMap<QString, QVariant> content = record;
    content.remove(BaseField::autoPlanId);
    const Status status = session.database().transaction([&] { return change(session, planId, content); });
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
