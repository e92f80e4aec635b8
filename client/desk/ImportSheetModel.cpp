#include "ImportSheetModel.h"

#include "ErrorText.h"
#include "PlainText.h"

#include <algorithm>

namespace {

ImportSheetRow::Kind kindOf(ImportReport::Outcome outcome)
{
    switch (outcome) {
    case ImportReport::Outcome::Added:
        return ImportSheetRow::Added;
    case ImportReport::Outcome::Changed:
        return ImportSheetRow::Changed;
    case ImportReport::Outcome::Kept:
        return ImportSheetRow::Kept;
    case ImportReport::Outcome::Unchanged:
        break;
    }
    return ImportSheetRow::Unchanged;
}

QString kindText(ImportSheetRow::Kind kind)
{
    switch (kind) {
    case ImportSheetRow::Refused:
        return ImportSheetModel::tr("错误");
    case ImportSheetRow::Removed:
        return ImportSheetModel::tr("删除");
    case ImportSheetRow::Added:
        return ImportSheetModel::tr("新增");
    case ImportSheetRow::Changed:
        return ImportSheetModel::tr("修改");
    case ImportSheetRow::Kept:
        return ImportSheetModel::tr("保留");
    case ImportSheetRow::Unchanged:
        break;
    }
    return ImportSheetModel::tr("不变");
}

QString faultText(const ImportReport::Fault& fault)
{
    const QString reason = errorText(fault.reason);
    return fault.heading.isEmpty() ? reason : ImportSheetModel::tr("%1：%2").arg(fault.heading, reason);
}

void append(const ImportReport& report, QVector<ImportSheetRow>& rows)
{
    for (const ImportReport::Fault& fault : report.faults)
        rows << ImportSheetRow{ ImportSheetRow::Refused, report.file, fault.line, fault.column, faultText(fault) };
    for (const QString& removal : report.removals)
        rows << ImportSheetRow{ ImportSheetRow::Removed, report.file, 0, 0, removal };
    for (const ImportReport::RowResult& result : report.results)
        rows << ImportSheetRow{ kindOf(result.outcome), report.file, result.line, 0, result.text };
}

} // namespace

QVector<ImportSheetRow> importSheetRows(const QVector<ImportReport>& reports, const QVector<Status>& results)
{
    QVector<ImportSheetRow> rows;
    for (int i = 0; i < reports.size(); ++i) {
        // The faults say why a file is refused.
        if (!results.at(i) && results.at(i).error() != Error::FileNotImported)
            rows << ImportSheetRow{ ImportSheetRow::Refused, reports.at(i).file, 0, 0, errorText(results.at(i)) };
        append(reports.at(i), rows);
    }
    const auto isBad = [](const ImportSheetRow& row) { return row.kind <= ImportSheetRow::Removed; };
    std::stable_sort(rows.begin(), rows.end(), [&](const ImportSheetRow& a, const ImportSheetRow& b) {
        return isBad(a) && isBad(b) ? a.kind < b.kind : isBad(a) > isBad(b);
    });
    return rows;
}

void ImportSheetModel::setRows(const QVector<ImportSheetRow>& rows)
{
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

int ImportSheetModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int ImportSheetModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ImportSheetModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const ImportSheetRow& row = m_rows.at(index.row());
    if (role == Qt::DisplayRole)
        return textOf(row, index.column());
    if (role == Qt::ToolTipRole && index.column() == Text)
        return PlainText::toolTip(row.text);
    if (role == Qt::TextAlignmentRole && (index.column() == Line || index.column() == Place))
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    return QVariant();
}

QVariant ImportSheetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const QStringList titles{ tr("结果"), tr("文件"), tr("行"), tr("列"), tr("说明") };
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? titles.value(section) : QVariant();
}

QString ImportSheetModel::textOf(const ImportSheetRow& row, int column)
{
    const auto number = [](qint64 value) { return value > 0 ? QString::number(value) : QString(); };
    switch (column) {
    case Kind:
        return kindText(row.kind);
    case File:
        return row.file;
    case Line:
        return number(row.line);
    case Place:
        return number(row.column);
    case Text:
        return row.text;
    }
    return QString();
}
