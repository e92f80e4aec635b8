#pragma once

#include <QString>

/// Codes of the unit of a plan's target.
///
/// The linked platform defines the values. Other code only compares and stores them.
namespace InstructionTargetType {

/// Quantity.
extern const QString QtyOrder;
/// Amount in yuan.
extern const QString AmountOrder;

} // namespace InstructionTargetType
