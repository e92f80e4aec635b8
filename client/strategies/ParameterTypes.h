#pragma once

#include "StrategyDefinition.h"

/// What the standard says about a type of parameter.
struct ParameterTypeInfo {
    const char* name; ///< as in xsi:type
    ParameterType type;
    int fixCode; ///< in FIX tag 959
    /// What its values are.
    enum Family { Number, Time, Date, Text, List, Boolean } family;
    bool hasLimits;
};

namespace ParameterTypes {

/// The type of a name; null if the standard has none.
const ParameterTypeInfo* named(const QString& name);
const ParameterTypeInfo& of(ParameterType type);

/// True for numeric types.
bool isNumber(ParameterType type);
/// True for whole numbers.
bool isWhole(ParameterType type);
/// True for times of the day, with or without a date.
bool isTime(ParameterType type);
/// True for types with a date.
bool hasDate(ParameterType type);
/// True for decimal numbers.
bool isDecimal(ParameterType type);
/// True for texts that hold several values.
bool isList(ParameterType type);

} // namespace ParameterTypes
