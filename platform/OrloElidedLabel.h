#pragma once

#include <QLabel>

/// A label that elides a text that does not fit and then shows the complete text as a tool tip. `text()` is always the
/// complete text.
class OrloElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit OrloElidedLabel(QWidget* parent = nullptr); ///< constructs a label without a text
    ~OrloElidedLabel() override;

    QSize minimumSizeHint() const override; ///< returns the size of an ellipsis

protected:
    void paintEvent(QPaintEvent* event) override; ///< paints the elided text
};
