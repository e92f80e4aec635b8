#include "PlanListQuery.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

SqlQuery joined(const QVector<SqlQuery>& queries, const QString& separator)
{
    SqlQuery all;
    QStringList texts;
    for (const SqlQuery& query : queries) {
        texts << query.text;
        all.values += query.values;
    }
    all.text = texts.join(separator);
    return all;
}

SqlQuery conjunction(const QVector<SqlQuery>& conditions)
{
    return joined(conditions, QStringLiteral(" AND "));
}

SqlQuery united(const QVector<SqlQuery>& queries)
{
    return joined(queries, QStringLiteral(" UNION "));
}

/// A query as a table of its own, which it needs for its LIMIT.
SqlQuery limited(const SqlQuery& query, const QString& sorting, int limit)
{
    return { QStringLiteral("SELECT number, place FROM (%1%2 LIMIT ?) AS limited").arg(query.text, sorting),
        query.values + QVariantList{ limit } };
}

QString json(const QStringList& texts)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray::fromStringList(texts)).toJson(QJsonDocument::Compact));
}

const QString Incomplete = QStringLiteral("completed_day IS NULL");
const QString OfRefused = QStringLiteral(" IN (SELECT plan FROM refused_days)");
// The last day with an instruction or a refusal is a refusal.
const QString Failed = QStringLiteral("EXISTS (SELECT 1 FROM refused_days AS r WHERE r.plan = number AND r.day >"
                                      " coalesce((SELECT max(day) FROM instructions AS i WHERE i.plan = number), ''))");

// With more accounts than this, few plans of each are enough to see how far a slice reaches at most.
constexpr int FewOf = 8;

const SqlQuery Current{ QStringLiteral("state <> 'archived'"), {} };
const SqlQuery Everything{ QStringLiteral("TRUE"), {} };

} // namespace

PlanListQuery::PlanListQuery(const PlanScope& scope, const PlanList& list, const SqlDialect& dialect)
    : m_scope(scope)
    , m_list(list)
    , m_dialect(dialect)
{
}

SqlQuery PlanListQuery::slice(const PlanSlice& slice) const
{
    const SqlQuery found = m_list.isSmall ? collected(PlanList::Small + 1) : inOrder(slice);
    const SqlQuery inside = m_list.isSmall ? within(slice, QStringLiteral("place")) : Everything;
    return { QStringLiteral("SELECT number FROM (%1) AS listed WHERE %2 ORDER BY place %3, number %3 LIMIT ? OFFSET ?")
                 .arg(found.text, inside.text, direction(slice)),
        found.values + inside.values + QVariantList{ slice.limit, slice.offset } };
}

std::optional<SqlQuery> PlanListQuery::bound(const PlanSlice& slice) const
{
    if (!m_dialect.isLocal || m_list.isSmall || slice.until || m_scope.isEvery())
        return std::nullopt;
    const int most = slice.offset + slice.limit;
    const SqlQuery few = ofAccountsInOrder(slice, most / FewOf + 1);
    return SqlQuery{ QStringLiteral("SELECT number, place FROM (%1) AS few ORDER BY place %2, number %2"
                                    " LIMIT 1 OFFSET ?")
                         .arg(few.text, direction(slice)),
        few.values + QVariantList{ most - 1 } };
}

QString PlanListQuery::sorting(const PlanSlice& slice) const
{
    return QStringLiteral("%1 %2, number %2").arg(column(), direction(slice));
}

SqlQuery PlanListQuery::countOf(const PlanSlice& slice) const
{
    const SqlQuery numbers = this->slice(slice);
    return { QStringLiteral("SELECT count(*) FROM (%1) AS counted").arg(numbers.text), numbers.values };
}

SqlQuery PlanListQuery::count(int most) const
{
    const SqlQuery found = collected(most);
    return { QStringLiteral("SELECT count(*) FROM (%1) AS counted").arg(found.text), found.values };
}

SqlQuery PlanListQuery::landmarks(int step) const
{
    const SqlQuery all = members();
    return { QStringLiteral("SELECT number, place, position FROM (SELECT number, place,"
                            " row_number() OVER (ORDER BY place %1, number %1) - 1 AS position FROM (%2) AS members)"
                            " AS numbered WHERE position % ? = 0 ORDER BY position")
                 .arg(direction({}), all.text),
        all.values + QVariantList{ step } };
}

QString PlanListQuery::column() const
{
    switch (m_list.order) {
    case PlanOrder::Number:
        break;
    case PlanOrder::Security:
        return QStringLiteral("symbol");
    case PlanOrder::End:
        return QStringLiteral("end_date");
    }
    return QStringLiteral("number");
}

/// A column that is looked up in an index, or not.
QString PlanListQuery::textColumn(const char* name, bool usesIndex) const
{
    const QString column = QString::fromLatin1(name);
    return usesIndex ? column : m_dialect.notLookedUp.arg(column);
}

QString PlanListQuery::direction(const PlanSlice& slice) const
{
    return m_list.isDescending == slice.isBackward ? QStringLiteral("ASC") : QStringLiteral("DESC");
}

/// `place`: the column, or expression, of the values by which the list is sorted.
SqlQuery PlanListQuery::within(const PlanSlice& slice, const QString& place) const
{
    const bool isAscending = m_list.isDescending == slice.isBackward;
    QVector<SqlQuery> bounds;
    const auto add = [&](const PlanPlace& bound, const char* comparison) {
        if (m_list.order == PlanOrder::Number)
            bounds << SqlQuery{ QStringLiteral("number %1 ?").arg(QLatin1String(comparison)), { bound.number } };
        else
            bounds << SqlQuery{ QStringLiteral("(%1, number) %2 (?, ?)").arg(place, QLatin1String(comparison)),
                { bound.value, bound.number } };
    };
    if (slice.from && slice.isFromIncluded)
        add(*slice.from, isAscending ? ">=" : "<=");
    else if (slice.from)
        add(*slice.from, isAscending ? ">" : "<");
    if (slice.until && slice.isUntilIncluded)
        add(*slice.until, isAscending ? "<=" : ">=");
    else if (slice.until)
        add(*slice.until, isAscending ? "<" : ">");
    return bounds.isEmpty() ? Everything : conjunction(bounds);
}

/// That a plan is in the list, and in a slice of it.
SqlQuery PlanListQuery::listed(const PlanSlice& slice) const
{
    const bool isOfNumbers = m_list.search && m_list.search->isOfNumbers();
    return m_list.order == PlanOrder::Number && isOfNumbers ? conjunction({ numbersWithin(slice), filter(false) })
                                                            : conjunction({ within(slice, column()), condition() });
}

// SQLite looks up one bound at each end: with two it would read all plans between them.
SqlQuery PlanListQuery::numbersWithin(const PlanSlice& slice) const
{
    const bool isAscending = m_list.isDescending == slice.isBackward;
    qint64 first = m_list.search->firstNumber;
    qint64 last = m_list.search->lastNumber;
    const auto narrow = [&](const std::optional<PlanPlace>& bound, bool isIncluded, bool isFirst) {
        if (bound && isFirst)
            first = qMax(first, bound->number + (isIncluded ? 0 : 1));
        else if (bound)
            last = qMin(last, bound->number - (isIncluded ? 0 : 1));
    };
    narrow(slice.from, slice.isFromIncluded, isAscending);
    narrow(slice.until, slice.isUntilIncluded, !isAscending);
    return { QStringLiteral("number BETWEEN ? AND ?"), { first, last } };
}

SqlQuery PlanListQuery::filter(bool usesIndex) const
{
    const QString today = m_list.today.toString(Qt::ISODate);
    // The indexes' condition has to be a part of the statement.
    const SqlQuery active{ QStringLiteral("state = 'active' AND ") + Current.text, {} };
    const SqlQuery unended{ textColumn("end_date", usesIndex) + QStringLiteral(" >= ?"), { today } };
    const SqlQuery begun{ QStringLiteral("begin_date <= ?"), { today } };
    switch (m_list.filter) {
    case PlanFilter::All:
        break;
    case PlanFilter::Current:
    case PlanFilter::Own:
        return Current;
    case PlanFilter::Archived:
        return { QStringLiteral("state = 'archived'"), {} };
    case PlanFilter::Today:
        return conjunction(
            { unended, begun, active, { QStringLiteral("(completed_day IS NULL OR completed_day = ?)"), { today } } });
    case PlanFilter::Running:
        return conjunction({ unended, begun, active, { Incomplete, {} }, { QStringLiteral("NOT ") + Failed, {} } });
    case PlanFilter::Failed:
        return conjunction({ unended, active, { Incomplete, {} },
            { (usesIndex ? QStringLiteral("number") : QStringLiteral("(number + 0)")) + OfRefused, {} },
            { Failed, {} } });
    }
    return Everything;
}

SqlQuery PlanListQuery::ofOwnAccounts(bool usesIndex) const
{
    if (m_list.filter != PlanFilter::Own)
        return Everything;
    return { textColumn("creator", usesIndex) + QStringLiteral(" = ?"), { m_scope.userId() } };
}

/// The alternatives of the search.
QVector<SqlQuery> PlanListQuery::matches(bool usesIndex) const
{
    const PlanSearch& search = *m_list.search;
    QVector<SqlQuery> found;
    if (search.lastNumber > 0)
        found << SqlQuery{
            QStringLiteral("%1 BETWEEN ? AND ?").arg(QLatin1String(usesIndex ? "number" : "(number + 0)")),
            { search.firstNumber, search.lastNumber }
        };
    const QString symbol = textColumn("symbol", usesIndex);
    if (!search.symbolStart.isEmpty())
        found << SqlQuery{ QStringLiteral("(%1 >= ? AND %1 < ?)").arg(symbol),
            { search.symbolStart, search.symbolStart + QStringLiteral("~") } };
    const auto addList = [&](const QString& listed, const QStringList& texts) {
        if (!texts.isEmpty())
            found << SqlQuery{ listed + QStringLiteral(" IN ") + m_dialect.listedTexts, { json(texts) } };
    };
    addList(symbol, search.symbols);
    addList(textColumn("trading_account", usesIndex), search.tradingAccounts);
    return found.isEmpty() ? QVector<SqlQuery>{ { QStringLiteral("FALSE"), {} } } : found;
}

/// That a plan is in the list, if it is in the scope. Not looked up in an index.
SqlQuery PlanListQuery::condition() const
{
    if (!m_list.search)
        return filter(false);
    // The numbers are a part of the list's order then.
    const QVector<SqlQuery> alternatives = matches(m_list.search->isOfNumbers() && m_list.order == PlanOrder::Number);
    SqlQuery matched = joined(alternatives, QStringLiteral(" OR "));
    matched.text = QStringLiteral("(%1)").arg(matched.text);
    return conjunction({ matched, filter(false) });
}

/// The first plans of each source, as "number" and "place".
SqlQuery PlanListQuery::inOrder(const PlanSlice& slice) const
{
    const int most = slice.offset + slice.limit;
    const QString sorting = QStringLiteral(" ORDER BY ") + this->sorting(slice);
    const auto of = [&](const SqlQuery& source) {
        return limited(numbers(conjunction({ source, listed(slice) })), sorting, most);
    };
    if (m_scope.isEvery())
        return of(Everything);
    return united({ ofAccountsInOrder(slice, most), of(assigned()), of(executed()) });
}

/// At most so many of the first plans of each account.
SqlQuery PlanListQuery::ofAccountsInOrder(const PlanSlice& slice, int most) const
{
    const SqlQuery own = conjunction({ listed(slice), ofOwnAccounts(false) });
    return { m_dialect.plansOfAccounts.arg(column(), own.text, direction(slice)),
        QVariantList{ m_scope.userId() } + own.values + QVariantList{ most } };
}

/// At most so many plans of each source, as "number" and "place". All of them if there are fewer.
SqlQuery PlanListQuery::collected(int most) const
{
    const auto of = [&](const SqlQuery& source, const SqlQuery& found) {
        return limited(numbers(conjunction({ source, found })), QString(), most);
    };
    QVector<SqlQuery> sources;
    const auto add = [&](const SqlQuery& found) {
        if (m_scope.isEvery())
            sources << of(Everything, found);
        else
            sources << limited(ofAccounts(conjunction({ found, ofOwnAccounts(!m_list.search) })), QString(), most)
                    << of(assigned(), found) << of(executed(), found);
    };
    if (m_list.search) {
        for (const SqlQuery& match : matches(true))
            add(conjunction({ match, filter(false) }));
    } else {
        add(filter(true));
    }
    return united(sources);
}

/// All plans of the list, as "number" and "place", each once.
SqlQuery PlanListQuery::members() const
{
    const SqlQuery listed = condition();
    if (m_scope.isEvery())
        return numbers(listed);
    const SqlQuery own = conjunction({ listed, ofOwnAccounts(false) });
    SqlQuery others = conjunction({ m_scope.ofOwnAccount(), ofOwnAccounts(false) });
    others.text = QStringLiteral("NOT (%1)").arg(others.text);
    SqlQuery roles = joined({ assigned(), executed() }, QStringLiteral(" OR "));
    roles.text = QStringLiteral("(%1)").arg(roles.text);
    return joined({ ofAccounts(own), numbers(conjunction({ roles, others, listed })) }, QStringLiteral(" UNION ALL "));
}

SqlQuery PlanListQuery::numbers(const SqlQuery& condition) const
{
    return { QStringLiteral("SELECT number, %1 AS place FROM plans WHERE %2").arg(column(), condition.text),
        condition.values };
}

SqlQuery PlanListQuery::ofAccounts(const SqlQuery& condition) const
{
    return { QStringLiteral("SELECT number, %1 AS place FROM"
                            " (SELECT trading_account AS own FROM user_accounts AS o WHERE o.user = ?) AS u"
                            " CROSS JOIN plans WHERE trading_account = u.own AND %2")
                 .arg(column(), condition.text),
        QVariantList{ m_scope.userId() } + condition.values };
}

SqlQuery PlanListQuery::assigned() const
{
    return { QStringLiteral("assignee = ?"), { m_scope.userName() } };
}

SqlQuery PlanListQuery::executed() const
{
    return { QStringLiteral("executor = ?"), { m_scope.userName() } };
}
