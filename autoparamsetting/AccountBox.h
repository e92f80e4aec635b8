#pragma once

#include "OrloAccountComboBox.h"

/// The form's account box, which alone of the client's widgets is made with more than its parent. It has no Q_OBJECT,
/// so that style sheets and hosts find the client's own class in it.
class AccountBox : public OrloAccountComboBox {
public:
    /// Shows each account in the client's mode 2.
    explicit AccountBox(QWidget* parent)
        : OrloAccountComboBox(parent, static_cast<DisplayMode>(2))
    {
    }
};
