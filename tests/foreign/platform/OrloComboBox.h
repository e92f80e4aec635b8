#pragma once

#include <QComboBox>

class OrloComboBox : public QComboBox {
public:
    using QComboBox::QComboBox;
    void setSearchEnabled() { }
    void ResetEnable() { setEnabled(true); }
};
