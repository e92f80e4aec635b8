#include "PlanLife.h"

#include "AutoPlanField.h"
#include "PlanTexts.h"

#include <QCoreApplication>

namespace {

QDate dateOf(const StoredPlan& plan, const QString& key)
{
    return PlanTexts::date(plan.record.value(key).toString());
}

bool mayFollow(PlanStage stage, PlanState state)
{
    const bool hasEnded = stage == PlanStage::Stopped || stage == PlanStage::Completed || stage == PlanStage::Expired;
    const bool runs = stage == PlanStage::NotStarted || stage == PlanStage::Running || stage == PlanStage::Failed;
    switch (state) {
    case PlanState::Active:
        return stage == PlanStage::Paused;
    case PlanState::Paused:
        return runs;
    case PlanState::Stopped:
        return runs || stage == PlanStage::Paused;
    case PlanState::Archived:
        return hasEnded;
    }
    return false;
}

} // namespace

PlanStage PlanLife::stage(const StoredPlan& plan, bool lastDayFailed, const QDate& day)
{
    if (plan.state == PlanState::Archived)
        return PlanStage::Archived;
    if (plan.state == PlanState::Stopped)
        return PlanStage::Stopped;
    if (plan.completed.isValid())
        return PlanStage::Completed;
    if (dateOf(plan, AutoPlanField::BaseField::endDate) < day)
        return PlanStage::Expired;
    if (plan.state == PlanState::Paused)
        return PlanStage::Paused;
    if (lastDayFailed)
        return PlanStage::Failed;
    return dateOf(plan, AutoPlanField::BaseField::beginDate) > day ? PlanStage::NotStarted : PlanStage::Running;
}

QString PlanLife::word(PlanStage stage)
{
    switch (stage) {
    case PlanStage::NotStarted:
        return QCoreApplication::translate("PlanLife", "未开始");
    case PlanStage::Running:
        return QCoreApplication::translate("PlanLife", "进行中");
    case PlanStage::Failed:
        return QCoreApplication::translate("PlanLife", "异常");
    case PlanStage::Paused:
        return QCoreApplication::translate("PlanLife", "已暂停");
    case PlanStage::Stopped:
        return QCoreApplication::translate("PlanLife", "已停止");
    case PlanStage::Completed:
        return QCoreApplication::translate("PlanLife", "已完成");
    case PlanStage::Expired:
        return QCoreApplication::translate("PlanLife", "已过期");
    case PlanStage::Archived:
        return QCoreApplication::translate("PlanLife", "已归档");
    }
    return QString();
}

QString PlanLife::word(PlanState state)
{
    switch (state) {
    case PlanState::Active:
        return QCoreApplication::translate("PlanLife", "有效");
    case PlanState::Paused:
        return word(PlanStage::Paused);
    case PlanState::Stopped:
        return word(PlanStage::Stopped);
    case PlanState::Archived:
        return word(PlanStage::Archived);
    }
    return QString();
}

Status PlanLife::stateError(const StoredPlan& plan, PlanState state, const QDate& day)
{
    const PlanStage present = stage(plan, false, day);
    return mayFollow(present, state) ? Status()
                                     : Status(Error::StateNotPossible, { plan.id, word(present), word(state) });
}

Status PlanLife::changeError(const StoredPlan& plan)
{
    const bool isFinal = plan.state == PlanState::Stopped || plan.state == PlanState::Archived;
    return isFinal ? Status(Error::PlanHasEnded, { plan.id, word(plan.state) }) : Status();
}
