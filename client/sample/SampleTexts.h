#pragma once

#include "Database.h"

/// Static configuration texts that come with the client, and the text of the agreement.
namespace SampleTexts {

/// Writes everything in one transaction.
Status write(Database& database);

} // namespace SampleTexts
