#pragma once

#include "FormView.h"
#include "LogCatcher.h"
#include "Sequence.h"
#include <memory>

class AutoParamSetting;
class ParamListWidget_single;
class QWidget;

namespace model {

/// The real editor on the scripted platform: does an action as a trader, the host or a service would, and reads what
/// came of it.
class Driver {
public:
    /// Shows a new editor; the script answers as it is set.
    Driver();
    ~Driver();
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    void act(const Action& action);
    /// The trader confirms a strategy in the panel.
    void confirmPanel(const QString& strategy);

    FormState form() const { return m_view->state(); }
    PanelState panel() const;
    /// What happened beyond the form since the last call.
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
