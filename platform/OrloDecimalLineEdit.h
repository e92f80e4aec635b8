#pragma once

#include "OrloDoubleSpinBox.h"

/// An input for decimal numbers without step buttons.
class OrloDecimalLineEdit : public OrloDoubleSpinBox {
    Q_OBJECT

public:
    explicit OrloDecimalLineEdit(QWidget* parent = nullptr); ///< constructs an input at its minimum, with two decimals
    ~OrloDecimalLineEdit() override;
};
