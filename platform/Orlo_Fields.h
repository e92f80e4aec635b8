#pragma once

#include <QString>

/// Field keys of the client's trading records.
///
/// The values come from the linked platform; whoever uses them compares and stores them only.
namespace Orlo_Fields {

/// Keys of a plan record.
namespace AutoPlan {
/// Plan type code.
extern const QString templateCode;
/// Instruction type code.
extern const QString subType;
} // namespace AutoPlan

/// Keys of an instruction's field map.
namespace Security {
/// Amount filled so far, in yuan.
extern const QString cumAmount;
} // namespace Security

} // namespace Orlo_Fields
