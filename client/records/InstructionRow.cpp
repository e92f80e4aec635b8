#include "InstructionRow.h"

#include "Orlo_Fields.h"
#include "PlanCodes.h"

using namespace PlanCodes;

namespace {

constexpr int FenDecimals = 2;
constexpr int MostDecimals = 6;

/// How the text of a field is stored.
enum class Kind { Text, Whole, Yuan };

struct Column {
    QString name;
    QString field;
    Kind kind;
};

/// The columns of one field each; the price has two.
const QVector<Column>& fieldColumns()
{
    static const QVector<Column> columns{
        { QStringLiteral("ended"), FieldId::EndState, Kind::Whole },
        { QStringLiteral("target_type"), FieldId::TargetType, Kind::Text },
        { QStringLiteral("margin_side"), FieldId::MarginSide, Kind::Text },
        { QStringLiteral("issued_quantity"), FieldId::IssuedQty, Kind::Whole },
        { QStringLiteral("filled_quantity"), FieldId::FilledQty, Kind::Whole },
        { QStringLiteral("issued_fen"), FieldId::IssuedAmount, Kind::Yuan },
        { QStringLiteral("filled_fen"), Orlo_Fields::Security::cumAmount, Kind::Yuan },
    };
    return columns;
}

constexpr int FirstFieldColumn = 4;

/// A decimal number that is not negative: a whole number of units of its last decimal.
struct Decimal {
    qint64 units = 0;
    int decimals = 0;
};

QString textOf(const Decimal& number)
{
    QString text = QString::number(number.units).rightJustified(number.decimals + 1, QLatin1Char('0'));
    if (number.decimals > 0)
        text.insert(text.size() - number.decimals, QLatin1Char('.'));
    return text;
}

/// Absent unless `textOf` returns the same text.
std::optional<Decimal> decimalOf(const QString& text)
{
    const int point = text.indexOf(QLatin1Char('.'));
    const int decimals = point < 0 ? 0 : static_cast<int>(text.size()) - point - 1;
    const Decimal number{ QString(text).remove(QLatin1Char('.')).toLongLong(), decimals };
    const bool isSame = number.units >= 0 && decimals <= MostDecimals && textOf(number) == text;
    return isSame ? std::optional<Decimal>(number) : std::nullopt;
}

Status notNumber(const QString& field, const QString& text)
{
    return { Error::NotNumber, { field, text.left(32) } };
}

Status assign(InstructionRow::Assignment& to, const Column& column, const QString& text)
{
    if (column.kind == Kind::Text) {
        to.columns << column.name;
        to.values << text;
        return {};
    }
    const auto number = decimalOf(text);
    if (!number || number->decimals != (column.kind == Kind::Yuan ? FenDecimals : 0))
        return notNumber(column.field, text);
    to.columns << column.name;
    to.values << number->units;
    return {};
}

Status assignPrice(InstructionRow::Assignment& to, const QString& text)
{
    const auto price = decimalOf(text);
    if (!price)
        return notNumber(FieldId::Price, text);
    to.columns << QStringLiteral("price_ticks") << QStringLiteral("price_decimals");
    to.values << price->units << price->decimals;
    return {};
}

QString fieldText(Kind kind, const QVariant& value)
{
    return kind == Kind::Yuan ? textOf({ value.toLongLong(), FenDecimals }) : value.toString();
}

} // namespace

Result<InstructionRow::Assignment> InstructionRow::assignment(const Fields& fields)
{
    Assignment assignment;
    Fields others = fields;
    for (const Column& column : fieldColumns()) {
        if (!fields.contains(column.field))
            continue;
        if (Status refused = assign(assignment, column, others.take(column.field).toString()); !refused)
            return refused;
    }
    if (fields.contains(FieldId::Price)) {
        if (Status refused = assignPrice(assignment, others.take(FieldId::Price).toString()); !refused)
            return refused;
    }
    if (!others.isEmpty())
        return { Error::FieldUnknown, { others.firstKey().left(32) } };
    return assignment;
}

QString InstructionRow::columns()
{
    QString names = QStringLiteral("position, day, price_ticks, price_decimals");
    for (const Column& column : fieldColumns())
        names += QStringLiteral(", ") + column.name;
    return names;
}

InstructionRow::Fields InstructionRow::fields(const QSqlQuery& row)
{
    Fields fields{ { FieldId::TradeDate, row.value(1).toString() } };
    if (!row.isNull(2))
        fields.insert(FieldId::Price, textOf({ row.value(2).toLongLong(), row.value(3).toInt() }));
    for (int i = 0; i < fieldColumns().size(); ++i) {
        const Column& column = fieldColumns().at(i);
        if (!row.isNull(FirstFieldColumn + i))
            fields.insert(column.field, fieldText(column.kind, row.value(FirstFieldColumn + i)));
    }
    return fields;
}

int InstructionRow::position(const QSqlQuery& row)
{
    return row.value(0).toInt();
}

QString InstructionRow::id(const QString& planId, int position)
{
    return QStringLiteral("%1-%2").arg(planId).arg(position, 6, 10, QLatin1Char('0'));
}

std::optional<int> InstructionRow::positionOf(const QString& planId, const QString& text)
{
    const int position = text.section(QLatin1Char('-'), -1).toInt();
    return id(planId, position) == text ? std::optional<int>(position) : std::nullopt;
}
