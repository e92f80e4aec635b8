#pragma once

#include "Status.h"
#include "StrategyDefinition.h"

#include <QMap>

#include <functional>

/// Evaluates conditions on values that change. Every condition is evaluated at most once between two changes, even if
/// many others use it.
class EditEvaluation {
public:
    /// Whether a comparison can be made.
    enum class Truth { No, Yes, Unknown };
    /// What a comparison with an empty side is.
    enum class Empty {
        IsUnknown, ///< unknown, for relations between parameters
        IsValue    ///< an empty value differs from every other and is neither smaller nor larger, for controls
    };

    EditEvaluation(const QVector<StrategyEdit>& edits, Empty empty, std::function<QString(int)> valueOf);

    Truth truth(int edit);
    bool isTrue(int edit) { return truth(edit) == Truth::Yes; }
    /// Forgets the results. Call it when a value has changed.
    void valuesChanged() { ++m_time; }

private:
    Truth evaluate(const StrategyEdit& edit);
    Truth combine(const StrategyEdit& edit);
    Truth compare(const StrategyEdit& edit) const;

    struct Known {
        int time = 0;
        Truth truth = Truth::Unknown;
    };

    QVector<StrategyEdit> m_edits;
    Empty m_empty;
    std::function<QString(int)> m_valueOf;
    QVector<Known> m_known;
    int m_time = 1;
};

/// Checks of a strategy's rules.
namespace StrategyRules {

/// The first rule that does not hold; null if all hold. A relation with an empty parameter is not checked.
const StrategyRule* firstBroken(const StrategyDefinition& strategy, const QMap<QString, QString>& values);
/// Checks the values of a strategy: its parameters, then its rules.
Status check(const StrategyDefinition& strategy, const QMap<QString, QString>& values);
/// The first parameter of a rule, for the mark of its input.
QString firstParameter(const StrategyDefinition& strategy, const StrategyRule& rule);

} // namespace StrategyRules
