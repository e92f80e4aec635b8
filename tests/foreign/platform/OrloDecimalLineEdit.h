#pragma once

#include <QDoubleSpinBox>

class OrloDecimalLineEdit : public QDoubleSpinBox {
public:
    using QDoubleSpinBox::QDoubleSpinBox;
    QString GetStrValue() const { return cleanText(); }
    void SetShowType(int) { }
    void setEmptyMode(bool) { }
};
