#pragma once

#include <QDoubleSpinBox>
#include <memory>

/// A decimal spin box whose field may be empty. Its text never holds grouping, and a number outside its range is
/// never bent into it in silence: typing beyond the range is refused with a hint, and a number set from outside that
/// does not fit leaves the field empty and is logged.
class OrloDoubleSpinBox : public QDoubleSpinBox {
    Q_OBJECT

public:
    explicit OrloDoubleSpinBox(QWidget* parent = nullptr); ///< at its minimum, two decimals
    ~OrloDoubleSpinBox() override;

    /// The text as shown, in the C locale and without grouping; empty when the field is empty.
    QString GetStrValue() const;

    /// How the number is shown: 0 as a number, 1 as an amount, 2 as a ratio without trailing zeros.
    void SetShowType(int showType);

    /// Whether the field starts empty; when off it starts at its minimum.
    void setEmptyMode(bool emptyMode);

    QValidator::State validate(QString& text, int& position) const override; ///< an empty text is acceptable
    void fixup(QString& text) const override;                 ///< finishes an unfinished number where it can
    double valueFromText(const QString& text) const override; ///< 0 for an empty text
    QString textFromValue(double value) const override;       ///< without grouping, in the show type
    void stepBy(int steps) override; ///< does nothing where there are no step buttons, or beyond the range

public Q_SLOTS:
    /// Empties the field; `value()` is then 0.
    void clear() override;
    /// Shows a number. One that is not finite or outside the range empties the field and is logged as a warning.
    void setValue(double value);

protected:
    void wheelEvent(QWheelEvent* event) override;    ///< takes the wheel with the focus only
    void focusOutEvent(QFocusEvent* event) override; ///< takes the hint over the field away
    bool event(QEvent* event) override;              ///< the same for a field that is locked

private:
    class Private;
    std::unique_ptr<Private> d;
};
