#pragma once

#include "Sequence.h"
#include <memory>

class AutoParamSetting;
class OrloComboBox;
class QWidget;

namespace oracle {

/// The real editor on the scripted platform: does an action as a trader, the host or a service would, and reads what
/// came of it. The platform answers from the world, which must outlive the driver.
class Driver {
public:
    /// Resets the script and shows a new editor.
    explicit Driver(const World& world);
    ~Driver();
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    void act(const Action& action);
    /// The trader confirms a strategy in the panel.
    void confirmPanel(const QString& strategy);
    /// Has the platform answer from the world as it is now.
    void feed();

    FormState form() const;
    PanelState panel() const;
    /// What happened beyond the form since the last call.
    Effects takeEffects();

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace oracle
