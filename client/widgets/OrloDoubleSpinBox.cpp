#include "OrloDoubleSpinBox.h"

#include "DecimalText.h"
#include "ErrorText.h"
#include "FieldHint.h"
#include "OrloDecimalLineEdit.h"

#include <QDebug>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QWheelEvent>

#include <optional>

namespace {

constexpr int RatioShowType = 2;

} // namespace

/// QDoubleSpinBox always has a value within its range, so the empty state is kept here. While the field is empty, the
/// range is extended to 0, so that `value()` can be 0; the requested range is restored with the next number.
class OrloDoubleSpinBox::Private {
public:
    explicit Private(OrloDoubleSpinBox* box)
        : q(box)
    {
    }

    DecimalLimits limits() const;
    void makeEmpty();
    void showNumber(double number);
    void showStart();
    void textTyped(const QString& text);
    void valueMoved(double value);

    int showType = 0;
    bool emptyMode = false;
    bool empty = false;
    bool untouched = true; ///< no number was entered or set yet; the field shows its initial state
    OrloDoubleSpinBox* q;

private:
    void stretchRange();
    void releaseRange();

    std::optional<DecimalLimits> m_asked;
    double m_known = 0; ///< the number last entered or set
    bool m_moving = false;
};

DecimalLimits OrloDoubleSpinBox::Private::limits() const
{
    DecimalLimits now{ q->minimum(), q->maximum(), q->decimals() };
    if (!m_asked)
        return now;
    // A bound with the extended value represents the requested one; any other was set in the meantime.
    if (now.minimum == qMin(0.0, m_asked->minimum))
        now.minimum = m_asked->minimum;
    if (now.maximum == qMax(0.0, m_asked->maximum))
        now.maximum = m_asked->maximum;
    return now;
}

void OrloDoubleSpinBox::Private::stretchRange()
{
    const DecimalLimits wanted = limits();
    m_asked = wanted;
    q->setRange(qMin(0.0, wanted.minimum), qMax(0.0, wanted.maximum));
}

void OrloDoubleSpinBox::Private::releaseRange()
{
    if (!m_asked)
        return;
    const DecimalLimits wanted = limits();
    m_asked.reset();
    q->setRange(wanted.minimum, wanted.maximum);
}

void OrloDoubleSpinBox::Private::makeEmpty()
{
    const QScopedValueRollback<bool> own(m_moving, true);
    empty = true;
    m_known = 0;
    stretchRange();
    q->QDoubleSpinBox::setValue(0);
}

void OrloDoubleSpinBox::Private::showNumber(double number)
{
    const QScopedValueRollback<bool> own(m_moving, true);
    empty = false;
    m_known = number;
    q->QDoubleSpinBox::setValue(number);
    releaseRange();
}

void OrloDoubleSpinBox::Private::showStart()
{
    if (emptyMode)
        makeEmpty();
    else
        showNumber(limits().minimum);
}

void OrloDoubleSpinBox::Private::textTyped(const QString& text)
{
    FieldHint::hideAt(q);
    const DecimalVerdict verdict = validateDecimal(text, limits());
    if (verdict.state != QValidator::Acceptable)
        return;
    untouched = false;
    if (text.isEmpty()) {
        makeEmpty();
        return;
    }
    empty = false;
    m_known = verdict.number;
}

/// Qt clamps the number when a bound or the decimals change. That number was not requested.
void OrloDoubleSpinBox::Private::valueMoved(double value)
{
    if (m_moving)
        return;
    if (untouched) {
        showStart();
        return;
    }
    if (empty) {
        makeEmpty();
        return;
    }
    if (!isWithin(m_known, limits())) {
        qWarning().noquote() << "OrloDoubleSpinBox: the range has left out" << m_known << "of" << q->objectName();
        makeEmpty();
        return;
    }
    if (!qFuzzyCompare(1 + m_known, 1 + value))
        FieldHint::showAt(q, OrloDoubleSpinBox::tr("已按%1位小数取整").arg(q->decimals()));
    m_known = value;
    releaseRange();
}

OrloDoubleSpinBox::OrloDoubleSpinBox(QWidget* parent)
    : QDoubleSpinBox(parent)
    , d(std::make_unique<Private>(this))
{
    setLocale(QLocale::c());
    setGroupSeparatorShown(false);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumWidth(60);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) { d->textTyped(text); });
    connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
        [this](double number) { d->valueMoved(number); });
    d->showStart();
}

OrloDoubleSpinBox::~OrloDoubleSpinBox() = default;

QString OrloDoubleSpinBox::GetStrValue() const
{
    return text();
}

void OrloDoubleSpinBox::SetShowType(int showType)
{
    d->showType = showType;
    if (!d->empty)
        d->showNumber(value());
}

void OrloDoubleSpinBox::setEmptyMode(bool emptyMode)
{
    d->emptyMode = emptyMode;
    if (d->untouched)
        d->showStart();
}

QValidator::State OrloDoubleSpinBox::validate(QString& text, int& position) const
{
    Q_UNUSED(position)
    const DecimalVerdict verdict = validateDecimal(text, d->limits());
    if (verdict.state == QValidator::Invalid && hasFocus())
        FieldHint::showAt(d->q, errorText(verdict.status));
    return verdict.state;
}

/// Completes an unfinished number when the field is left; if that is impossible, the previous number returns.
void OrloDoubleSpinBox::fixup(QString& text) const
{
    const DecimalVerdict verdict = validateDecimal(text, d->limits());
    if (verdict.state == QValidator::Acceptable)
        return;
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    if (text == QLatin1String("-"))
        text.clear();
    const DecimalVerdict fixed = validateDecimal(text, d->limits());
    if (fixed.state != QValidator::Acceptable || text.isEmpty())
        FieldHint::showAt(d->q, errorText(text.isEmpty() ? verdict.status : fixed.status));
}

double OrloDoubleSpinBox::valueFromText(const QString& text) const
{
    return validateDecimal(text, d->limits()).number;
}

QString OrloDoubleSpinBox::textFromValue(double value) const
{
    if (d->empty && value == this->value())
        return {};
    return decimalText(value, decimals(), d->showType == RatioShowType);
}

void OrloDoubleSpinBox::stepBy(int steps)
{
    if (buttonSymbols() == QAbstractSpinBox::NoButtons)
        return;
    const double next = value() + steps * singleStep();
    const DecimalLimits limits = d->limits();
    if (!isWithin(next, limits)) {
        const QString text = decimalText(next, limits.decimals, true);
        const DecimalVerdict verdict = validateDecimal(text, limits);
        FieldHint::showAt(this, errorText(verdict.status));
        return;
    }
    setValue(next);
    selectAll();
}

void OrloDoubleSpinBox::clear()
{
    d->untouched = false;
    d->makeEmpty();
}

void OrloDoubleSpinBox::setValue(double value)
{
    d->untouched = false;
    if (isWithin(value, d->limits())) {
        d->showNumber(value);
        return;
    }
    qWarning().noquote() << "OrloDoubleSpinBox::setValue" << value << "does not fit" << objectName();
    d->makeEmpty();
}

void OrloDoubleSpinBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void OrloDoubleSpinBox::focusOutEvent(QFocusEvent* event)
{
    FieldHint::hideAt(this);
    QDoubleSpinBox::focusOutEvent(event);
}

bool OrloDoubleSpinBox::event(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        FieldHint::hideAt(this);
    return QDoubleSpinBox::event(event);
}

OrloDecimalLineEdit::OrloDecimalLineEdit(QWidget* parent)
    : OrloDoubleSpinBox(parent)
{
    setButtonSymbols(QAbstractSpinBox::NoButtons);
}

OrloDecimalLineEdit::~OrloDecimalLineEdit() = default;
