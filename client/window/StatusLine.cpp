#include "StatusLine.h"

#include "ErrorText.h"
#include "PlanTable.h"

#include <chrono>

namespace {

constexpr std::chrono::seconds DoneShown(10);

} // namespace

StatusLine::StatusLine(const PlanTable& table, QWidget* parent)
    : OrloElidedLabel(parent)
    , m_table(table)
{
    setObjectName(QStringLiteral("status"));
    m_untilCount.setSingleShot(true);
    connect(&m_untilCount, &QTimer::timeout, this, [this] {
        m_done.clear();
        showCount();
    });
}

void StatusLine::showCount()
{
    QStringList texts{ m_done, m_failure };
    texts.removeAll(QString());
    setText(texts.isEmpty() ? countText() : texts.join(tr("，")));
}

void StatusLine::showRead(const Status& read)
{
    m_failure = read ? QString() : errorText(read);
    showCount();
}

void StatusLine::showRestored()
{
    if (m_done.isEmpty() && m_failure.isEmpty())
        setText(tr("连接已恢复，%1").arg(countText()));
}

void StatusLine::showDone(const QString& text)
{
    m_done = text;
    m_untilCount.start(DoneShown);
    showCount();
}

QString StatusLine::countText() const
{
    const int plans = m_table.planCount();
    const QString count = m_table.isCounting() ? tr("共%1个以上计划").arg(plans) : tr("共%1个计划").arg(plans);
    const int above = m_table.newAbove();
    const QString text = above == 0 ? count : tr("%1，上方有%2个新计划").arg(count, QString::number(above));
    const std::optional<PlanSearch>& search = m_table.list().search;
    if (!search || !search->hasMoreNames)
        return text;
    return tr("%1（名称含有这些字的证券过多，只搜索了前%2只，请输入更多的字）").arg(text).arg(PlanSearch::MostNames);
}
