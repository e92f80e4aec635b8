#pragma once

#include <QtGlobal>

/// The disk under SQLite, which fails when a test says so. Every file that SQLite opens in this process after
/// `install()` goes through it. To be used on one thread at a time.
namespace FaultyDisk {

/// Takes the place of SQLite's own file layer; once per process, before the first database is opened.
void install();

/// What a failing write, truncation or flush tells SQLite.
enum class Fault { InputOutput, Full };
/// Whether the disk works again after the failing operation, or fails from then on.
enum class Lasting { Once, ForGood };

/// Lets the nth write, truncation or flush from now on fail; the first is 1.
void failAt(int nth, Fault fault, Lasting lasting);
/// Databases that are opened from now on can be read and not written, as on a disk without write permission.
void setReadOnly(bool readOnly);
/// Back to a disk that works.
void heal();

/// Writes, truncations and flushes since `failAt` or `heal`.
int operations();
/// True when at least one of them failed.
bool hasFailed();

} // namespace FaultyDisk
