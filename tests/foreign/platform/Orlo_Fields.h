#pragma once

#include <QString>

namespace Orlo_Fields {
namespace AutoPlan {
inline const QString templateCode = QStringLiteral("plan.type");
inline const QString subType = QStringLiteral("plan.instruction");
} // namespace AutoPlan
namespace Security {
inline const QString cumAmount = QStringLiteral("filledAmount");
}
} // namespace Orlo_Fields
