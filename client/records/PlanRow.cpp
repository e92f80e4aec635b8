#include "PlanRow.h"

#include "AutoPlanField.h"
#include "Kelvo_Fields.h"
#include "Orlo_Fields.h"
#include "StoredTexts.h"
#include "StoredTime.h"

namespace {

constexpr int OwnColumns = 8;

struct Column {
    QString name;
    QString field;
};

const QVector<Column>& fieldColumns()
{
    using namespace AutoPlanField::BaseField;
    static const QVector<Column> columns{
        { QStringLiteral("plan_type"), Orlo_Fields::AutoPlan::templateCode },
        { QStringLiteral("instruction_type"), Orlo_Fields::AutoPlan::subType },
        { QStringLiteral("trading_account"), Kelvo_Fields::UserAccount::tradingAccount },
        { QStringLiteral("symbol"), Kelvo_Fields::Security::symbol },
        { QStringLiteral("side"), orderSide },
        { QStringLiteral("assignee"), expectedUser },
        { QStringLiteral("executor"), executeUser },
        { QStringLiteral("begin_date"), beginDate },
        { QStringLiteral("end_date"), endDate },
    };
    return columns;
}

/// The texts of the states, in the order of `PlanState`.
const QStringList& stateTexts()
{
    static const QStringList texts{ QStringLiteral("active"), QStringLiteral("paused"), QStringLiteral("stopped"),
        QStringLiteral("archived") };
    return texts;
}

} // namespace

const QString& PlanRow::recordColumns()
{
    static const QString columns = [] {
        QString names;
        for (const Column& column : fieldColumns())
            names += column.name + QStringLiteral(", ");
        return names + QStringLiteral("fields");
    }();
    return columns;
}

const QString& PlanRow::recordPlaceholders()
{
    static const QString placeholders = QStringLiteral("?, ").repeated(fieldColumns().size()) + QLatin1Char('?');
    return placeholders;
}

QVariantList PlanRow::recordValues(const QMap<QString, QVariant>& record)
{
    static const QSet<QString> fields = [] {
        QSet<QString> names;
        for (const Column& column : fieldColumns())
            names.insert(column.field);
        return names;
    }();
    QVariantList values;
    for (const Column& column : fieldColumns())
        values << record.value(column.field);
    return values << StoredTexts::toJson(record, fields);
}

QString PlanRow::stateText(PlanState state)
{
    return stateTexts().at(static_cast<int>(state));
}

std::optional<PlanState> PlanRow::state(const QString& text)
{
    const int state = stateTexts().indexOf(text);
    return state < 0 ? std::nullopt : std::optional<PlanState>(static_cast<PlanState>(state));
}

QString PlanRow::columns()
{
    return QStringLiteral("number, version, state, creator, created_time, changed_time, completed_day, resumed_time, ")
        + recordColumns();
}

Result<StoredPlan> PlanRow::plan(const QSqlQuery& row)
{
    const auto text = [&row](int column) { return row.value(column).toString(); };
    const auto state = PlanRow::state(text(2));
    StoredPlan plan{ PlanId::fromNumber(row.value(0).toLongLong()), row.value(1).toInt(),
        state.value_or(PlanState::Archived), text(3), StoredTime::fromText(text(4)), StoredTime::fromText(text(5)),
        QDate::fromString(text(6), Qt::ISODate), {}, {} };
    plan.activeSince = row.isNull(7) ? plan.created : StoredTime::fromText(text(7));
    const auto others = StoredTexts::fromJson(text(OwnColumns + fieldColumns().size()));
    if (!state || !others || !plan.created.isValid() || !plan.changed.isValid() || !plan.activeSince.isValid())
        return { Error::DamagedPlan, { plan.id } };
    plan.record = *others;
    for (int i = 0; i < fieldColumns().size(); ++i) {
        if (!row.isNull(OwnColumns + i))
            plan.record.insert(fieldColumns().at(i).field, text(OwnColumns + i));
    }
    return plan;
}
