#pragma once

#include "Status.h"
#include "StrategyDefinition.h"

#include <QMap>
#include <QStringList>

/// Converts between the values of controls, in which files write defaults and state rules, and the stored values of
/// parameters.
namespace ControlValue {

/// The parameter of a control; null if it has none.
const StrategyParameter* parameterOf(const StrategyDefinition& strategy, const StrategyControl& control);

/// The time zone of a clock's value; empty for the market's.
QByteArray zoneOf(const StrategyControl& control, const StrategyParameter* parameter);

/// True if the value of the control is a number.
bool isNumber(const StrategyControl& control, const StrategyParameter* parameter);

/// What a file means by a text that is no value of the control: of a list, the wire value or the shown text of an
/// entry, or several with commas; of a button, the wire value of its state. Other texts are returned unchanged.
/// `parameter` may be null.
QString meantBy(const StrategyControl& control, const StrategyParameter* parameter, const QString& text);
/// The control's value that a file writes: `parameter` may be null. Fails if the control cannot have it.
Result<QString> read(const StrategyControl& control, const StrategyParameter* parameter, const QString& text);

/// The stored value that a control gives its parameter; empty if it gives none.
QString toParameter(const StrategyControl& control, const StrategyParameter& parameter, const QString& value);
/// The control's value for a stored value of its parameter.
QString ofParameter(const StrategyControl& control, const StrategyParameter& parameter, const QString& stored);

/// The values of all parameters by the values of the controls, in the order of `StrategyDefinition::controls`.
QMap<QString, QString> parameters(const StrategyDefinition& strategy, const QStringList& values);
/// The values of the parameters before anything is entered.
QMap<QString, QString> defaults(const StrategyDefinition& strategy);

} // namespace ControlValue
