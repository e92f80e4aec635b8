#include "StepInput.h"

#include "ParameterValue.h"

#include <QLineEdit>
#include <QLocale>
#include <QTime>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

const QString StoredTime = QStringLiteral("HH:mm:ss");
constexpr int SecondsPerStep = 60;
/// Steps of the page keys.
constexpr int PageSteps = 10;
constexpr int MaxDecimals = 10;
constexpr int MaxText = 64;

} // namespace

StepInput::StepInput(const StrategyControl& control, const StrategyParameter& parameter, QWidget* parent)
    : QAbstractSpinBox(parent)
    , m_control(control)
    , m_parameter(parameter)
{
    setFocusPolicy(Qt::StrongFocus);
    lineEdit()->setMaxLength(MaxText);
    connect(lineEdit(), &QLineEdit::textChanged, this, &StepInput::textChanged);
}

void StepInput::setText(const QString& text)
{
    lineEdit()->setText(text);
}

void StepInput::stepBy(int steps)
{
    if (m_control.type == ControlType::Clock)
        stepTime(steps);
    else
        stepNumber(steps);
    lineEdit()->selectAll();
}

QValidator::State StepInput::validate(QString& input, int& pos) const
{
    Q_UNUSED(input)
    Q_UNUSED(pos)
    return QValidator::Acceptable;
}

QAbstractSpinBox::StepEnabled StepInput::stepEnabled() const
{
    return StepUpEnabled | StepDownEnabled;
}

void StepInput::wheelEvent(QWheelEvent* event)
{
    // Scrolling the panel must not change a value under the pointer.
    if (hasFocus())
        QAbstractSpinBox::wheelEvent(event);
    else
        event->ignore();
}

void StepInput::setSecurity(int lot, int decimals)
{
    m_lot = lot;
    m_decimals = decimals;
}

double StepInput::step(bool isLarge) const
{
    const StepPolicy policy = isLarge ? m_control.outerStepPolicy : m_control.stepPolicy;
    if (policy == StepPolicy::LotSize && m_lot > 0)
        return m_lot;
    if (policy == StepPolicy::Tick && m_decimals >= 0)
        return std::pow(10.0, -m_decimals);
    const QString given = isLarge ? m_control.outerIncrement : m_control.increment;
    if (!given.isEmpty())
        return given.toDouble();
    return m_parameter.type == ParameterType::Percentage ? 0.01 : 1.0;
}

void StepInput::stepNumber(int steps)
{
    const bool hasLargeStep = !m_control.outerIncrement.isEmpty() || m_control.outerStepPolicy != StepPolicy::Fixed;
    const int pages = hasLargeStep ? steps / PageSteps : 0;
    const double change = pages != 0 ? pages * step(true) : steps * step(false);

    const QString now = ParameterValue::entered(m_parameter, text());
    double value = (ParameterValue::isDecimal(now) ? now.toDouble() : 0.0) + change;
    if (m_parameter.isNonNegative)
        value = std::max(value, 0.0);
    if (!m_parameter.minValue.isEmpty())
        value = std::max(value, m_parameter.minValue.toDouble());
    if (!m_parameter.maxValue.isEmpty())
        value = std::min(value, m_parameter.maxValue.toDouble());
    const QString stepped = ParameterValue::shiftPoint(QString::number(value, 'f', MaxDecimals - 2), 0);
    if (ParameterValue::isDecimal(stepped))
        setText(ParameterValue::shown(m_parameter, stepped));
}

void StepInput::stepTime(int steps)
{
    const QTime now = QLocale::c().toTime(ParameterValue::entered(m_parameter, text()), StoredTime);
    const QTime lowest = QLocale::c().toTime(m_parameter.minValue, StoredTime);
    const QTime highest = QLocale::c().toTime(m_parameter.maxValue, StoredTime);
    const int last = QTime(0, 0).secsTo(highest.isValid() ? highest : QTime(23, 59, 59));
    const int first = lowest.isValid() ? QTime(0, 0).secsTo(lowest) : 0;
    const int wanted = now.isValid() ? QTime(0, 0).secsTo(now) + steps * SecondsPerStep : first;
    setText(QLocale::c().toString(QTime(0, 0).addSecs(std::max(first, std::min(wanted, last))), StoredTime));
}
