#pragma once

#include "DayIssue.h"

#include <QHash>
#include <QSet>
#include <QVector>

#include <vector>

/// What became of the plans of a day.
class IssueOutcomes {
public:
    void add(const IssueResult& result);
    /// Forgets that a plan had changed.
    void confirmAgain(const QString& planId) { m_changed.remove(planId); }

    /// False for a plan that was not tried.
    bool contains(const QString& planId) const;
    /// True for one that cannot be issued in this sheet any more.
    bool isFinal(const QString& planId) const;
    /// Whether it was issued before it was to be issued here.
    bool wasIssuedBefore(const QString& planId) const { return m_alreadyIssued.contains(planId); }
    /// In words.
    QString text(const QString& planId) const;

private:
    QHash<QString, QString> m_issued; ///< instructions, by plan
    QSet<QString> m_alreadyIssued;
    QHash<QString, Status> m_skipped; ///< reasons, by plan
    QSet<QString> m_changed;
    QSet<QString> m_noLongerDue;
};

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
    const IssueOutcomes& outcomes() const { return m_outcomes; }
    bool isIssuable(int row) const;
    bool isChosen(int row) const { return isWanted(row) && isIssuable(row); }
    /// Whether all that can be issued are chosen, and there are some.
    bool areAllChosen() const;
    /// Chooses a plan or not. What would go out for others of its account may change: see `outdated`.
    void choose(int row, bool isChosen);
    QVector<ConfirmedOrder> chosen() const;
    /// Of what is chosen, by account, purchases first.
    QVector<Sum> sums() const;

    /// The plans for which something else may go out than is shown; empty if there are none.
    QStringList outdated() const;
    bool isOutdated() const { return !m_outdated.isEmpty(); }
    /// The plans that are not chosen.
    QSet<QString> leftOut() const;
    /// Shows what would go out for the outdated plans. `issued`: those that have been issued meanwhile.
    void update(const QVector<IssueRow>& rows, const QStringList& issued);
    /// Adds what became of some plans. None is chosen any more, and all others are outdated.
    void add(const IssueResult& result);

private:
    bool isWanted(int row) const { return m_isWanted.at(static_cast<std::size_t>(row)); }
    bool isOpen(int row) const { return m_isOpen.at(static_cast<std::size_t>(row)); }
    void count();
    void count(int row, int sign);

    QVector<IssueRow> m_rows;
    IssueOutcomes m_outcomes;
    std::vector<bool> m_isWanted; ///< also where nothing can be issued at present
    std::vector<bool> m_isOpen;   ///< can be issued in this sheet, as far as the outcomes say
    QSet<QString> m_outdated;     ///< accounts
    int m_issuable = 0;
    QVector<Sum> m_sums;  ///< some of nothing
    QVector<int> m_sumOf; ///< by row
};
