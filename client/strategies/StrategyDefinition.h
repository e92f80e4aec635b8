#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

/// The type of a strategy parameter; named after the types of FIXatdl 1.1.
enum class ParameterType { Int, Float, Qty, Price, Amount, Percentage, Boolean, String, Char, LocalTime };

/// The kind of input of a parameter.
enum class ControlType { TextField, SingleSpinner, DoubleSpinner, DropDownList, CheckBox, Clock, RadioButtonList };

/// How a rule compares its two sides.
enum class RuleOperator { Less, LessOrEqual, Greater, GreaterOrEqual, Equal, NotEqual };

/// One value of an enumerated parameter, or one entry of the list that offers it.
struct EnumeratedValue {
    QString id;   ///< links a value to its list entry
    QString text; ///< in a parameter: the value itself; in a control: the text shown
};

/// One parameter of a strategy. Every value is text as it is sent and stored: numbers in decimal notation, percentages
/// as a fraction of 1, times as "HH:mm:ss" in the market's time.
struct StrategyParameter {
    QString name;
    ParameterType type = ParameterType::String;
    int fixTag = 0; ///< 0 if the file has none
    bool required = false;
    QString minValue;   ///< empty: no lower limit
    QString maxValue;   ///< empty: no upper limit
    QString constValue; ///< empty: the trader enters a value; otherwise the only value, without a control
    int precision = -1; ///< largest number of decimals; -1 if the file has none
    int maxLength = 64; ///< largest length of a text
    QString trueValue = QStringLiteral("Y");
    QString falseValue = QStringLiteral("N");
    QList<EnumeratedValue> values; ///< empty unless the parameter is enumerated
    qint64 line = 0;               ///< line of the file that declares it
};

/// The control of one parameter.
struct StrategyControl {
    QString id;
    ControlType type = ControlType::TextField;
    QString parameter;      ///< name of its parameter
    QString label;          ///< without the unit
    QString unit;           ///< empty when there is none
    QString tooltip;        ///< empty when there is none
    QString section;        ///< title of the panel around it; empty when it has none
    QString initialValue;   ///< default, as a value of the parameter; empty when there is none
    QString increment;      ///< step of a spinner, as a value of the parameter; empty: 1 in the shown unit
    QString outerIncrement; ///< large step of a double spinner; empty: ten steps
    QList<EnumeratedValue> items;
    qint64 line = 0;
};

/// A relation between parameters that must hold. It is not checked while one of its sides is empty.
struct StrategyRule {
    QString message; ///< shown to the trader if it does not hold
    QString field;
    RuleOperator comparison = RuleOperator::Equal;
    QString otherField; ///< empty: compared with `value`
    QString value;
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
    QList<StrategyParameter> parameters;
    QList<StrategyControl> controls;
    QList<StrategyRule> rules;
    qint64 line = 0;

    /// The parameter of a name; null when there is none.
    const StrategyParameter* parameter(const QString& parameterName) const;
    /// The control of a parameter; null for constants and unknown names.
    const StrategyControl* controlOf(const QString& parameterName) const;
};

/// Limits of a strategy file.
namespace StrategyLimits {
/// Most strategies in a file; parameters, controls and rules of a strategy; values of a parameter.
constexpr int MaxCount = 100;
/// Most attributes of an element, namespaces included.
constexpr int MaxAttributes = 50;
/// Deepest nesting of panels.
constexpr int MaxPanelDepth = 8;
/// Longest text of an attribute or a description.
constexpr int MaxText = 1000;
} // namespace StrategyLimits
