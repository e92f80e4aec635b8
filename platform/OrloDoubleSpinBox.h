#pragma once

#include <QDoubleSpinBox>

#include <memory>

/// A decimal spin box whose field can be empty. A number outside the range is never silently clamped: typing it is
/// rejected with a hint, and setting it clears the field and logs a warning.
class OrloDoubleSpinBox : public QDoubleSpinBox {
    Q_OBJECT

public:
    explicit OrloDoubleSpinBox(QWidget* parent = nullptr); ///< constructs a box at its minimum, with two decimals
    ~OrloDoubleSpinBox() override;

    /// Returns the text as shown, in the C locale and without group separators; empty if the field is empty.
    QString GetStrValue() const;

    /// Sets the format of the number: 0 for a number, 1 for an amount, 2 for a ratio without trailing zeros.
    void SetShowType(int showType);

    /// Sets whether the field is initially empty; otherwise it starts at its minimum.
    void setEmptyMode(bool emptyMode);

    QValidator::State validate(QString& text, int& position) const override; ///< accepts an empty text
    void fixup(QString& text) const override;                 ///< completes an incomplete number if possible
    double valueFromText(const QString& text) const override; ///< returns 0 for an empty text
    QString textFromValue(double value) const override;       ///< uses the show type
    void stepBy(int steps) override;                          ///< does nothing without step buttons or beyond the range

public Q_SLOTS:
    /// Clears the field; `value()` is then 0.
    void clear() override;
    /// Shows a number. If it is not finite or outside the range, clears the field and logs a warning.
    void setValue(double value);

protected:
    void wheelEvent(QWheelEvent* event) override;    ///< handles the wheel only with the focus
    void focusOutEvent(QFocusEvent* event) override; ///< hides the hint over the field
    bool event(QEvent* event) override;              ///< hides the hint when the field is locked

private:
    class Private;
    std::unique_ptr<Private> d;
};
