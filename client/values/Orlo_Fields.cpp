#include "Orlo_Fields.h"

namespace Orlo_Fields {

namespace AutoPlan {
const QString templateCode = QStringLiteral("templateCode");
const QString subType = QStringLiteral("subType");
} // namespace AutoPlan

namespace Security {
const QString cumAmount = QStringLiteral("cumAmount");
} // namespace Security

} // namespace Orlo_Fields
