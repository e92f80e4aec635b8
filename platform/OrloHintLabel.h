#pragma once

#include <QLabel>

/// A label for captions and units.
class OrloHintLabel : public QLabel {
    Q_OBJECT

public:
    explicit OrloHintLabel(QWidget* parent = nullptr); ///< constructs a label without a text
    ~OrloHintLabel() override;
};
