#include "ClosureImporter.h"

#include "ClosureFiles.h"
#include "TradeCalendar.h"

using namespace TransferForms;

ClosureImporter::ClosureImporter(const QString& name, ImportReport& report)
    : m_name(name)
    , m_report(report)
    , m_csv(TradeCalendar::headings().toUtf8() + '\n')
{
}

Status ClosureImporter::take(ImportRow& row)
{
    const QString market = row.code(ClosureColumn::Market, CodeWords::calendarMarkets());
    const QDate day = row.neededText(ClosureColumn::Day).isEmpty() ? QDate() : row.date(ClosureColumn::Day);
    QString holiday = row.neededText(ClosureColumn::Holiday);
    const QString status = row.code(ClosureColumn::Status, CodeWords::closureStatuses());
    if (row.isRefused())
        return {};
    holiday.replace(QLatin1Char(','), QStringLiteral("，")).replace(QLatin1Char('\n'), QLatin1Char(' '));
    m_csv += QStringList{ market, day.toString(Qt::ISODate), holiday, status }.join(QLatin1Char(',')).toUtf8() + '\n';
    return {};
}

Status ClosureImporter::finish()
{
    if (m_report.faultCount > 0)
        return {};
    TradeCalendar extended = ClosureFiles::calendar();
    if (const Status status = extended.add(m_csv); !status)
        m_report.refuse({ 0, 0, QString(), status });
    else if (extended.rows() == ClosureFiles::calendar().rows())
        m_report.unchanged = m_report.rows;
    else
        m_report.changed = m_report.rows;
    return {};
}

Status ClosureImporter::commit()
{
    return m_report.changed == 0 ? Status() : ClosureFiles::installText(m_csv, m_name).status();
}
