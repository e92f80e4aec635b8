#pragma once

#include <QString>

/// Codes that say what a plan's target counts.
///
/// The values come from the linked platform; whoever uses them compares and stores them only.
namespace InstructionTargetType {

/// Quantity.
extern const QString QtyOrder;
/// Amount in yuan.
extern const QString AmountOrder;

} // namespace InstructionTargetType
