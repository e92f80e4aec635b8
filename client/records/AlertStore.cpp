#include "AlertStore.h"

#include "PlanStore.h"
#include "StoredTime.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

const QString Running = QStringLiteral("plans.state = 'active' AND completed_day IS NULL");

QString text(const QDate& day)
{
    return day.toString(Qt::ISODate);
}

QString utc(const QDate& day, const QTime& time)
{
    return StoredTime::toText(StoredTime::ofMarket(day, time));
}

QString kindName(Alert::Kind kind)
{
    static const QStringList names{ QStringLiteral("failed"), QStringLiteral("missed"), QStringLiteral("ends"),
        QStringLiteral("changed") };
    return names.at(static_cast<int>(kind));
}

QString json(const QStringList& texts)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray::fromStringList(texts)).toJson(QJsonDocument::Compact));
}

} // namespace

AlertStore::AlertStore(Database& database, const StoredUser& user)
    : m_database(database)
    , m_user(user)
{
}

Result<QVector<Alert>> AlertStore::alerts(const AlertDays& days, int mostOfKind)
{
    QVector<Alert> alerts;
    using Read = Status (AlertStore::*)(const AlertDays&, int, QVector<Alert>&);
    for (const Read readKind :
        { &AlertStore::readFailed, &AlertStore::readMissed, &AlertStore::readEnds, &AlertStore::readChanged }) {
        if (Status status = (this->*readKind)(days, mostOfKind, alerts); !status)
            return status;
    }
    const Status status = readPlans(alerts);
    return status ? Result<QVector<Alert>>(alerts) : status;
}

Status AlertStore::setDone(const QVector<Alert>& alerts)
{
    return m_database.outcome(m_database.transaction([&] {
        Status status;
        for (auto alert = alerts.cbegin(); alert != alerts.cend() && status; ++alert) {
            status = m_database.execute(
                QStringLiteral("INSERT INTO done_alerts (\"user\", plan, kind, subject) VALUES (?, ?, ?, ?)"
                               " ON CONFLICT DO NOTHING"),
                { m_user.id, PlanId::toNumber(alert->plan.id).value_or(0), kindName(alert->kind), alert->subject });
        }
        return status;
    }));
}

SqlQuery AlertStore::undone(Alert::Kind kind, const QString& subject) const
{
    const SqlQuery visible = PlanScope(m_user).condition();
    return { QStringLiteral("%1 AND NOT EXISTS (SELECT 1 FROM done_alerts AS d WHERE d.user = ?"
                            " AND d.plan = plans.number AND d.kind = ? AND d.subject = %2)")
                 .arg(visible.text, subject),
        visible.values + QVariantList{ m_user.id, kindName(kind) } };
}

/// `query`: a SELECT of a plan's number, the subject and the text that ends with conditions.
Status AlertStore::read(Alert::Kind kind, const SqlQuery& query, int most, QVector<Alert>& alerts)
{
    return m_database.read(query.text + QStringLiteral(" ORDER BY plans.number LIMIT ?"),
        query.values + QVariantList{ most }, [&](const QSqlQuery& row) {
            Alert alert{ kind, {}, row.value(1).toString(), row.value(2).toString() };
            alert.plan.id = PlanId::fromNumber(row.value(0).toLongLong());
            alerts << alert;
        });
}

Status AlertStore::readFailed(const AlertDays& days, int most, QVector<Alert>& alerts)
{
    if (days.past.isEmpty())
        return {};
    const SqlQuery open = undone(Alert::Kind::Failed, QStringLiteral("r.day"));
    const QString statement =
        QStringLiteral("SELECT plans.number, r.day, r.reason FROM refused_days AS r JOIN plans ON plans.number = r.plan"
                       " WHERE r.day >= ? AND %1 AND NOT EXISTS (SELECT 1 FROM refused_days AS l"
                       " WHERE l.plan = r.plan AND l.day > r.day) AND NOT EXISTS (SELECT 1 FROM instructions AS i"
                       " WHERE i.plan = r.plan AND i.day >= r.day) AND %2")
            .arg(Running, open.text);
    return read(Alert::Kind::Failed, { statement, QVariantList{ text(days.past.constLast().day) } + open.values }, most,
        alerts);
}

Status AlertStore::readMissed(const AlertDays& days, int most, QVector<Alert>& alerts)
{
    const SqlQuery open = undone(Alert::Kind::Missed, QStringLiteral("?"));
    const QString statement =
        QStringLiteral("SELECT plans.number, CAST(? AS text), '' FROM plans"
                       " JOIN securities AS s ON s.symbol = plans.symbol WHERE begin_date <= ? AND end_date >= ?"
                       " AND %1 AND coalesce(resumed_time, created_time) < ? AND s.exchange IN %2"
                       " AND NOT EXISTS (SELECT 1 FROM instructions AS i WHERE i.plan = plans.number AND i.day = ?)"
                       " AND NOT EXISTS (SELECT 1 FROM refused_days AS r WHERE r.plan = plans.number AND r.day = ?)"
                       " AND %3")
            .arg(Running, m_database.dialect().listedTexts, open.text);
    for (const AlertDays::TradeDay& past : days.past) {
        const QString day = text(past.day);
        const QVariantList values{ day, day, day, utc(past.day, days.latestStart), json(past.exchanges), day, day };
        if (Status status =
                read(Alert::Kind::Missed, { statement, values + open.values + QVariantList{ day } }, most, alerts);
            !status)
            return status;
    }
    return {};
}

Status AlertStore::readEnds(const AlertDays& days, int most, QVector<Alert>& alerts)
{
    const SqlQuery open = undone(Alert::Kind::Ends, QStringLiteral("end_date"));
    const QString statement =
        QStringLiteral("SELECT plans.number, end_date, '' FROM plans JOIN securities AS s ON s.symbol = plans.symbol"
                       " WHERE end_date >= ? AND end_date <= ? AND %1 AND s.exchange IN %2 AND %3")
            .arg(Running, m_database.dialect().listedTexts, open.text);
    for (const AlertDays::TradeDay& next : days.next) {
        const QVariantList values{ text(days.today), text(next.day), json(next.exchanges) };
        if (Status status = read(Alert::Kind::Ends, { statement, values + open.values }, most, alerts); !status)
            return status;
    }
    return {};
}

Status AlertStore::readChanged(const AlertDays& days, int most, QVector<Alert>& alerts)
{
    if (days.past.isEmpty())
        return {};
    const SqlQuery open = undone(Alert::Kind::Changed, QStringLiteral("CAST(h.version AS text)"));
    const QString statement =
        QStringLiteral("SELECT plans.number, h.version, h.user FROM history AS h JOIN plans ON plans.number = h.plan"
                       " WHERE h.event IN ('changed', 'state changed') AND h.time >= ? AND h.user <> ?"
                       " AND h.version = plans.version AND (creator = ? OR assignee = ? OR executor = ?) AND %1")
            .arg(open.text);
    const QVariantList values{ utc(days.past.constLast().day, QTime(0, 0)), m_user.id, m_user.id, m_user.name,
        m_user.name };
    return read(Alert::Kind::Changed, { statement, values + open.values }, most, alerts);
}

Status AlertStore::readPlans(QVector<Alert>& alerts)
{
    QStringList ids;
    for (const Alert& alert : qAsConst(alerts))
        ids << alert.plan.id;
    ids.removeDuplicates();
    const auto plans = PlanStore(m_database, m_user).plansById(ids);
    if (!plans)
        return plans.status();
    for (Alert& alert : alerts)
        alert.plan = plans->value(alert.plan.id, alert.plan);
    return {};
}
