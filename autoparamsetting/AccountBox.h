#pragma once

#include "OrloAccountComboBox.h"

/// The form's account box. It is the only client widget whose constructor takes more than a parent, so the form cannot
/// construct it directly. It has no Q_OBJECT, so that style sheets and hosts see the client's own class.
class AccountBox : public OrloAccountComboBox {
public:
    /// Shows each account in the client's mode 2.
    explicit AccountBox(QWidget* parent)
        : OrloAccountComboBox(parent, static_cast<DisplayMode>(2))
    {
    }
};
