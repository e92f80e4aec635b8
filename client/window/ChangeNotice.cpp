#include "ChangeNotice.h"

#include "HistoryTexts.h"

ChangeNotice::ChangeNotice(QWidget* parent)
    : NoticeLine(QStringLiteral("changeNotice"), parent)
{
    setButton(QStringLiteral("btnShowChange"), tr("查看不同之处"));
    connect(this, &NoticeLine::wanted, this, [this] { Q_EMIT differencesWanted(*m_change); });
}

void ChangeNotice::showChange(const PlanConflict& change, int edited)
{
    m_change = change;
    showText(tr("您正在修改第%1版，%2已于%3保存了第%4版。")
                 .arg(QString::number(edited), change.user, HistoryTexts::timeText(change.time),
                     QString::number(change.stored.version)));
}

void ChangeNotice::clear()
{
    m_change.reset();
    hide();
}
