#include "EditEvaluation.h"

#include "MarketTime.h"
#include "ParameterValue.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace {

using Truth = EditEvaluation::Truth;

Truth truthOf(bool condition)
{
    return condition ? Truth::Yes : Truth::No;
}

Truth opposite(Truth truth)
{
    if (truth == Truth::Unknown)
        return truth;
    return truthOf(truth == Truth::No);
}

QStringList sorted(const QString& list)
{
    QStringList parts = list.split(QLatin1Char(' '));
    parts.sort();
    return parts;
}

/// Negative, 0 or positive, as the left side is smaller, equal or larger.
int order(ComparedAs as, const QString& left, const QString& right)
{
    if (as == ComparedAs::Set)
        return sorted(left) == sorted(right) ? 0 : left.compare(right) < 0 ? -1 : 1;
    const bool areNumbers = as == ComparedAs::Number
        || (as == ComparedAs::NumberOrText && ParameterValue::isDecimal(left) && ParameterValue::isDecimal(right));
    if (!areNumbers)
        return left.compare(right);
    const double difference = left.toDouble() - right.toDouble();
    return difference < 0 ? -1 : (difference > 0 ? 1 : 0);
}

bool holds(EditOperator comparison, int order)
{
    switch (comparison) {
    case EditOperator::Less:
        return order < 0;
    case EditOperator::LessOrEqual:
        return order <= 0;
    case EditOperator::Greater:
        return order > 0;
    case EditOperator::GreaterOrEqual:
        return order >= 0;
    case EditOperator::Equal:
        return order == 0;
    case EditOperator::NotEqual:
        return order != 0;
    default:
        return false;
    }
}

/// A number or a time that is not finished has no value.
QString usable(const StrategyEdit& edit, const QString& value, const QByteArray& zone)
{
    // Times of different zones are compared in UTC.
    if (edit.as == ComparedAs::Time)
        return MarketTime::converted(value, zone, edit.zone == edit.otherZone ? zone : QByteArrayLiteral("UTC"))
            .value_or(QString());
    bool isNumber = true;
    if (edit.as == ComparedAs::Number)
        value.toDouble(&isNumber);
    return isNumber ? value : QString();
}

} // namespace

EditEvaluation::EditEvaluation(const QVector<StrategyEdit>& edits, Empty empty, std::function<QString(int)> valueOf)
    : m_edits(edits)
    , m_empty(empty)
    , m_valueOf(std::move(valueOf))
    , m_known(edits.size())
{
}

Truth EditEvaluation::truth(int edit)
{
    Known& known = m_known[edit];
    if (known.time != m_time) {
        known.truth = evaluate(m_edits.at(edit));
        known.time = m_time;
    }
    return known.truth;
}

Truth EditEvaluation::evaluate(const StrategyEdit& edit)
{
    return edit.isCombination() ? combine(edit) : compare(edit);
}

Truth EditEvaluation::combine(const StrategyEdit& edit)
{
    if (edit.comparison == EditOperator::Not)
        return opposite(truth(edit.operands.constFirst()));
    // An operand of this truth decides AND and OR at once.
    const Truth decisive = truthOf(edit.comparison == EditOperator::Or);
    int yes = 0;
    bool isUnknown = false;
    for (const int operand : edit.operands) {
        const Truth now = truth(operand);
        if (edit.comparison != EditOperator::Xor && now == decisive)
            return decisive;
        yes += now == Truth::Yes ? 1 : 0;
        isUnknown = isUnknown || now == Truth::Unknown;
    }
    if (isUnknown)
        return Truth::Unknown;
    // Exactly one for XOR.
    return edit.comparison == EditOperator::Xor ? truthOf(yes == 1) : opposite(decisive);
}

Truth EditEvaluation::compare(const StrategyEdit& edit) const
{
    const QString left = m_valueOf(edit.field);
    if (edit.comparison == EditOperator::Exists || edit.comparison == EditOperator::Missing)
        return truthOf(left.isEmpty() == (edit.comparison == EditOperator::Missing));
    const QString one = usable(edit, left, edit.zone);
    const QString other = usable(edit, edit.otherField < 0 ? edit.value : m_valueOf(edit.otherField), edit.otherZone);
    if (!one.isEmpty() && !other.isEmpty())
        return truthOf(holds(edit.comparison, order(edit.as, one, other)));
    if (m_empty == Empty::IsUnknown)
        return Truth::Unknown;
    const bool isSame = one.isEmpty() && other.isEmpty();
    return truthOf(
        edit.comparison == EditOperator::Equal ? isSame : edit.comparison == EditOperator::NotEqual && !isSame);
}

const StrategyRule* StrategyRules::firstBroken(const StrategyDefinition& strategy, const QMap<QString, QString>& values)
{
    EditEvaluation evaluation(strategy.edits, EditEvaluation::Empty::IsUnknown,
        [&](int field) { return values.value(strategy.parameters.at(field).name); });
    const auto broken = std::find_if(strategy.rules.cbegin(), strategy.rules.cend(),
        [&](const StrategyRule& rule) { return evaluation.truth(rule.edit) == Truth::No; });
    return broken == strategy.rules.cend() ? nullptr : &*broken;
}

QString StrategyRules::firstParameter(const StrategyDefinition& strategy, const StrategyRule& rule)
{
    int edit = rule.edit;
    while (strategy.edits.at(edit).isCombination())
        edit = strategy.edits.at(edit).operands.constFirst();
    return strategy.parameters.at(strategy.edits.at(edit).field).name;
}

Status StrategyRules::check(const StrategyDefinition& strategy, const QMap<QString, QString>& values)
{
    for (const StrategyParameter& parameter : strategy.parameters) {
        if (Status status = ParameterValue::check(parameter, values.value(parameter.name)); !status)
            return { Error::InvalidParameter, { parameter.name }, status };
    }
    const StrategyRule* const broken = firstBroken(strategy, values);
    return broken ? Status(Error::RuleBroken, { broken->message }) : Status();
}
