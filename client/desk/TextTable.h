#pragma once

#include <QStandardItemModel>
#include <QTableView>

/// Rows of texts that are selected as a whole, and copied with Ctrl+C for a spreadsheet.
class TextTable : public QTableView {
    Q_OBJECT

public:
    /// So that no text hides the other columns, in pixels.
    static constexpr int WidestColumn = 600;

    explicit TextTable(const QString& name, QWidget* parent = nullptr);

    /// Replaces the rows; the first one becomes the current one.
    void setRows(const QStringList& titles, const QVector<QStringList>& rows);
    /// Replaces the rows, and keeps what is current and selected by keys. The next row that is left becomes the current
    /// one if the former has gone.
    void setRows(const QStringList& titles, const QVector<QStringList>& rows, const QStringList& keys);
    /// Ascending.
    QVector<int> selectedRows() const;

Q_SIGNALS:
    /// Enter was pressed on a row, or it was double-clicked.
    void chosen(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fill(const QStringList& titles, const QVector<QStringList>& rows);
    int rowOfCurrent(const QStringList& keys) const;
    void copy() const;

    QStandardItemModel* m_model;
    QStringList m_keys; ///< of the rows; empty without keys
};
