#include "AutoParamSetting.h"

#include "AutoPlanLogic.h"
#include "Kelvo_Values.h"
#include "OrloBusinessDataInterface.h"
#include "Today.h"
#include "TradingDays.h"
#include "ui_AutoParamSetting.h"
#include <QDebug>

namespace {

constexpr int PeriodMonths = 3;

// Without a listed date after today the service's calendar has run out; tomorrow then stands in for the first trading
// day, and the plan service has the last word on it.
int firstDayOffset(const QDate& day, const QList<QDate>& tradeDates)
{
    const int offset = firstTradingDayOffset(day, tradeDates);
    if (offset > 0)
        return offset;
    qWarning() << "AutoParamSetting::InitDateEffectivePeriod no trade date after" << day << "last" << tradeDates.last();
    return 1;
}

} // namespace

void AutoParamSetting::InitDateEffectivePeriod()
{
    const QString symbol = ui->le_symbol->getSymbol();
    const QString exchange = symbol.isEmpty() ? Kelvo_Values::Exchange::sh
                                              : OrloBusinessDataInterface::GetFirstSecurityExchangeBySymbol(symbol);
    const QDate day = today();
    const QDate tomorrow = day.addDays(1);
    QDate last = tomorrow.addMonths(PeriodMonths);
    QString error;
    const QList<QDate> tradeDates = AutoPlanLogic::instance().GetTradeDateList(exchange, error);
    qDebug() << "AutoParamSetting::InitDateEffectivePeriod" << symbol << exchange << error << tradeDates.size();

    QList<QDate> excluded;
    if (error.isEmpty() && !tradeDates.isEmpty()) {
        last = tradeDates.last();
        excluded = daysWithoutTrade(tomorrow, last, tradeDates);
    } else {
        qWarning() << "AutoParamSetting::InitDateEffectivePeriod" << exchange << error << tradeDates.size();
    }
    ui->date_effectivePeriod_Multi->SetExceptDateList(excluded);
    ui->date_effectivePeriod_Single->SetExceptDateList(excluded);

    const int offset = firstDayOffset(day, tradeDates);
    const QDate first = day.addDays(offset);
    ui->date_effectivePeriod_Multi->SetMinDate(first);
    ui->date_effectivePeriod_Multi->SetMaxDate(last);
    ui->date_effectivePeriod_Multi->SetStartEndDate(first, first);
    ui->date_effectivePeriod_Single->SetMinDate(first);
    ui->date_effectivePeriod_Single->SetMaxDate(first.addMonths(PeriodMonths));
    ui->date_effectivePeriod_Single->SetDate(first);
    m_startDayOffset = offset;
}
