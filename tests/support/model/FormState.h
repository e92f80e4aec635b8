#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

#include <array>

// The visible state of a form as plain data: the model computes one, a view reads another from the real form.

namespace model {

/// The form's widgets. The boxes come first, then the numbers, the dates and the line edits.
enum Widget {
    FundAccount,
    InstructionType,
    TargetType,
    PlanType,
    TradeSide,
    PriceType,
    EntrustType,
    PriceMode,
    InstructionMode,
    AssignTo,
    ReduceMode,
    TargetTotal,
    DayMax,
    Ratio,
    Range,
    Single,
    Symbol,
    Exchange,
    Price1,
    Price2,
    Remark,
    AlgoButton,
    OkButton,
    CancelButton,
    FundAccountLabel,
    InstructionTypeLabel,
    TargetTypeLabel,
    PlanTypeLabel,
    SymbolLabel,
    SymbolName,
    ExchangeLabel,
    TradeSideLabel,
    PriceTypeLabel,
    EntrustTypeLabel,
    PriceModeLabel,
    Price1Label,
    Price1Unit,
    Price2Label,
    Price2Unit,
    TargetTotalLabel,
    TargetStep,
    TargetUnit,
    DayMaxLabel,
    DayMaxStep,
    DayMaxUnit,
    RatioLabel,
    ModeLabel,
    AssignToLabel,
    PeriodLabel,
    ReduceModeLabel,
    RemarkLabel,
    SymbolPlace,
    TargetPlace,
    DayMaxPlace,
    ModePlace,
    DatePlace,
    ButtonPlace,
    UpperPart,
    LowerPart,
    WidgetCount
};
constexpr int BoxCount = ReduceMode + 1;
constexpr int NumberCount = 3;

/// Object name of a widget.
QString nameOf(Widget widget);
/// The caption of a field.
QString captionOf(Widget widget);

struct WidgetState {
    bool shown = true; ///< if the form itself is visible
    bool enabled = true;
    QString text; ///< of labels, line edits and buttons

    bool operator==(const WidgetState& other) const;
};

struct Item {
    QString text;
    QString code;

    bool operator==(const Item& other) const { return text == other.text && code == other.code; }
};

struct BoxState {
    QVector<Item> items;
    int current = -1;

    QString code() const { return items.value(current).code; }
    QString text() const { return items.value(current).text; }
    bool operator==(const BoxState& other) const { return current == other.current && items == other.items; }
};

struct NumberState {
    double value = 0;
    int decimals = 2;
    QString text;

    bool operator==(const NumberState& other) const;
};

struct DateState {
    QDate start;
    QDate end;
    QDate date;
    QDate earliest;
    QDate latest;
    QList<QDate> excluded;
    bool startIsFree = true;

    bool operator==(const DateState& other) const;
};

struct FormState {
    std::array<WidgetState, WidgetCount> widgets;
    std::array<BoxState, BoxCount> boxes;
    std::array<NumberState, NumberCount> numbers;
    DateState range;
    DateState single;
    QStringList functions1;
    QStringList functions2;
    QStringList names1;
    QStringList names2;
    QString symbol;
};

/// The state of a form as designed: its own texts, nothing filled in, nothing hidden.
FormState designedForm();

/// The differences, one sentence each, with the expected and the actual value.
QStringList differences(const FormState& expected, const FormState& found);

} // namespace model
