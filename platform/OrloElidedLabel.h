#pragma once

#include <QLabel>

/// A label that paints as much of its text as fits, and shows the whole as a tool tip when it does not. `text()` is
/// always the whole text.
class OrloElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit OrloElidedLabel(QWidget* parent = nullptr); ///< without a text
    ~OrloElidedLabel() override;

    QSize minimumSizeHint() const override; ///< room for an ellipsis only

protected:
    void paintEvent(QPaintEvent* event) override; ///< paints what fits
};
