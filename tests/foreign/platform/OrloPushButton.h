#pragma once

#include <QPushButton>

class OrloPushButton : public QPushButton {
public:
    enum class BtnStyleType { Normal, Highlight, Text };

    using QPushButton::QPushButton;
    void setStyleType(BtnStyleType style) { setFlat(style == BtnStyleType::Text); }
};
