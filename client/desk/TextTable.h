#pragma once

#include <QStandardItemModel>
#include <QTableView>

/// Rows of texts that are selected as a whole, and copied with Ctrl+C for a spreadsheet.
class TextTable : public QTableView {
    Q_OBJECT

public:
    explicit TextTable(const QString& name, QWidget* parent = nullptr);

    /// Replaces the rows. The selection is lost.
    void setRows(const QStringList& titles, const QVector<QStringList>& rows);
    /// Ascending.
    QVector<int> selectedRows() const;

Q_SIGNALS:
    /// Enter was pressed on a row, or it was double-clicked.
    void chosen(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void copy() const;

    QStandardItemModel* m_model;
};
