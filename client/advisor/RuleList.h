#pragma once

#include "AdvisedPlan.h"
#include "AdvisorRow.h"

/// The rules that a plan must pass, and those that only warn.
namespace RuleList {

/// What a rule says about a plan.
struct Verdict {
    enum Kind {
        Failed,   ///< the plan is refused
        Asked,    ///< the form asks whether to continue
        Doubtful, ///< only the advisor warns
        Open,     ///< not known while facts are being read
        Passed,
        NotApplicable, ///< the rule is about other plans
    };
    Kind kind = Passed;
    QString text = {};
};

struct AdvisedRule {
    /// The object name of the field that it is about.
    QString field;
    QString caption;
    /// Whether the rule is the advisor's own; it never refuses a plan.
    bool isSoft = false;
    Verdict verdict;
};

/// All rules, the form's in its order, then those of the plan service and the advisor's own.
QVector<AdvisedRule> of(const AdvisedPlan& plan);

/// How many there are of each kind, as one sentence.
QString summary(const QVector<AdvisedRule>& rules);
/// A mark, the caption and the reason, the worst first, with the field as key.
AdvisorRows rows(const QVector<AdvisedRule>& rules);
AdvisorColumns columns();

} // namespace RuleList
