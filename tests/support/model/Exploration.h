#pragma once

#include "Driver.h"

namespace model {

/// The differences between the effects, one sentence each.
QStringList differences(const Effects& expected, const Effects& found);

/// One editor and its model, side by side.
class Exploration {
public:
    /// Sets the script to the world.
    explicit Exploration(const World& world);
    ~Exploration() { Script::instance().reset(); }
    Exploration(const Exploration&) = delete;
    Exploration& operator=(const Exploration&) = delete;

    /// Performs the step in both and compares. Returns false if the step is impossible; nothing happens then.
    bool take(const Step& step);
    void take(const Action& action);
    /// The differences between editor and model; empty as long as they agree.
    QStringList differences() const { return m_differences; }
    /// The steps so far, as readable sentences.
    QStringList history() const { return m_history; }
    const EditorModel& model() const { return m_model; }
    const World& world() const { return Script::instance(); }
    /// The effects of the last step.
    const Effects& effects() const { return m_effects; }
    /// Number of plans that the plan service got.
    int sent() const { return m_sent; }
    /// Id of the plan that the last step created; empty if it created none.
    QString created() const { return m_created; }

private:
    void finish(const Action& action);
    void keepPlans();

    EditorModel m_model;
    Driver m_driver;
    Effects m_effects;
    QStringList m_history;
    QStringList m_differences;
    QString m_created;
    int m_sent = 0;
};

} // namespace model
