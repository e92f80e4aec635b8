#include "StepInput.h"

#include "ParameterValue.h"

#include <QLineEdit>
#include <QLocale>
#include <QTime>
#include <QWheelEvent>

#include <algorithm>
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
}

void StepInput::setText(const QString& text)
{
    lineEdit()->setText(text);
}

void StepInput::stepBy(int steps)
{
    if (m_parameter.type == ParameterType::LocalTime)
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

void StepInput::stepNumber(int steps)
{
    const bool percent = m_parameter.type == ParameterType::Percentage;
    const double single = m_control.increment.isEmpty() ? (percent ? 0.01 : 1.0) : m_control.increment.toDouble();
    const bool page = std::abs(steps) >= PageSteps && !m_control.outerIncrement.isEmpty();
    const int pages = steps / PageSteps;
    const double change = page ? pages * m_control.outerIncrement.toDouble() : steps * single;

    const QString now = ParameterValue::entered(m_parameter, text());
    double value = (ParameterValue::isDecimal(now) ? now.toDouble() : 0.0) + change;
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
