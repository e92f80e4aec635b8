#include "RoundTrip.h"

#include "Algo_Fields.h"
#include "AutoPlanField.h"
#include "Exploration.h"
#include "Kelvo_Fields.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"
#include "PlanVocabulary.h"
#include "TestClock.h"
#include "Today.h"

#include <QJsonDocument>
#include <QLocale>

namespace model {

namespace {

namespace Base = AutoPlanField::BaseField;

QDate firstDay(const World& world, const FieldMap& record)
{
    const QString symbol = record.value(Kelvo_Fields::Security::symbol).toString();
    const QList<QDate> dates = world.tradeDates(world.security(symbol).exchange);
    QDate day = today().addDays(1);
    while (!dates.isEmpty() && !dates.contains(day))
        day = day.addDays(1);
    return day;
}

QDate dateIn(const FieldMap& record, const QString& key)
{
    return QLocale::c().toDate(record.value(key).toString(), OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
}

/// An empty amount per day is read back as an absent one.
FieldMap refined(const World& world, const FieldMap& record)
{
    FieldMap other = world.otherParamOf(record);
    if (other.contains(Base::dayMaxTradeAmount) && other.value(Base::dayMaxTradeAmount).toString().isEmpty())
        other.insert(Base::dayMaxTradeAmount, QStringLiteral("0.00"));
    if (other.contains(Base::algoParam)) {
        const QString entrustType =
            entrustTypes().value(other.value(AutoPlanFieldId::MarginInstructionSideType).toInt());
        FieldMap params = other.value(Base::algoParam).toMap();
        params.insert(Algo_Fields::AlgoInstContentInfo::Symbol, record.value(Kelvo_Fields::Security::symbol));
        params.insert(Algo_Fields::AlgoInstContentInfo::EntrustProp,
            world.staticText(OrloConstants::DictionaryKey::SideUnion2AlgoDefines, entrustType));
        other.insert(Base::algoParam, params);
    }
    FieldMap sent = record;
    sent.insert(
        Base::planOtherParam, QString::fromUtf8(QJsonDocument::fromVariant(other).toJson(QJsonDocument::Compact)));
    return sent;
}

FieldMap expectedCopy(const World& world, const FieldMap& record)
{
    FieldMap sent = refined(world, record);
    sent.remove(Base::autoPlanId);
    if (dateIn(record, Base::beginDate) > today())
        return sent;
    const QString& format = OrloConstants::DateTimeFormatString::STD_DATE_FORMAT;
    const QDate first = firstDay(world, record);
    const bool reduces =
        record.value(Orlo_Fields::AutoPlan::templateCode).toString() == AutoPlanTemplate::ReduceHoldings;
    sent.insert(Base::beginDate, QLocale::c().toString(first, format));
    sent.insert(Base::endDate, QLocale::c().toString(reduces ? first.addYears(100) : first, format));
    return sent;
}

QStringList readable(const FieldMap& record)
{
    QStringList lines;
    for (auto it = record.cbegin(); it != record.cend(); ++it)
        lines.append(QStringLiteral("      %1: %2").arg(it.key(), readable(it.value())));
    return lines;
}

/// Opens the plan in a new editor and presses OK.
QStringList errorsOf(StepKind kind, const World& world, const QString& planId)
{
    const FieldMap record = world.plans.value(planId);
    const FieldMap expected = kind == EditPlan ? refined(world, record) : expectedCopy(world, record);
    Exploration again(world);
    QStringList errors;
    for (const Action& action : { opening(kind, planId), acceptance() }) {
        again.take(action);
        errors += again.differences();
    }
    const QList<FieldMap> sent = kind == EditPlan ? again.effects().modified : again.effects().created;
    if (sent != QList<FieldMap>{ expected })
        errors << QStringLiteral("it must be sent as") << readable(expected) << QStringLiteral("but was sent as")
               << readable(sent.value(0)) << again.effects().boxes;
    return errors.isEmpty() ? errors : again.history() + errors;
}

} // namespace

QStringList roundTripErrors(const World& world, const QString& planId)
{
    const QDate day = today();
    QStringList errors = errorsOf(EditPlan, world, planId) + errorsOf(CopyPlan, world, planId);
    setToday(dateIn(world.plans.value(planId), Base::beginDate));
    errors += errorsOf(EditPlan, world, planId) + errorsOf(CopyPlan, world, planId);
    setToday(day);
    return errors;
}

} // namespace model
