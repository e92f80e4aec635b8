#pragma once

#include "Driver.h"

namespace model {

/// What differs between the effects, one sentence each.
QStringList differences(const Effects& expected, const Effects& found);

/// One editor and its model, side by side.
class Exploration {
public:
    /// In a world of its own, which the script answers from.
    explicit Exploration(const World& world);
    ~Exploration() { Script::instance().reset(); }
    Exploration(const Exploration&) = delete;
    Exploration& operator=(const Exploration&) = delete;

    /// Does the step in both and compares; false when it was not possible then and nothing happened.
    bool take(const Step& step);
    void take(const Action& action);
    /// Where editor and model differ; empty as long as they agree.
    QStringList differences() const { return m_differences; }
    /// What has happened so far, for a person to follow.
    QStringList told() const { return m_told; }
    const EditorModel& model() const { return m_model; }
    const World& world() const { return Script::instance(); }
    /// What the last step did.
    const Effects& effects() const { return m_effects; }
    /// How many plans were handed to the plan service.
    int sent() const { return m_sent; }
    /// Id of the plan that the last step created; empty when it created none.
    QString created() const { return m_created; }

private:
    void finish(const Action& action);
    void keepPlans();

    EditorModel m_model;
    Driver m_driver;
    Effects m_effects;
    QStringList m_told;
    QStringList m_differences;
    QString m_created;
    int m_sent = 0;
};

} // namespace model
