#pragma once

#include "StrategyScope.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVector>

#include <optional>

/// The type of a strategy parameter; named after the types of FIXatdl 1.1. `LocalTime` is this client's own.
enum class ParameterType {
    Int,
    Length,
    NumInGroup,
    SeqNum,
    TagNum,
    Float,
    Qty,
    Price,
    PriceOffset,
    Amount,
    Percentage,
    Char,
    Boolean,
    String,
    MultipleChar,
    Currency,
    Exchange,
    MonthYear,
    UtcTimestamp,
    UtcTimeOnly,
    LocalDate,
    UtcDate,
    Data,
    MultipleString,
    Country,
    Language,
    TzTimeOnly,
    TzTimestamp,
    Tenor,
    LocalTime
};

/// The kind of input of a parameter.
enum class ControlType {
    TextField,
    SingleSpinner,
    DoubleSpinner,
    Slider,
    DropDownList,
    EditableDropDownList,
    SingleSelectList,
    MultiSelectList,
    CheckBox,
    CheckBoxList,
    RadioButton,
    RadioButtonList,
    Clock,
    Label,
    HiddenField
};

/// How parts of a panel or a list follow each other.
enum class LayoutDirection { Vertical, Horizontal };

/// Where the step of a spinner comes from.
enum class StepPolicy { Fixed, LotSize, Tick };

/// The operator of a condition.
enum class EditOperator {
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    Equal,
    NotEqual,
    Exists,
    Missing,
    And,
    Or,
    Xor,
    Not
};

/// How the two sides of a comparison are compared.
enum class ComparedAs {
    Text,
    Number,
    NumberOrText, ///< as numbers if both are, otherwise as texts
    Time,         ///< in one time zone
    Set
};

/// The value of a rule that clears its control, and of a wire value that is not sent.
inline const QString NullValue = QStringLiteral("{NULL}");

/// One value of an enumerated parameter, or one entry of the list that offers it.
struct EnumeratedValue {
    QString id;   ///< links a value to its list entry
    QString text; ///< in a parameter: the value itself; in a control: the text shown
};

/// One parameter of a strategy. Every value is text as it is stored: numbers in decimal notation, percentages as a
/// fraction of 1, times as "HH:mm:ss" in the parameter's time zone, lists separated by spaces.
struct StrategyParameter {
    QString name;
    ParameterType type = ParameterType::String;
    int fixTag = 0; ///< 0 if the file has none
    bool required = false;
    QString minValue;           ///< empty: no lower limit
    QString maxValue;           ///< empty: no upper limit
    bool isNonNegative = false; ///< the type's own lower limit, if the file has none
    QString constValue;         ///< empty: the trader enters a value; otherwise the only value, without a control
    int precision = -1;         ///< largest number of decimals; -1 if the file has none
    int minLength = 0;          ///< smallest length of a text
    int maxLength = 1000;       ///< largest length of a text
    QString trueValue = QStringLiteral("Y");
    QString falseValue = QStringLiteral("N");
    bool multiplyBy100 = false; ///< percentages are sent times 100
    bool invertOnWire = false;  ///< a list is sent as the values that are not in it
    bool mutableOnReplace = true;
    bool revertOnReplace = false;
    bool definedByFix = false;
    QByteArray zone;               ///< time zone of times; empty: the market's
    QList<EnumeratedValue> values; ///< empty unless the parameter is enumerated
    bool acceptsOthers = false;    ///< values that are not enumerated may be typed
    bool holdsSeveral = false;     ///< a text with several values, which its control lets choose
    qint64 line = 0;               ///< line of the file that declares it

    /// The value with an enumeration id; null if there is none.
    const EnumeratedValue* valueOf(const QString& id) const;
};

/// Changes a control while its condition holds.
struct StateRule {
    std::optional<bool> enabled; ///< while the condition does not hold, the opposite
    std::optional<bool> visible; ///< while the condition does not hold, the opposite
    bool hasValue = false;
    QString value; ///< set when the condition begins to hold; `NullValue` clears the control as long as it holds
    int edit = -1; ///< its condition in `StrategyDefinition::edits`
    qint64 line = 0;

    bool clears() const { return hasValue && value == NullValue; }
};

/// One control. The value of a control is text as in the file's `initValue`: an enumeration id, several separated by
/// spaces, "true" or "false", a number, a time "HH:mm:ss" in the time zone of the parameter, or a text.
struct StrategyControl {
    QString id;
    ControlType type = ControlType::TextField;
    QString parameter;          ///< name of its parameter; empty for a control that only serves rules
    QString label;              ///< without the unit; may be empty
    QString unit;               ///< empty when there is none
    QString tooltip;            ///< empty when there is none
    QString helpText;           ///< empty when there is none
    QString initialValue;       ///< value of the control; empty when there is none
    QString initFixField;       ///< field of the order that comes before `initialValue`; empty when there is none
    bool isNowIfPassed = false; ///< a clock starts with the current time if `initialValue` has passed
    QByteArray zone;            ///< time zone of `initialValue`; empty: the parameter's
    QString increment;          ///< step of a spinner, as a value of the parameter; empty: 1 in the shown unit
    QString outerIncrement;     ///< large step of a double spinner; empty: ten steps
    StepPolicy stepPolicy = StepPolicy::Fixed;
    StepPolicy outerStepPolicy = StepPolicy::Fixed;
    LayoutDirection direction = LayoutDirection::Horizontal; ///< of the entries of a list of buttons
    QString checkedId;                                       ///< enumeration id of a checked button
    QString uncheckedId;                                     ///< enumeration id of a button that is not checked
    QString radioGroup;
    QList<EnumeratedValue> items;
    QList<StateRule> stateRules;
    qint64 line = 0;

    bool isButton() const { return type == ControlType::CheckBox || type == ControlType::RadioButton; }
    bool isSpinner() const { return type == ControlType::SingleSpinner || type == ControlType::DoubleSpinner; }
    /// The group of a radio button: those of one parameter without a group of their own belong together. Empty for
    /// buttons on their own and for other controls.
    QString radioKey() const;
    /// True for lists of which several entries can be chosen.
    bool isMultiple() const { return type == ControlType::MultiSelectList || type == ControlType::CheckBoxList; }
    /// True for controls that have entries.
    bool takesItems() const;
    /// True for controls of which nothing but entries can be chosen.
    bool isClosedList() const;
    /// True if the value is the id of an entry, or several.
    bool choosesItems() const { return takesItems() && !items.isEmpty(); }
};

/// A part of a panel: a panel or a control.
struct PanelItem {
    bool isPanel = false;
    int index = 0; ///< in `StrategyDefinition::panels` or `controls`
};

/// A group of controls or panels.
struct StrategyPanel {
    QString title; ///< empty when it has none
    LayoutDirection direction = LayoutDirection::Vertical;
    bool isCollapsible = false;
    bool isCollapsed = false;
    bool hasBorder = false;
    QVector<PanelItem> items;
};

/// A condition: a comparison, or a combination of others.
struct StrategyEdit {
    EditOperator comparison = EditOperator::Exists;
    int field = -1;      ///< parameter or control, depending on where the condition is used
    int otherField = -1; ///< -1: compared with `value`
    QString value;       ///< in the form of the field's values
    ComparedAs as = ComparedAs::Text;
    QByteArray zone;       ///< time zone of the field, if times are compared
    QByteArray otherZone;  ///< time zone of the other field
    QVector<int> operands; ///< conditions in `StrategyDefinition::edits`

    bool isCombination() const { return comparison >= EditOperator::And; }
};

/// A relation between parameters that must hold.
struct StrategyRule {
    QString message; ///< shown to the trader if it does not hold
    int edit = -1;   ///< in `StrategyDefinition::edits`, on parameters
    qint64 line = 0;
};

/// One strategy as its file describes it. A default-constructed one means that there is no such strategy.
struct StrategyDefinition {
    QString name;
    QString alias; ///< name as shown; the name itself if the file has none
    QString version;
    QString provider;
    QString wireValue; ///< the provider's name; the name itself if the file has none
    QString description;
    int identifierTag = 0;            ///< FIX tag of `wireValue`; 0 if the file has none
    int versionTag = 0;               ///< FIX tag of `version`; 0 if the file has none
    bool sendsParameterGroup = false; ///< the provider accepts parameters without tags of their own
    StrategyScope scope;
    QList<StrategyParameter> parameters;
    QList<StrategyControl> controls;
    QVector<StrategyPanel> panels; ///< the first contains the others
    QVector<StrategyEdit> edits;   ///< operands precede the conditions that use them
    QList<StrategyRule> rules;
    QVector<int> settleOrder; ///< controls whose state rules set values; each after those on which its value depends
    qint64 line = 0;

    /// The parameter of a name; null when there is none.
    const StrategyParameter* parameter(const QString& parameterName) const;
    /// The control of a parameter; null for constants and unknown names.
    const StrategyControl* controlOf(const QString& parameterName) const;
    int parameterIndex(const QString& parameterName) const; ///< -1 when there is none
    int controlIndex(const QString& id) const;              ///< -1 when there is none
};

/// Limits of a strategy file.
namespace StrategyLimits {
/// Largest size of a file in bytes.
constexpr qint64 MaxSize = 4194304;
/// Most elements of a file.
constexpr int MaxElements = 100000;
/// Most strategies of a file; parameters, controls and rules of a strategy.
constexpr int MaxParts = 2000;
/// Most conditions times state rules of a strategy.
constexpr int MaxConditions = 4000000;
/// Deepest nesting of elements.
constexpr int MaxDepth = 64;
/// Most attributes of an element, namespaces included.
constexpr int MaxAttributes = 50;
/// Longest text of an attribute or a description.
constexpr int MaxText = 10000;
/// Longest name.
constexpr int MaxName = 256;
} // namespace StrategyLimits
