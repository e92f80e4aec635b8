#pragma once

#include "DayIssue.h"

#include <QAbstractTableModel>
#include <QSet>

/// The plans of a day in the issue sheet: what would go out for each, whether it is chosen, and what became of it.
class IssueSheetModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Plan, Account, Security, Side, Price, Quantity, Amount, ResultColumn, ColumnCount };

    /// What is chosen of one account and side.
    struct Sum {
        QString account;
        bool isBuy = true;
        int plans = 0;
        double yuan = 0;
    };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows plans; all that can be issued are chosen.
    void setRows(const QVector<IssueRow>& rows);
    /// Shows what became of the plans; none is chosen any more.
    void setResult(const IssueResult& result);
    QStringList chosen() const;
    void choose(bool all);
    /// By account, purchases first.
    QVector<Sum> sums() const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    void chosenChanged();

private:
    QString textOf(const IssueRow& row, int column) const;
    QString resultOf(const IssueRow& row) const;
    bool isIssuable(const IssueRow& row) const { return row.reason && !m_results.contains(row.plan.id); }

    QVector<IssueRow> m_rows;
    QSet<QString> m_chosen;
    QHash<QString, QString> m_results; ///< in words, by plan
};
