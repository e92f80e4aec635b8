#pragma once

#include <QStringList>

/// What the role of a user may read and change, as statements of a server's schema: row-level security, and triggers
/// for what no role may do. The owner of the tables sees and changes every row.
namespace PostgresRights {

QStringList statements();
/// The rights to instruction types, added by a later version of the schema.
QStringList authorities();

} // namespace PostgresRights
