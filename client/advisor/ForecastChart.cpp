#include "ForecastChart.h"

#include <QPainter>
#include <QPolygonF>

namespace {

constexpr int UsualHeight = 56;
constexpr int GapPart = 5; // of a column, between the bars

bool isUncertain(const ForecastDay& day)
{
    return day.kind == TradeCalendar::Day::Unknown || day.isProvisional;
}

} // namespace

ForecastChart::ForecastChart(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("forecastChart"));
    setMinimumHeight(UsualHeight);
}

void ForecastChart::setForecast(const PlanForecast& forecast, const QString& summary)
{
    setAccessibleDescription(summary);
    if (forecast == m_forecast)
        return;
    m_forecast = forecast;
    m_most = 0;
    for (const ForecastDay& day : m_forecast.days)
        m_most = qMax(m_most, static_cast<double>(day.quantity));
    update();
}

QSize ForecastChart::sizeHint() const
{
    return { QWidget::sizeHint().width(), UsualHeight };
}

void ForecastChart::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event);
    QPainter painter(this);
    painter.fillRect(rect(), m_ground);
    if (m_forecast.days.isEmpty())
        return;
    painter.setPen(Qt::NoPen);
    paintDays(painter);
    if (m_most > 0)
        paintBars(painter);
    paintRest(painter);
}

// Whole pixels, which are painted many times faster. A column has at least one.
QRect ForecastChart::placeOf(int day) const
{
    const auto days = static_cast<int>(m_forecast.days.size());
    const int left = day * width() / days;
    const int right = (day + 1) * width() / days;
    return { left, 0, qMax(1, right - left), height() };
}

void ForecastChart::paintDays(QPainter& painter) const
{
    QVector<QRect> closed;
    QVector<QRect> uncertain;
    for (int i = 0; i < m_forecast.days.size(); ++i) {
        const ForecastDay& day = m_forecast.days.at(i);
        if (day.kind == TradeCalendar::Day::Closed)
            closed << placeOf(i);
        else if (isUncertain(day))
            uncertain << placeOf(i);
    }
    painter.setBrush(m_shade);
    painter.drawRects(closed);
    painter.setBrush(QBrush(m_shade, Qt::BDiagPattern));
    painter.drawRects(uncertain);
}

void ForecastChart::paintBars(QPainter& painter) const
{
    QVector<QRect> bars;
    for (int i = 0; i < m_forecast.days.size(); ++i) {
        const QRect place = placeOf(i);
        const int gap = place.width() / GapPart;
        const double part = static_cast<double>(m_forecast.days.at(i).quantity) / m_most;
        if (part > 0)
            bars << place.adjusted(gap / 2, qMin(height() - 1, qRound(height() * (1 - part))), gap / 2 - gap, 0);
    }
    painter.setBrush(m_bar);
    painter.drawRects(bars);
}

void ForecastChart::paintRest(QPainter& painter) const
{
    if (m_forecast.total <= 0)
        return;
    const auto heightOf = [this](double left) { return (height() - 1) * (1 - qMin(1.0, left / m_forecast.total)); };
    QPolygonF rest;
    rest << QPointF(0, heightOf(m_forecast.total - m_forecast.used));
    for (int i = 0; i < m_forecast.days.size(); ++i)
        rest << QPointF(placeOf(i).right() + 1, heightOf(m_forecast.days.at(i).left));
    painter.setPen(QPen(m_line, 0));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(rest);
}
