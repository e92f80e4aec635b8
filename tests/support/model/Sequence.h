#pragma once

#include "EditorModel.h"
#include "ExploredWorld.h"
#include <functional>
#include <optional>
#include <vector>

// What happens to one editor, first as small numbers that can be drawn and shrunk, then as actions with names.

namespace model {

/// What a step may be. The boxes of the form come first: a choice in one of them.
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

/// One thing that may happen; which it is exactly depends on what the form offers then.
struct Step {
    int kind = 0;
    int first = 0;
    int second = 0;
};

/// The client and its services at the beginning, as small numbers.
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

/// Sets today, too.
World worldOf(const Seeds& seeds);
/// What no look at the world tells, in sentences.
QStringList described(const Seeds& seeds);
/// The world in sentences.
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
    bool fails = false; ///< of an answer that tells a failure
    QList<int> answers;
    std::function<void(World&)> change; ///< of the services' answers
    QString sentence;                   ///< as a person would follow it
};

/// What the step is in the present form; nothing when a trader could not do it.
std::optional<Action> actionOf(const Step& step, const EditorModel& model, const World& world);

/// The host opens a plan.
Action opening(StepKind kind, const QString& planId);
/// The trader presses OK and goes on at every question.
Action acceptance();

/// Does the action in the model; changes of the world are none of its business.
void apply(const Action& action, EditorModel& model);

} // namespace model
