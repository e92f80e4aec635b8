#pragma once

#include <QString>

namespace InstructionTargetType {
inline const QString QtyOrder = QStringLiteral("by quantity");
inline const QString AmountOrder = QStringLiteral("by amount");
} // namespace InstructionTargetType
