#pragma once

#include "DayIssue.h"

#include <QHash>
#include <QSet>
#include <QVector>

#include <vector>

/// The plans of a day and which of them are chosen. There can be very many, so they are prepared on the thread that
/// reads them.
class IssueSheetRows {
public:
    /// What is chosen of one account and side.
    struct Sum {
        QString account;
        bool isBuy = true;
        int plans = 0;
        double yuan = 0;
        /// What the account can spend before its first plan; absent if it is not known.
        std::optional<double> cash = std::nullopt;
    };

    IssueSheetRows() = default;
    /// All that can be issued are chosen.
    explicit IssueSheetRows(const QVector<IssueRow>& rows);

    int size() const { return m_rows.size(); }
    const IssueRow& at(int row) const { return m_rows.at(row); }
    bool isChosen(int row) const { return m_isChosen.at(static_cast<std::size_t>(row)); }
    /// Chooses a plan that can be issued, or not.
    void choose(int row, bool isChosen);
    QStringList chosen() const;
    /// Of what is chosen, by account, purchases first.
    QVector<Sum> sums() const;

private:
    QVector<IssueRow> m_rows;
    std::vector<bool> m_isChosen;
    QVector<Sum> m_sums;  ///< some of nothing
    QVector<int> m_sumOf; ///< by row
};

/// What became of the plans of a day.
class IssueOutcomes {
public:
    IssueOutcomes() = default;
    explicit IssueOutcomes(const IssueResult& result);

    /// False for a plan that was not tried.
    bool contains(const QString& planId) const;
    /// In words.
    QString text(const QString& planId) const;

private:
    QHash<QString, QString> m_issued; ///< instructions, by plan
    QSet<QString> m_alreadyIssued;
    QHash<QString, Status> m_skipped; ///< reasons, by plan
};
