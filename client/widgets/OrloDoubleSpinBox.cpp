#include "OrloDoubleSpinBox.h"

#include "DecimalText.h"
#include "ErrorText.h"
#include "FieldHint.h"
#include "FieldMark.h"
#include "FieldUnit.h"
#include "InputMeaning.h"
#include "OrloDecimalLineEdit.h"

#include <QDebug>
#include <QFocusEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QWheelEvent>

#include <optional>

namespace {

constexpr int RatioShowType = 2;

} // namespace

/// QDoubleSpinBox always has a value within its range, so the empty state is kept here. While the field is empty, the
/// range is extended to 0, so that `value()` can be 0; the requested range is restored with the next number.
class OrloDoubleSpinBox::Private : public QObject {
public:
    explicit Private(OrloDoubleSpinBox* box)
        : q(box)
    {
    }

    DecimalLimits limits() const;
    NumberUnit unit() const;
    void makeEmpty();
    void showNumber(double number);
    void showStart();
    void forgetTyped();
    void textTyped(const QString& text);
    void valueMoved(double value);
    void focusTaken(Qt::FocusReason reason);
    void focusLeft();
    void mouseReleased();
    void showMeaning();
    bool eventFilter(QObject* watched, QEvent* event) override;

    int showType = 0;
    bool emptyMode = false;
    bool empty = false;
    bool untouched = true; ///< no number was entered or set yet; the field shows its initial state
    QString refused;       ///< a text that is not a number, which stays in the field; the field is then empty
    OrloDoubleSpinBox* q;

private:
    void stretchRange();
    void releaseRange();
    void take(const QString& text);
    void showText();
    void describe(const QString& note);

    std::optional<DecimalLimits> m_asked;
    double m_known = 0; ///< the number last entered or set
    bool m_moving = false;
    bool m_typed = false;   ///< the trader has typed since the field was set
    bool m_clicked = false; ///< the focus came by the mouse button that is still pressed
    Status m_refusal;       ///< why `refused` is not a number
    QString m_note;         ///< the end of the description for screen readers
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

NumberUnit OrloDoubleSpinBox::Private::unit() const
{
    NumberUnit unit = FieldUnit::of(q);
    unit.isRatio = showType == RatioShowType;
    return unit;
}

void OrloDoubleSpinBox::Private::forgetTyped()
{
    untouched = false;
    m_typed = false;
    refused.clear();
    m_refusal = Status();
}

void OrloDoubleSpinBox::Private::textTyped(const QString& text)
{
    m_typed = true;
    take(text);
    showMeaning();
}

void OrloDoubleSpinBox::Private::take(const QString& text)
{
    untouched = false;
    refused.clear();
    m_refusal = Status();
    if (!text.trimmed().isEmpty()) {
        const Result<double> number = typedNumber(text, limits(), unit());
        if (number) {
            empty = false;
            m_known = *number;
            return;
        }
        refused = text;
        m_refusal = number.status();
    }
    makeEmpty();
}

/// Shows the text of the present state; while the trader types, the text is the trader's.
void OrloDoubleSpinBox::Private::showText()
{
    const QScopedValueRollback<bool> own(m_moving, true);
    q->QDoubleSpinBox::setValue(q->value());
}

/// Says what the input means: in the field while it has the focus, and why it is refused also afterwards.
void OrloDoubleSpinBox::Private::showMeaning()
{
    const bool hasFocus = q->hasFocus();
    const bool isUnfinished = hasFocus && isUnfinishedNumber(refused);
    const QString reason = isUnfinished ? QString() : errorText(m_refusal);
    const QString meaning =
        hasFocus && !empty ? QStringLiteral("= ") + numberInWords(m_known, q->decimals(), unit()) : QString();
    FieldHint::hideAt(q);
    if (!reason.isEmpty())
        FieldHint::showAt(q, reason, hasFocus ? FieldHint::UntilHidden : FieldHint::ForSeconds);
    InputMeaning::show(q->lineEdit(), q, meaning);
    FieldMark::refuseInput(q, errorText(m_refusal));
    FieldMark::set(q, FieldMark::Refused, !reason.isEmpty());
    describe(reason.isEmpty() ? meaning : reason);
}

/// Adds a note to the description for screen readers, or replaces it.
void OrloDoubleSpinBox::Private::describe(const QString& note)
{
    QString text = q->accessibleDescription();
    if (!m_note.isEmpty() && text.endsWith(m_note))
        text.chop(m_note.size());
    m_note = note.isEmpty() || text.isEmpty() ? note : OrloDoubleSpinBox::tr("，%1").arg(note);
    q->setAccessibleDescription(text + m_note);
}

// Other fields may have changed what a refused text means.
void OrloDoubleSpinBox::Private::focusTaken(Qt::FocusReason reason)
{
    m_clicked = reason == Qt::MouseFocusReason;
    if (!refused.isEmpty()) {
        take(QString(refused));
        if (!empty)
            showNumber(m_known);
    }
    showText();
    showMeaning();
}

void OrloDoubleSpinBox::Private::focusLeft()
{
    m_clicked = false;
    showText();
    showMeaning();
}

void OrloDoubleSpinBox::Private::mouseReleased()
{
    if (m_clicked && !m_typed && !q->lineEdit()->hasSelectedText())
        q->selectAll();
    m_clicked = false;
}

bool OrloDoubleSpinBox::Private::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease)
        mouseReleased();
    return QObject::eventFilter(watched, event);
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
    lineEdit()->installEventFilter(d.get());
    connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) { d->textTyped(text); });
    connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
        [this](double number) { d->valueMoved(number); });
    d->showStart();
}

OrloDoubleSpinBox::~OrloDoubleSpinBox() = default;

QString OrloDoubleSpinBox::GetStrValue() const
{
    if (d->empty)
        return {};
    const QString shown = text();
    return isPlainNumber(shown) ? shown : decimalText(value(), decimals(), d->showType == RatioShowType);
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

// No typed character is dropped: a text that is not a number stays in the field and makes it empty.
QValidator::State OrloDoubleSpinBox::validate(QString& text, int& position) const
{
    Q_UNUSED(text)
    Q_UNUSED(position)
    return QValidator::Acceptable;
}

// Never called, because every text is accepted.
void OrloDoubleSpinBox::fixup(QString& text) const
{
    Q_UNUSED(text)
}

double OrloDoubleSpinBox::valueFromText(const QString& text) const
{
    return typedNumber(text, d->limits(), d->unit()).valueOr(0);
}

QString OrloDoubleSpinBox::textFromValue(double value) const
{
    if (d->empty && value == this->value())
        return d->refused;
    const QString text = decimalText(value, decimals(), d->showType == RatioShowType);
    return hasFocus() ? text : groupedText(text);
}

void OrloDoubleSpinBox::stepBy(int steps)
{
    if (buttonSymbols() == QAbstractSpinBox::NoButtons)
        return;
    const double next = value() + steps * singleStep();
    const DecimalLimits limits = d->limits();
    if (!isWithin(next, limits)) {
        const QString text = decimalText(next, limits.decimals, true);
        FieldHint::showAt(this, errorText(typedNumber(text, limits, NumberUnit()).status()));
        return;
    }
    setValue(next);
    selectAll();
}

void OrloDoubleSpinBox::clear()
{
    d->forgetTyped();
    d->makeEmpty();
    d->showMeaning();
}

void OrloDoubleSpinBox::setValue(double value)
{
    d->forgetTyped();
    if (isWithin(value, d->limits())) {
        d->showNumber(value);
    } else {
        qWarning().noquote() << "OrloDoubleSpinBox::setValue" << value << "does not fit" << objectName();
        d->makeEmpty();
    }
    d->showMeaning();
}

void OrloDoubleSpinBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void OrloDoubleSpinBox::focusOutEvent(QFocusEvent* event)
{
    QDoubleSpinBox::focusOutEvent(event);
    // The menu of the field takes the focus only for a moment.
    if (event->reason() != Qt::PopupFocusReason)
        d->focusLeft();
}

bool OrloDoubleSpinBox::event(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        FieldHint::hideAt(this);
    // Before Qt selects the text.
    if (event->type() == QEvent::FocusIn)
        d->focusTaken(static_cast<QFocusEvent*>(event)->reason());
    if (event->type() == QEvent::MouseButtonRelease)
        d->mouseReleased();
    return QDoubleSpinBox::event(event);
}

OrloDecimalLineEdit::OrloDecimalLineEdit(QWidget* parent)
    : OrloDoubleSpinBox(parent)
{
    setButtonSymbols(QAbstractSpinBox::NoButtons);
}

OrloDecimalLineEdit::~OrloDecimalLineEdit() = default;
