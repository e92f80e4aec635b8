#include "StateRuleReader.h"

#include "ControlValue.h"
#include "ElementReader.h"

#include <QSet>

#include <algorithm>

namespace {

StateRule readRule(const StrategyElement& element, const StrategyDefinition& strategy, const StrategyControl& control,
    StrategyRemarks& remarks)
{
    ElementReader reader(element, remarks);
    StateRule rule;
    rule.line = element.line;
    // The text of the standard also has another name for it than its schema.
    const bool isOtherName = reader.has("enable") && !reader.has("enabled");
    rule.enabled = reader.optionalFlag(isOtherName ? "enable" : "enabled");
    if (isOtherName)
        remarks.warnTakenAs(element.line, "enable", reader.text("enable"), QStringLiteral("enabled"));
    rule.visible = reader.optionalFlag("visible");
    rule.hasValue = reader.has("value");
    const QString text = reader.text("value");
    reader.finish();
    if (!rule.enabled && !rule.visible && !rule.hasValue)
        reader.warn(Error::StateRuleWithoutEffect);
    rule.value = NullValue;
    if (!rule.hasValue || text.isEmpty() || text == NullValue)
        return rule;
    const StrategyParameter* const parameter = ControlValue::parameterOf(strategy, control);
    const QString meant = ControlValue::meantBy(control, parameter, text);
    remarks.warnTakenAs(element.line, "value", text, meant);
    const Result<QString> value = ControlValue::read(control, parameter, meant);
    if (value)
        rule.value = value->isEmpty() ? NullValue : *value;
    else
        reader.refuse({ Error::InvalidStateValue, { control.id, text.left(64) }, value.status() });
    return rule;
}

/// The control that stands for a group of radio buttons, of which one changes the others.
int leaderOf(const StrategyDefinition& strategy, int index)
{
    const QString key = strategy.controls.at(index).radioKey();
    if (key.isEmpty())
        return index;
    const auto leader = std::find_if(strategy.controls.cbegin(), strategy.controls.cend(),
        [&](const StrategyControl& other) { return other.radioKey() == key; });
    return static_cast<int>(leader - strategy.controls.cbegin());
}

void collectFields(const StrategyDefinition& strategy, int root, QSet<int>& fields)
{
    QSet<int> seen;
    QVector<int> open{ root };
    while (!open.isEmpty()) {
        const int index = open.takeLast();
        if (seen.contains(index))
            continue;
        seen.insert(index);
        const StrategyEdit& edit = strategy.edits.at(index);
        open += edit.operands;
        for (const int field : { edit.field, edit.otherField }) {
            if (field >= 0)
                fields.insert(leaderOf(strategy, field));
        }
    }
}

/// Controls, or groups of radio buttons, whose values depend on others.
struct Dependencies {
    QHash<int, QVector<int>> members; ///< controls with value rules by their leader
    QHash<int, QSet<int>> sources;    ///< leaders on which a leader depends, among `members`
    QHash<int, QVector<int>> users;   ///< leaders that depend on a leader
};

Dependencies dependenciesOf(const StrategyDefinition& strategy)
{
    Dependencies result;
    QHash<int, QSet<int>> fields;
    for (int i = 0; i < strategy.controls.size(); ++i) {
        const QList<StateRule>& rules = strategy.controls.at(i).stateRules;
        const auto setsValue = [](const StateRule& rule) { return rule.hasValue; };
        if (std::none_of(rules.cbegin(), rules.cend(), setsValue))
            continue;
        const int leader = leaderOf(strategy, i);
        result.members[leader].append(i);
        for (const StateRule& rule : rules) {
            if (rule.hasValue)
                collectFields(strategy, rule.edit, fields[leader]);
        }
    }
    for (auto it = fields.cbegin(); it != fields.cend(); ++it) {
        for (const int source : it.value()) {
            if (!result.members.contains(source))
                continue;
            result.sources[it.key()].insert(source);
            result.users[source].append(it.key());
        }
    }
    return result;
}

} // namespace

void StateRuleReader::read(const StrategyElement& control, int index, EditReader& edits, StrategyDefinition& strategy,
    StrategyRemarks& remarks)
{
    for (const StrategyElement& child : control.children) {
        if (child.name != QLatin1String("StateRule"))
            continue;
        StateRule rule = readRule(child, strategy, strategy.controls.at(index), remarks);
        rule.edit = edits.readRule(child, EditReader::Controls);
        if (rule.edit >= 0)
            strategy.controls[index].stateRules.append(rule);
    }
}

void StateRuleReader::order(StrategyDefinition& strategy, StrategyRemarks& remarks)
{
    Dependencies dependencies = dependenciesOf(strategy);
    QList<int> leaders = dependencies.members.keys();
    std::sort(leaders.begin(), leaders.end());
    QVector<int> ready;
    for (const int leader : qAsConst(leaders)) {
        if (!dependencies.sources.contains(leader))
            ready.append(leader);
    }
    for (int done = 0; done < ready.size(); ++done) {
        const int leader = ready.at(done);
        strategy.settleOrder += dependencies.members.value(leader);
        const QVector<int> users = dependencies.users.value(leader);
        for (const int user : users) {
            dependencies.sources[user].remove(leader);
            if (dependencies.sources[user].isEmpty())
                ready.append(user);
        }
    }
    for (const int leader : qAsConst(leaders)) {
        if (ready.contains(leader))
            continue;
        const StrategyControl& control = strategy.controls.at(dependencies.members.value(leader).constFirst());
        return remarks.refuse(control.stateRules.constFirst().line, { Error::StateRuleCycle, { control.id } });
    }
}
