#include "ForecastTable.h"

#include <QHeaderView>
#include <QStyle>

#include <numeric>

using ForecastTexts::Detail;

namespace {

/// From the one that shows most.
constexpr Detail Details[] = { Detail::Full, Detail::WholeYuan, Detail::ShortYuan, Detail::NoYuan, Detail::Short };

int sum(const QVector<int>& widths)
{
    return std::accumulate(widths.cbegin(), widths.cend(), 0);
}

} // namespace

ForecastTable::ForecastTable(QWidget* parent)
    : RowView(QStringLiteral("forecastDays"), ForecastTexts::columns(), ShowsHeadings, parent)
{
}

void ForecastTable::setForecast(const PlanForecast& forecast)
{
    if (forecast.days == m_days)
        return;
    m_days = forecast.days;
    const ForecastTexts::Extremes extremes = ForecastTexts::extremes(m_days);
    const bool isWider = !(extremes == m_extremes);
    m_extremes = extremes;
    if (isWider)
        arrange();
    fill();
}

void ForecastTable::fill()
{
    setRows(m_days.size(),
        [days = m_days, detail = m_detail](int day) { return ForecastTexts::row(days.at(day), detail); });
}

void ForecastTable::resizeEvent(QResizeEvent* event)
{
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): the columns have widths of their own
    QTreeView::resizeEvent(event);
    const Detail former = m_detail;
    arrange();
    if (m_detail != former)
        fill();
}

ForecastTable::Widths ForecastTable::headingWidths() const
{
    const auto textWidth = [this](int i) {
        return header()->fontMetrics().horizontalAdvance(model()->headerData(i, Qt::Horizontal).toString());
    };
    // A hidden section has no size hint; the first one is never hidden.
    const int margin = header()->sectionSizeHint(0) - textWidth(0);
    Widths widths;
    for (int i = 0; i < header()->count(); ++i)
        widths << textWidth(i) + margin;
    return widths;
}

ForecastTable::Widths ForecastTable::widthsFor(Detail detail, const Widths& headings) const
{
    // As the delegate does, with one pixel to spare.
    const int margin = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1) + 1;
    const QStringList texts = ForecastTexts::widest(m_extremes, detail);
    Widths widths;
    for (int i = 0; i < texts.size(); ++i) {
        const int width = qMax(headings.at(i), fontMetrics().horizontalAdvance(texts.at(i)) + margin);
        widths << (texts.at(i).isNull() ? 0 : width);
    }
    return widths;
}

void ForecastTable::arrange()
{
    const int room = viewport()->width();
    const Widths headings = headingWidths();
    Widths widths;
    for (const Detail detail : Details) {
        m_detail = detail;
        widths = widthsFor(detail, headings);
        if (sum(widths) <= room)
            break;
    }
    const auto shown = static_cast<int>(widths.size() - widths.count(0));
    int more = qMax(0, room - sum(widths));
    for (int i = 0, left = shown; i < widths.size(); ++i) {
        setColumnHidden(i, widths.at(i) == 0);
        if (widths.at(i) == 0)
            continue;
        const int share = more / left--;
        setColumnWidth(i, widths.at(i) + share);
        more -= share;
    }
}
