#include "JsonTable.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <optional>

namespace {

/// Absent for an array or an object.
std::optional<QString> textOf(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Double:
        return TableReader::numberText(value.toDouble());
    case QJsonValue::String:
        return value.toString();
    case QJsonValue::Array:
    case QJsonValue::Object:
        return std::nullopt;
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        break;
    }
    return QString();
}

Status take(const QStringList& texts, qint64 line, const TableReader::Take& takeRow)
{
    std::vector<QByteArray> cells;
    for (const QString& text : texts)
        cells.push_back(text.toUtf8());
    TableRow row;
    row.line = line;
    for (const QByteArray& cell : cells)
        row.cells.emplace_back(cell.constData(), static_cast<size_t>(cell.size()));
    return takeRow(row);
}

QStringList keysOf(const QJsonArray& objects)
{
    QStringList keys;
    for (const QJsonValue& object : objects) {
        const QStringList own = object.toObject().keys();
        for (const QString& key : own) {
            if (!keys.contains(key))
                keys << key;
        }
        if (keys.size() > TableReader::MostCells)
            break;
    }
    return keys;
}

} // namespace

Status JsonTable::read(const QByteArray& json, qint64& line, const TableReader::Take& takeRow)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray())
        return Error::NoJsonTable;
    const QJsonArray objects = document.array();
    const QStringList keys = keysOf(objects);
    if (keys.size() > TableReader::MostCells)
        return { Error::TooManyCells, { QString::number(TableReader::MostCells) } };
    line = 0;
    Status status = take(keys, line, takeRow);
    for (const QJsonValue& value : objects) {
        if (!status)
            return status;
        ++line;
        const QJsonObject object = value.toObject();
        QStringList texts;
        for (const QString& key : keys) {
            const std::optional<QString> text = textOf(object.value(key));
            if (!value.isObject() || !text)
                return Error::NoJsonTable;
            texts << *text;
        }
        status = take(texts, line, takeRow);
    }
    return status;
}
