#pragma once

#include "DayOrder.h"
#include "Market.h"
#include "PlanStore.h"
#include "TradeCalendar.h"

#include <QSet>

#include <functional>

/// What the issue of a day is based on besides the database. It needs no session, so that it can run on another thread,
/// and shares its data with those of the session, which may be replaced meanwhile.
struct IssueScene {
    const StoredUser user;
    const Market market;
    const TradeCalendar calendar;
    const QDate day;
    /// The time at the markets, which must be open on the day; invalid for a simulation, which needs no open market.
    const QDateTime now;
    /// Why the calendar lacks a file of closures, without which a closed day could be taken for a trade day: nothing is
    /// issued then. Success if it has all of them.
    const Status closures;
};

/// What goes out for one plan on a day.
struct IssueRow {
    StoredPlan plan;
    /// Why nothing goes out; success otherwise.
    Status reason;
    /// Default if nothing goes out.
    DayOrder order;
    /// Decimals of the security's prices.
    int precision = 0;
    /// What the account could spend before the plan, in yuan; absent if it is not known.
    std::optional<double> cash = std::nullopt;
    /// The last trade day before, if it was missed; what would have gone out on it is not issued now. Invalid
    /// otherwise.
    QDate missed = QDate();
};

/// What a user has confirmed to go out for a plan.
struct ConfirmedOrder {
    QString planId;
    int version = 0;
    /// As in the order.
    std::optional<qint64> limit;
    qint64 quantity = 0;
    double yuan = 0;

    static ConfirmedOrder of(const IssueRow& row);
    bool operator==(const ConfirmedOrder& other) const;
};

/// The result of issuing a day, or some of its plans.
struct IssueResult {
    /// Ids of the new instructions.
    QStringList issued;
    /// Plans that already had an instruction of the day.
    QStringList alreadyIssued;

    struct Skipped {
        QString planId;
        Status reason;
    };
    /// Plans of the day's period that got no instruction, and why.
    QVector<Skipped> skipped;
    /// Plans for which something else would have gone out than was confirmed.
    QStringList changed;
    /// Plans that were confirmed and are no longer due, because they were changed, paused, stopped or completed.
    QStringList noLongerDue;
    /// Why it ended before all plans were tried; success if they were, or if it was cancelled.
    Status failure;
    /// Instructions that may be stored all the same, because the failure was that of a COMMIT.
    QStringList unknown;
    /// Whether there are plans behind those of the failure, which were not tried.
    bool hasRest = false;
    bool cancelled = false;
};

/// Creates the instructions of a trade day, one for every plan with the day in its period, and simulates their fills.
///
/// A quantity plan issues whole lots, an amount plan the whole lots that its amount of the day buys, both at most the
/// daily maximum and the rest of the plan. A sale is at most what may be sold, of which earlier plans have taken their
/// part; a purchase is at most what is left of the cash of its account, where it is known. First ends open instructions
/// of earlier days, which give back their unfilled part, if the user may trade with the plan. A plan of which nothing
/// is left is completed, and for any other without an instruction the reason is kept.
///
/// A number of plans is one transaction; issuing a plan again has no effect.
class DayIssue {
public:
    /// Called after some plans, with the number of those that are done. Returning false cancels the rest.
    using Progress = std::function<bool(int done)>;

    DayIssue(Database& database, const IssueScene& scene);

    /// The user's plans of the day.
    Result<DayPlans> plans();
    /// Those among some.
    Result<DayPlans> plans(const QStringList& planIds);
    /// What would go out for plans now. Those that are left out take nothing from holdings and cash: what would go out
    /// for each of them if it alone was not left out. Stores nothing. Without the rest if it is cancelled.
    Result<QVector<IssueRow>> preview(
        const QStringList& planIds, const Progress& progress, const QSet<QString>& leftOut = {});
    /// Issues those of the plans that are still due.
    IssueResult issue(const QStringList& planIds, const Progress& progress);
    /// Issues exactly what was confirmed. Nothing goes out for a plan that has changed.
    IssueResult issue(const QVector<ConfirmedOrder>& orders, const Progress& progress);

private:
    using Confirmed = QHash<QString, ConfirmedOrder>;
    IssueResult issue(const QStringList& planIds, const Confirmed* confirmed, const Progress& progress);

    Database& m_database;
    const IssueScene m_scene;
};
