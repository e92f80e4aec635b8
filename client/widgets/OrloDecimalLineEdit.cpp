#include "OrloDecimalLineEdit.h"

OrloDecimalLineEdit::OrloDecimalLineEdit(QWidget* parent)
    : OrloDoubleSpinBox(parent)
{
    setButtonSymbols(QAbstractSpinBox::NoButtons);
}

OrloDecimalLineEdit::~OrloDecimalLineEdit() = default;
