#include "ForecastChart.h"

#include <QPainter>
#include <QPolygonF>

namespace {

constexpr int UsualHeight = 56;
constexpr double Gap = 0.2; // between bars, in widths of a day

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
    m_forecast = forecast;
    m_most = 0;
    for (const ForecastDay& day : m_forecast.days)
        m_most = qMax(m_most, static_cast<double>(day.quantity));
    setAccessibleDescription(summary);
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
    paintDays(painter);
    paintBars(painter);
    paintRest(painter);
}

/// The column of a day.
QRectF ForecastChart::placeOf(int day) const
{
    const double step = double(width()) / static_cast<double>(m_forecast.days.size());
    return { day * step, 0, step, double(height()) };
}

void ForecastChart::paintDays(QPainter& painter) const
{
    const QBrush hatched(m_shade, Qt::BDiagPattern);
    for (int i = 0; i < m_forecast.days.size(); ++i) {
        const ForecastDay& day = m_forecast.days.at(i);
        if (day.kind == TradeCalendar::Day::Closed)
            painter.fillRect(placeOf(i), m_shade);
        else if (isUncertain(day))
            painter.fillRect(placeOf(i), hatched);
    }
}

void ForecastChart::paintBars(QPainter& painter) const
{
    QVector<QRectF> bars;
    for (int i = 0; i < m_forecast.days.size(); ++i) {
        const double part = m_most > 0 ? static_cast<double>(m_forecast.days.at(i).quantity) / m_most : 0;
        const QRectF place = placeOf(i);
        const double side = place.width() * Gap / 2;
        if (part > 0)
            bars << place.adjusted(side, place.height() * (1 - part), -side, 0);
    }
    painter.setPen(Qt::NoPen);
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
        rest << QPointF(placeOf(i).right(), heightOf(m_forecast.days.at(i).left));
    painter.setPen(QPen(m_line, 0));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(rest);
}
