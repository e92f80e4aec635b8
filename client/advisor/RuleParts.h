#pragma once

#include "RuleList.h"

/// The parts of the list of rules.
namespace RuleList {

using Check = Verdict (*)(const AdvisedPlan& plan);

struct Rule {
    const char* field;
    const char* caption; ///< translated by `Advisor`
    Check check;
};

inline Verdict passed()
{
    return {};
}

inline Verdict notApplicable()
{
    return { Verdict::NotApplicable };
}

inline Verdict failed(const QString& text)
{
    return { Verdict::Failed, text };
}

inline Verdict asked(const QString& text)
{
    return { Verdict::Asked, text };
}

inline Verdict doubtful(const QString& text)
{
    return { Verdict::Doubtful, text };
}

/// The verdict of a rule that needs facts which are missing.
Verdict open(const AdvisedPlan& plan);

/// The form's own rules, in its order.
const QVector<Rule>& formRules();
/// The advisor's own rules.
const QVector<Rule>& softRules();

} // namespace RuleList
