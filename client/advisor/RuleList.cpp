#include "RuleList.h"

#include "ErrorText.h"
#include "PlanCheck.h"
#include "PlanFacts.h"
#include "PlanLife.h"
#include "RuleParts.h"

#include <algorithm>

using Mark = AdvisorRow::Mark;

namespace RuleList {
namespace {

const QString ServiceField = QStringLiteral("btn_ok");

/// Why the plan service would refuse the plan; success if it would not.
Status refusal(const AdvisedPlan& plan)
{
    const AdvisorFacts& facts = plan.facts();
    const PlanCheck::Known known{ plan.world.market, plan.world.calendar, plan.world.today, plan.world.user.id,
        facts.rights, plan.closes, plan.sellable() };
    if (facts.edited.id.isEmpty())
        return PlanCheck::creationError(plan.record, known);
    if (Status ended = PlanLife::changeError(facts.edited); !ended)
        return ended;
    return PlanCheck::changeError(facts.edited.record, plan.record, PlanFacts::used(facts.edited, facts.used), known);
}

// The service is only asked about a plan that the form would send.
Verdict serviceAccepts(const AdvisedPlan& plan, const QVector<AdvisedRule>& before)
{
    const auto isBroken = [](const AdvisedRule& rule) { return rule.verdict.kind == Verdict::Failed; };
    if (std::any_of(before.cbegin(), before.cend(), isBroken))
        return notApplicable();
    if (!plan.hasFacts())
        return open(plan);
    const Status status = refusal(plan);
    return status ? passed() : failed(errorText(status));
}

QString markText(Verdict::Kind kind)
{
    switch (kind) {
    case Verdict::Failed:
        return QStringLiteral("✗");
    case Verdict::Asked:
        return QStringLiteral("?");
    case Verdict::Doubtful:
        return QStringLiteral("!");
    case Verdict::Open:
        return QStringLiteral("…");
    case Verdict::Passed:
        return QStringLiteral("✓");
    case Verdict::NotApplicable:
        break;
    }
    return QStringLiteral("–");
}

QString kindText(Verdict::Kind kind)
{
    switch (kind) {
    case Verdict::Failed:
        return Advisor::tr("未通过");
    case Verdict::Asked:
        return Advisor::tr("将询问");
    case Verdict::Doubtful:
        return Advisor::tr("提醒");
    case Verdict::Open:
        return Advisor::tr("正在读取……");
    case Verdict::Passed:
        return Advisor::tr("通过");
    case Verdict::NotApplicable:
        break;
    }
    return Advisor::tr("不适用");
}

Mark markOf(Verdict::Kind kind)
{
    switch (kind) {
    case Verdict::Failed:
        return Mark::Bad;
    case Verdict::Asked:
    case Verdict::Doubtful:
        return Mark::Doubtful;
    case Verdict::Passed:
        return Mark::Good;
    case Verdict::Open:
    case Verdict::NotApplicable:
        break;
    }
    return Mark::Faint;
}

AdvisorRow rowOf(const AdvisedRule& rule)
{
    const QString kind = kindText(rule.verdict.kind);
    QString text = rule.verdict.text.isEmpty() ? kind : Advisor::tr("%1：%2").arg(kind, rule.verdict.text);
    // The caption of a soft rule has the word already.
    if (rule.verdict.kind == Verdict::Doubtful)
        text = rule.verdict.text;
    const QString caption = rule.isSoft ? Advisor::tr("%1（提醒）").arg(rule.caption) : rule.caption;
    return { { markText(rule.verdict.kind), caption, text }, markOf(rule.verdict.kind), rule.field };
}

void append(const QVector<Rule>& rules, bool isSoft, const AdvisedPlan& plan, QVector<AdvisedRule>& all)
{
    for (const Rule& rule : rules)
        all << AdvisedRule{ QLatin1String(rule.field), Advisor::tr(rule.caption), isSoft, rule.check(plan) };
}

} // namespace

Verdict open(const AdvisedPlan& plan)
{
    const Status failure = plan.failure();
    return { Verdict::Open, failure ? QString() : errorText(failure) };
}

QVector<AdvisedRule> of(const AdvisedPlan& plan)
{
    QVector<AdvisedRule> all;
    append(formRules(), false, plan, all);
    all << AdvisedRule{ ServiceField, Advisor::tr("计划服务"), false, serviceAccepts(plan, all) };
    append(softRules(), true, plan, all);
    return all;
}

QString summary(const QVector<AdvisedRule>& rules)
{
    QStringList parts;
    for (const Verdict::Kind kind : { Verdict::Failed, Verdict::Asked, Verdict::Doubtful }) {
        const auto isOfKind = [kind](const AdvisedRule& rule) { return rule.verdict.kind == kind; };
        const auto count = std::count_if(rules.cbegin(), rules.cend(), isOfKind);
        if (count > 0)
            parts << Advisor::tr("%1%2项").arg(kindText(kind), QString::number(count));
    }
    return parts.isEmpty() ? Advisor::tr("没有发现问题") : parts.join(Advisor::tr("，"));
}

AdvisorRows rows(const QVector<AdvisedRule>& rules)
{
    QVector<AdvisedRule> sorted = rules;
    std::stable_sort(sorted.begin(), sorted.end(),
        [](const AdvisedRule& a, const AdvisedRule& b) { return a.verdict.kind < b.verdict.kind; });
    AdvisorRows rows;
    for (const AdvisedRule& rule : qAsConst(sorted))
        rows << rowOf(rule);
    return rows;
}

AdvisorColumns columns()
{
    return { { Advisor::tr("结果"), 6 }, { Advisor::tr("检查"), 34 }, { Advisor::tr("说明"), 60 } };
}

} // namespace RuleList
