#pragma once

#include "PlanForecast.h"

#include <QColor>
#include <QWidget>

/// A small chart of a plan's days: what goes out as bars, what remains as a line. Days without trading are shaded,
/// unknown and provisional ones hatched. The skin sets the colours.
class ForecastChart : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor groundColor MEMBER m_ground)
    Q_PROPERTY(QColor barColor MEMBER m_bar)
    Q_PROPERTY(QColor lineColor MEMBER m_line)
    Q_PROPERTY(QColor shadeColor MEMBER m_shade)

public:
    explicit ForecastChart(QWidget* parent = nullptr);

    /// `summary`: what the chart shows, for screen readers.
    void setForecast(const PlanForecast& forecast, const QString& summary);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect placeOf(int day) const;
    void paintDays(QPainter& painter) const;
    void paintBars(QPainter& painter) const;
    void paintRest(QPainter& painter) const;

    PlanForecast m_forecast;
    double m_most = 0; ///< what goes out on the fullest day
    QColor m_ground{ Qt::white };
    QColor m_bar{ Qt::darkBlue };
    QColor m_line{ Qt::darkRed };
    QColor m_shade{ Qt::lightGray };
};
