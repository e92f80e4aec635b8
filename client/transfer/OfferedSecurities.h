#pragma once

#include "Security.h"

/// The securities that the form offers to plans.
namespace OfferedSecurities {

/// Whether a plan of an instruction type, by amount or by quantity, may trade a security.
bool contains(const Security& security, const QString& instructionType, bool byAmount);

} // namespace OfferedSecurities
