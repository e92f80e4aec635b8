#pragma once

#include "FormView.h"
#include "LogCatcher.h"
#include "Sequence.h"

#include <memory>

class AutoParamSetting;
class ParamListWidget_single;
class QWidget;

namespace model {

/// The real editor on the scripted platform: performs actions of a trader, the host or a service, and reads their
/// results.
class Driver {
public:
    /// Shows a new editor on the present script.
    Driver();
    ~Driver();
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    void act(const Action& action);
    /// The trader confirms a strategy in the panel.
    void confirmPanel(const QString& strategy);

    FormState form() const { return m_view->state(); }
    PanelState panel() const;
    /// The effects outside the form since the last call.
    Effects takeEffects();

private:
    ParamListWidget_single* panelWidget() const;

    LogCatcher m_log;
    std::unique_ptr<QWidget> m_host;
    AutoParamSetting* m_editor = nullptr;
    std::unique_ptr<FormView> m_view;
    int m_closes = 0;
};

} // namespace model
