#pragma once

#include <QLabel>

/// A caption or unit label.
class OrloHintLabel : public QLabel {
    Q_OBJECT

public:
    explicit OrloHintLabel(QWidget* parent = nullptr); ///< without a text
    ~OrloHintLabel() override;
};
