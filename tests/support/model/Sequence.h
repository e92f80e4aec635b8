#pragma once

#include "EditorModel.h"
#include "ExploredWorld.h"

#include <functional>
#include <optional>
#include <vector>

// The events of one editor: first as small numbers, which can be generated and shrunk, then as named actions.

namespace model {

/// The kinds of steps. First the boxes of the form: a choice in one of them.
enum StepKind {
    ChooseInBox = 0,
    ChooseSecurity = BoxCount,
    TypePrice1,
    TypePrice2,
    TypeRemark,
    EnterTargetTotal,
    EnterDayMax,
    EnterRatio,
    EmptyNumber,
    PickRange,
    PickDate,
    PressAlgorithms,
    PressOk,
    PressCancel,
    AveragesArrive,
    StrategiesArrive,
    ChangeRule,
    ChangeAuthority,
    ChangeUsers,
    ChangeAlgorithms,
    ChangeHoldings,
    ChangeSpent,
    ChangeSignatures,
    ChangeCalendar,
    ChangeServiceAnswer,
    ChangePanelAnswer,
    ChangeBondConversion,
    NextDay,
    EditPlan,
    CopyPlan,
    ResetEnable,
    HideOrShow,
    StepKindCount
};

/// A possible event; its details depend on what the form offers then.
struct Step {
    int kind = 0;
    int first = 0;
    int second = 0;
};

/// The initial client and services, as small numbers.
struct Seeds {
    std::vector<int> accounts;
    std::vector<int> rules;
    std::vector<int> calendars;
    std::vector<std::vector<int>> plans;
    int today = 0;
    int users = 0;
    int algorithms = 0;
    int holdings = 0;
    int spent = 0;
    int unsignedClients = 0;
};

struct Sequence {
    Seeds seeds;
    std::vector<Step> steps;
};

/// The world of these numbers. Also sets today.
World worldOf(const Seeds& seeds);
/// Sentences about what is not part of the world.
QStringList described(const Seeds& seeds);
/// Sentences about the world.
QStringList described(const World& world);

/// A step that is possible now, with everything that it needs.
struct Action {
    StepKind kind = PressCancel;
    Widget widget = WidgetCount;
    int index = -1;
    QString text;
    QStringList texts;
    double number = 0;
    QDate start;
    QDate end;
    bool fails = false; ///< for an answer that reports a failure
    QList<int> answers;
    std::function<void(World&)> change; ///< for the services' answers
    QString sentence;                   ///< readable description
};

/// The action of a step in the present form; empty if it is impossible there.
std::optional<Action> actionOf(const Step& step, const EditorModel& model, const World& world);

/// The host opens a plan.
Action opening(StepKind kind, const QString& planId);
/// The trader presses OK and accepts every question.
Action acceptance();

/// Performs the action in the model; does not change the world.
void apply(const Action& action, EditorModel& model);

} // namespace model
