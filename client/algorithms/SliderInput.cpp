#include "SliderInput.h"

#include "ParameterTypes.h"
#include "ParameterValue.h"
#include "PlainText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>

#include <cmath>

namespace {

constexpr int MaxSteps = 10000;
constexpr int MaxDecimals = 8;
constexpr int PageSteps = 10;
constexpr int TextWidth = 60;

double stepOf(const StrategyControl& control, const StrategyParameter& parameter)
{
    if (!control.increment.isEmpty())
        return control.increment.toDouble();
    const bool isWhole = ParameterTypes::isWhole(parameter.type) || parameter.type == ParameterType::Qty;
    const double range = parameter.maxValue.toDouble() - parameter.minValue.toDouble();
    return isWhole ? 1.0 : range / 100;
}

double stepsOf(const StrategyControl& control, const StrategyParameter& parameter)
{
    const double range = parameter.maxValue.toDouble() - parameter.minValue.toDouble();
    return std::floor(range / stepOf(control, parameter) + 1e-9);
}

} // namespace

bool SliderInput::isPossible(const StrategyControl& control, const StrategyParameter& parameter)
{
    if (control.choosesItems())
        return true;
    if (parameter.minValue.isEmpty() || parameter.maxValue.isEmpty())
        return false;
    const double steps = stepsOf(control, parameter);
    return steps >= 1 && steps <= MaxSteps;
}

SliderInput::SliderInput(const StrategyControl& control, const StrategyParameter& parameter, QWidget* parent)
    : QWidget(parent)
    , m_control(control)
    , m_parameter(parameter)
    , m_slider(new QSlider(Qt::Horizontal, this))
    , m_text(PlainText::newLabel(QString(), this))
{
    const int last = control.choosesItems() ? static_cast<int>(control.items.size()) - 1
                                            : static_cast<int>(stepsOf(control, parameter));
    m_slider->setRange(0, last);
    m_slider->setPageStep(qMax(1, last / PageSteps));
    m_text->setMinimumWidth(TextWidth);
    auto* const line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_slider, 1);
    line->addWidget(m_text);
    setFocusProxy(m_slider);
    connect(m_slider, &QSlider::valueChanged, this, &SliderInput::take);
    // A click on the place where the slider already is gives it its first value.
    connect(m_slider, &QSlider::sliderReleased, this, [this] { take(m_slider->value()); });
    showValue();
}

void SliderInput::setValue(const QString& value)
{
    int position = 0;
    if (m_control.choosesItems()) {
        for (int i = 0; i < m_control.items.size(); ++i)
            position = m_control.items.at(i).id == value ? i : position;
    } else if (ParameterValue::isDecimal(value)) {
        const double distance = value.toDouble() - m_parameter.minValue.toDouble();
        position = static_cast<int>(std::lround(distance / stepOf(m_control, m_parameter)));
    }
    const QSignalBlocker blocker(m_slider);
    m_slider->setValue(position);
    m_value = value;
    showValue();
    Q_EMIT valueChanged();
}

void SliderInput::take(int position)
{
    if (m_control.choosesItems()) {
        m_value = m_control.items.at(position).id;
    } else {
        const double number = m_parameter.minValue.toDouble() + position * stepOf(m_control, m_parameter);
        m_value = ParameterValue::rounded(
            ParameterValue::shiftPoint(QString::number(number, 'f', MaxDecimals), 0), m_parameter.precision);
    }
    showValue();
    Q_EMIT valueChanged();
}

void SliderInput::showValue()
{
    QString text = ParameterValue::shown(m_parameter, m_value);
    for (const EnumeratedValue& item : qAsConst(m_control.items))
        text = item.id == m_value ? item.text : text;
    m_text->setText(text.isEmpty() ? QStringLiteral("—") : text);
    // The slider itself only has a position.
    m_slider->setAccessibleName(QStringList{ m_control.label, m_text->text() }.join(QLatin1Char(' ')).trimmed());
}
