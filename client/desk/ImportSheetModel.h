#pragma once

#include "ImportReport.h"

#include <QAbstractTableModel>

/// What an import does, or would do, a row each.
struct ImportSheetRow {
    enum Kind { Refused, Removed, Added, Changed, Kept, Unchanged };

    Kind kind;
    QString file;
    /// 0 if it is not about a line, or a column.
    qint64 line;
    int column;
    QString text;
};

/// The rows of reports, the refused ones first, otherwise in the order of the files. `results`: of the imports.
QVector<ImportSheetRow> importSheetRows(const QVector<ImportReport>& reports, const QVector<Status>& results);

/// The rows of `ImportSheet`.
class ImportSheetModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Kind, File, Line, Place, Text, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    void setRows(const QVector<ImportSheetRow>& rows);
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    static QString textOf(const ImportSheetRow& row, int column);

    QVector<ImportSheetRow> m_rows;
};
