#pragma once

#include "Database.h"

/// The client's static configuration texts, and the text of the agreement.
namespace SampleTexts {

/// Writes everything in one transaction.
Status write(Database& database);

} // namespace SampleTexts
