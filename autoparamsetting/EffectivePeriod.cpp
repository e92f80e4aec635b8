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

    const int listedOffset = firstTradingDayOffset(day, tradeDates);
    QList<QDate> excluded;
    if (!error.isEmpty() || tradeDates.isEmpty()) {
        qWarning() << "AutoParamSetting::InitDateEffectivePeriod" << exchange << error << tradeDates.size();
    } else if (listedOffset == 0) {
        // An expired calendar is ignored: its last date would end the range before it begins.
        qWarning() << "AutoParamSetting::InitDateEffectivePeriod no trade date after" << day << tradeDates.last();
    } else {
        last = tradeDates.last();
        excluded = daysWithoutTrade(tomorrow, last, tradeDates);
    }
    ui->date_effectivePeriod_Multi->SetExceptDateList(excluded);
    ui->date_effectivePeriod_Single->SetExceptDateList(excluded);

    const int offset = qMax(1, listedOffset);
    const QDate first = day.addDays(offset);
    ui->date_effectivePeriod_Multi->SetMinDate(first);
    ui->date_effectivePeriod_Multi->SetMaxDate(last);
    ui->date_effectivePeriod_Multi->SetStartEndDate(first, first);
    ui->date_effectivePeriod_Single->SetMinDate(first);
    // Independent of the calendar's end: a reduction has no end date that must be a trading day.
    ui->date_effectivePeriod_Single->SetMaxDate(first.addMonths(PeriodMonths));
    ui->date_effectivePeriod_Single->SetDate(first);
    m_startDayOffset = offset;
}
