#pragma once

#include "InstructionStore.h"
#include "PlanList.h"
#include "StoredPlan.h"

#include <QSizeF>
#include <QStringList>

/// A plan with what the table shows of its instructions.
struct ListedPlan {
    StoredPlan plan;
    PlanProgress progress;

    bool operator==(const ListedPlan& other) const;
};

/// The columns of the plan table.
namespace PlanColumns {

enum Column {
    Id,
    Account,
    State,
    Security,
    Side,
    Target,
    Progress,
    PerDay,
    RemainingDays,
    LastResult,
    Price,
    Period,
    Assignee,
    PlanType,
    InstructionType,
    Creation,
    Count
};

/// The name by which the column is stored in the settings.
QString name(int column);
QString title(int column);
/// A text of usual width.
QString sample(int column);
/// Whether its texts are numbers.
bool isNumber(int column);
/// The order of a list that is sorted by the column; absent if there is no such order.
std::optional<PlanOrder> order(int column);

/// The texts of all columns on a day.
QStringList texts(const ListedPlan& listed, const QDate& today);
/// The parts of the target that are issued (width) and filled (height), from 0 to 1.
QSizeF shares(const ListedPlan& listed);

} // namespace PlanColumns
