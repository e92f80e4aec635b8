#pragma once

#include <QString>

/// Field keys of the client's trading records.
///
/// The linked platform defines the values. Other code only compares and stores them.
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
/// Filled amount, in yuan.
extern const QString cumAmount;
} // namespace Security

} // namespace Orlo_Fields
