#include "Exploration.h"

#include "AutoPlanField.h"

namespace model {

namespace {

void compareLists(QStringList& found, const char* what, const QStringList& expected, const QStringList& got)
{
    if (expected == got)
        return;
    const auto inLines = [](const QStringList& texts) {
        return texts.isEmpty() ? QStringLiteral(" nothing")
                               : QStringLiteral("\n      ") + texts.join(QStringLiteral("\n      "));
    };
    found.append(
        QStringLiteral("%1: expected%2\n    got%3").arg(QString::fromLatin1(what), inLines(expected), inLines(got)));
}

QStringList asTexts(const QList<FieldMap>& records)
{
    QStringList texts;
    for (const FieldMap& record : records) {
        for (auto it = record.cbegin(); it != record.cend(); ++it)
            texts.append(QStringLiteral("%1: %2 (%3)")
                             .arg(it.key(), readable(it.value()), QString::fromLatin1(it.value().typeName())));
    }
    return texts;
}

bool fits(const QStringList& parts, const QStringList& warnings)
{
    bool all = parts.size() == warnings.size();
    for (int i = 0; all && i < parts.size(); ++i)
        all = warnings.at(i).contains(parts.at(i));
    return all;
}

const World& opened(const World& world)
{
    Script::instance().reset(world);
    return Script::instance();
}

} // namespace

QStringList differences(const Effects& expected, const Effects& found)
{
    QStringList different;
    compareLists(different, "message boxes", expected.boxes, found.boxes);
    compareLists(different, "passed to services and panel", expected.outward, found.outward);
    compareLists(different, "created", asTexts(expected.created), asTexts(found.created));
    compareLists(different, "modified", asTexts(expected.modified), asTexts(found.modified));
    if (expected.closes != found.closes)
        different.append(QStringLiteral("asked to close: expected %1, got %2").arg(expected.closes).arg(found.closes));
    if (!fits(expected.warnings, found.warnings))
        compareLists(different, "warnings", expected.warnings, found.warnings);
    if (expected.panelShown != found.panelShown)
        different.append(QStringLiteral("panel shown: expected %1, got %2")
                             .arg(int(expected.panelShown))
                             .arg(int(found.panelShown)));
    return different;
}

Exploration::Exploration(const World& world)
    : m_model(opened(world))
    , m_history(described(world))
{
    finish(Action());
}

bool Exploration::take(const Step& step)
{
    const std::optional<Action> action = actionOf(step, m_model, world());
    if (action)
        take(*action);
    return action.has_value();
}

void Exploration::take(const Action& action)
{
    m_history.append(action.sentence);
    if (action.change)
        action.change(Script::instance());
    apply(action, m_model);
    m_driver.act(action);
    finish(action);
}

/// Compares, then performs the actions of the trader and the services that follow by themselves.
void Exploration::finish(const Action& action)
{
    m_effects = m_model.effects;
    m_model.effects = Effects();
    m_differences = model::differences(m_effects, m_driver.takeEffects());
    m_differences += model::differences(m_model.form, m_driver.form());
    if (m_effects.panelShown && !action.text.isEmpty()) {
        m_model.confirmPanel(action.text);
        m_driver.confirmPanel(action.text);
    }
    if (!(m_model.panel == m_driver.panel()))
        m_differences.append(QStringLiteral("the panel holds %1 instead of %2")
                                 .arg(readable(m_driver.panel().params), readable(m_model.panel.params)));
    keepPlans();
}

void Exploration::keepPlans()
{
    Script& script = Script::instance();
    m_created.clear();
    m_sent += m_effects.created.size() + m_effects.modified.size();
    if (script.signsWhenAsked && m_effects.outward.contains(QStringLiteral("OrloAgreementSignWidget.shown(modally)")))
        script.unsignedClients.clear();
    if (m_effects.closes == 0)
        return;
    for (const FieldMap& record : qAsConst(m_effects.created))
        m_created = script.storePlan(record);
    for (const FieldMap& record : qAsConst(m_effects.modified))
        script.plans.insert(record.value(AutoPlanField::BaseField::autoPlanId).toString(), record);
}

} // namespace model
