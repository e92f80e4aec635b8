#pragma once

#include <QStringList>

/// The triggers that update positions and cash in the transaction that writes an instruction.
///
/// A fill of a purchase adds to the position; what was bought can be sold after its day. A fill of a sale takes from
/// it, and what of a sale is issued and open is reserved for its day. A changed or deleted fill is taken back. Cash,
/// where it is known, follows the amounts in the same way. Borrowed shares and money belong to no position and no cash.
namespace Bookings {

QStringList sqliteStatements();
QStringList postgresStatements();
/// The text of the failure when more is sold than may be sold.
QString refusal();
/// The text of the failure when more is filled than was issued. Older instructions stay as they are.
QString fillRefusal();

} // namespace Bookings
