#pragma once

#include <QDoubleSpinBox>
#include <memory>

/// A decimal spin box whose field may be empty. Its text never holds grouping, and a number outside its range is
/// never bent into it in silence: typing beyond the range is refused with a hint, and a number set from outside that
/// does not fit leaves the field empty and is logged.
class OrloDoubleSpinBox : public QDoubleSpinBox {
    Q_OBJECT

public:
    explicit OrloDoubleSpinBox(QWidget* parent = nullptr);
    ~OrloDoubleSpinBox() override;

    /// The text as shown, without grouping; empty when the field is empty.
    QString GetStrValue() const;

    /// How the number is shown: 0 as a number, 1 as an amount, 2 as a ratio without trailing zeros.
    void SetShowType(int showType);

    /// Whether the field starts empty; when off it starts at its minimum.
    void setEmptyMode(bool emptyMode);

    QValidator::State validate(QString& text, int& position) const override;
    void fixup(QString& text) const override;
    double valueFromText(const QString& text) const override;
    QString textFromValue(double value) const override;
    void stepBy(int steps) override;

public Q_SLOTS:
    /// Empties the field; `value()` is then 0.
    void clear() override;
    /// Shows a number. One that is not finite or outside the range empties the field and is logged as a warning.
    void setValue(double value);

protected:
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};
