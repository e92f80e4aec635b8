#include "TradeHours.h"

#include "Orlo_Values.h"

#include <QLocale>

namespace {

struct Hours {
    QTime first;
    QTime last;
};

Hours hoursOf(const QString& exchange)
{
    const bool isConnect = exchange == Orlo_Values::Exchange::HkStockCirculation;
    return isConnect ? Hours{ QTime(9, 0), QTime(16, 10) } : Hours{ QTime(9, 15), QTime(15, 0) };
}

} // namespace

Status TradeHours::check(const QString& exchange, const QTime& time)
{
    const Hours hours = hoursOf(exchange);
    if (time >= hours.first && time < hours.last)
        return {};
    const QString format = QStringLiteral("HH:mm");
    const QLocale digits = QLocale::c();
    return { Error::OutsideTradeHours, { digits.toString(hours.first, format), digits.toString(hours.last, format) } };
}
