#pragma once

#include "OrloDoubleSpinBox.h"

/// A decimal number input without step buttons.
class OrloDecimalLineEdit : public OrloDoubleSpinBox {
    Q_OBJECT

public:
    explicit OrloDecimalLineEdit(QWidget* parent = nullptr); ///< as the spin box, without buttons
    ~OrloDecimalLineEdit() override;
};
