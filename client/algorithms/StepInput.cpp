#include "StepInput.h"

#include "ParameterValue.h"

#include <QLineEdit>
#include <QLocale>
#include <QTime>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

namespace {

const QString STORED_TIME = QStringLiteral("HH:mm:ss");
constexpr int SECONDS_PER_STEP = 60;
/// Steps of the page keys.
constexpr int PAGE_STEPS = 10;
constexpr int MAX_DECIMALS = 10;
constexpr int MAX_TEXT = 64;

} // namespace

StepInput::StepInput(const StrategyControl& control, const StrategyParameter& parameter, QWidget* parent)
    : QAbstractSpinBox(parent)
    , m_control(control)
    , m_parameter(parameter)
{
    setFocusPolicy(Qt::StrongFocus);
    lineEdit()->setMaxLength(MAX_TEXT);
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
    const bool page = std::abs(steps) >= PAGE_STEPS && !m_control.outerIncrement.isEmpty();
    const int pages = steps / PAGE_STEPS;
    const double change = page ? pages * m_control.outerIncrement.toDouble() : steps * single;

    const QString now = ParameterValue::entered(m_parameter, text());
    double value = (ParameterValue::isDecimal(now) ? now.toDouble() : 0.0) + change;
    if (!m_parameter.minValue.isEmpty())
        value = std::max(value, m_parameter.minValue.toDouble());
    if (!m_parameter.maxValue.isEmpty())
        value = std::min(value, m_parameter.maxValue.toDouble());
    const QString stepped = ParameterValue::shiftPoint(QString::number(value, 'f', MAX_DECIMALS - 2), 0);
    if (ParameterValue::isDecimal(stepped))
        setText(ParameterValue::shown(m_parameter, stepped));
}

void StepInput::stepTime(int steps)
{
    const QTime now = QLocale::c().toTime(ParameterValue::entered(m_parameter, text()), STORED_TIME);
    const QTime lowest = QLocale::c().toTime(m_parameter.minValue, STORED_TIME);
    const QTime highest = QLocale::c().toTime(m_parameter.maxValue, STORED_TIME);
    const int last = QTime(0, 0).secsTo(highest.isValid() ? highest : QTime(23, 59, 59));
    const int first = lowest.isValid() ? QTime(0, 0).secsTo(lowest) : 0;
    const int wanted = now.isValid() ? QTime(0, 0).secsTo(now) + steps * SECONDS_PER_STEP : first;
    setText(QLocale::c().toString(QTime(0, 0).addSecs(std::max(first, std::min(wanted, last))), STORED_TIME));
}
