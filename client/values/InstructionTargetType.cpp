#include "InstructionTargetType.h"

namespace InstructionTargetType {

const QString QtyOrder = QStringLiteral("Q");
const QString AmountOrder = QStringLiteral("A");

} // namespace InstructionTargetType
