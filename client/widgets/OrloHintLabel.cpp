#include "OrloHintLabel.h"

OrloHintLabel::OrloHintLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

OrloHintLabel::~OrloHintLabel() = default;
