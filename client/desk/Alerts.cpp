#include "Alerts.h"

#include "AlertCalendar.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "PlainText.h"
#include "PlanFormatter.h"
#include "TextTable.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

namespace {

constexpr QSize UsualSize(820, 460);
constexpr int KindCount = 4;

QStringList cellsOf(const Alert& alert)
{
    const QStringList kinds{ Alerts::tr("未下达"), Alerts::tr("漏下达"), Alerts::tr("即将结束"),
        Alerts::tr("他人修改") };
    const QString text = [&alert] {
        switch (alert.kind) {
        case Alert::Kind::Failed:
            return Alerts::tr("%1：%2").arg(alert.subject, alert.text);
        case Alert::Kind::Missed:
            return Alerts::tr("%1没有下达，也没有原因").arg(alert.subject);
        case Alert::Kind::Ends:
            return alert.subject == clientToday().toString(Qt::ISODate)
                ? Alerts::tr("今天结束")
                : Alerts::tr("下一交易日%1结束").arg(alert.subject);
        case Alert::Kind::Changed:
            return Alerts::tr("%1修改为第%2版").arg(alert.text, alert.subject);
        }
        return QString();
    }();
    const PlanFormatter plan(alert.plan);
    return { kinds.at(static_cast<int>(alert.kind)), alert.plan.id, plan.account(), plan.security(), plan.side(),
        text };
}

/// The same for an alert that is read again.
QString keyOf(const Alert& alert)
{
    return QStringLiteral("%1 %2 %3").arg(QString::number(static_cast<int>(alert.kind)), alert.plan.id, alert.subject);
}

} // namespace

Alerts::Alerts(QWidget* parent)
    : QDialog(parent)
    , m_table(new TextTable(QStringLiteral("alertRows"), this))
    , m_text(PlainText::newLabel(QString(), this))
    , m_go(new QPushButton(tr("查看计划"), this))
    , m_done(new QPushButton(tr("已处理"), this))
    , m_work(ClientSession::instance().database())
{
    setObjectName(QStringLiteral("alerts"));
    setWindowTitle(tr("提醒"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    resize(UsualSize);
    build();
    const auto goTo = [this](int row) { Q_EMIT planWanted(m_alerts.at(row).plan.id); };
    connect(m_table, &TextTable::chosen, this, goTo);
    connect(m_go, &QPushButton::clicked, this, [this, goTo] { goTo(m_table->currentIndex().row()); });
    connect(m_done, &QPushButton::clicked, this, &Alerts::setDone);
}

void Alerts::build()
{
    m_table->setAccessibleName(tr("尚未处理的提醒"));
    m_text->setObjectName(QStringLiteral("alertText"));
    m_text->setWordWrap(true);
    m_go->setObjectName(QStringLiteral("btn_goToPlan"));
    m_done->setObjectName(QStringLiteral("btn_done"));
    m_done->setShortcut(QKeySequence(Qt::Key_Delete));
    auto* const close = new QPushButton(tr("关闭"), this);
    close->setObjectName(QStringLiteral("btn_close"));
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(m_text, 1);
    for (QPushButton* const button : { m_go, m_done, close }) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(m_table, 1);
    rows->addLayout(buttons);
    m_go->setEnabled(false);
    m_done->setEnabled(false);
}

void Alerts::open()
{
    QDialog::show();
    raise();
    activateWindow();
    m_table->setFocus();
    refresh();
}

void Alerts::refresh()
{
    m_isOutdated = m_work.isRunning();
    if (m_isOutdated)
        return;
    const ClientSession& session = ClientSession::instance();
    auto alerts = std::make_shared<Result<QVector<Alert>>>(QVector<Alert>());
    const auto work = [alerts, user = session.user(), days = alertDays(session.calendar(), clientToday())](
                          Database& database, const Status& opened, const LongWork::Progress&) {
        *alerts = opened ? AlertStore(database, user).alerts(days, MostOfKind) : opened;
    };
    m_work.start(work, [this, alerts] {
        if (std::exchange(m_isOutdated, false))
            refresh();
        else
            show(*alerts);
    });
}

void Alerts::show(const Result<QVector<Alert>>& alerts)
{
    if (!alerts) {
        m_text->setText(errorText(alerts.status()));
        return;
    }
    m_alerts = *alerts;
    QVector<int> counts(KindCount);
    QVector<QStringList> rows;
    QStringList keys;
    for (const Alert& alert : qAsConst(m_alerts)) {
        ++counts[static_cast<int>(alert.kind)];
        rows << cellsOf(alert);
        keys << keyOf(alert);
    }
    m_hasMore = std::any_of(counts.cbegin(), counts.cend(), [](int count) { return count >= MostOfKind; });
    m_table->setRows({ tr("提醒"), tr("计划编号"), tr("账户"), tr("证券"), tr("方向"), tr("内容") }, rows, keys);
    m_go->setEnabled(!rows.isEmpty());
    m_done->setEnabled(!rows.isEmpty());
    m_text->setText(rows.isEmpty() ? tr("没有提醒。") : tr("%1条提醒").arg(countText()));
    Q_EMIT countChanged();
}

QString Alerts::countText() const
{
    if (m_alerts.isEmpty())
        return QString();
    return QString::number(m_alerts.size()) + (m_hasMore ? QStringLiteral("+") : QString());
}

QVector<Alert> Alerts::selected() const
{
    QVector<Alert> alerts;
    const QVector<int> rows = m_table->selectedRows();
    for (const int row : rows)
        alerts << m_alerts.at(row);
    return alerts;
}

void Alerts::setDone()
{
    ClientSession& session = ClientSession::instance();
    const Status status = AlertStore(session.database(), session.user()).setDone(selected());
    if (status)
        refresh();
    else
        m_text->setText(errorText(status));
}
