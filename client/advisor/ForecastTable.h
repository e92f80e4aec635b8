#pragma once

#include "ForecastTexts.h"
#include "RowView.h"

/// The days of a forecast. Its columns are as wide as what they show; where there is less room, numbers become shorter
/// and the amounts are left out. A tool tip has them in full.
class ForecastTable : public RowView {
    Q_OBJECT

public:
    explicit ForecastTable(QWidget* parent);

    void setForecast(const PlanForecast& forecast);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    using Widths = QVector<int>;

    void fill();
    /// Chooses how the numbers are shown, and sets the widths of the columns.
    void arrange();
    Widths headingWidths() const;
    Widths widthsFor(ForecastTexts::Detail detail, const Widths& headings) const;

    QVector<ForecastDay> m_days;
    ForecastTexts::Extremes m_extremes;
    ForecastTexts::Detail m_detail = ForecastTexts::Detail::Full;
};
