#pragma once

#include <QtGlobal>

/// A disk under SQLite that fails on demand. After `install()` every file that SQLite opens in this process uses it.
/// Not thread-safe.
namespace FaultyDisk {

/// Replaces SQLite's file layer. Call once per process, before the first database is opened.
void install();

/// What a failing write, truncation or flush reports to SQLite.
enum class Fault { InputOutput, Full };
/// Whether the disk works again after the failing operation, or fails from then on.
enum class Lasting { Once, ForGood };

/// Makes the nth write, truncation or flush from now on fail; the first is 1.
void failAt(int nth, Fault fault, Lasting lasting);
/// Databases opened from now on are read-only, as on a disk without write permission.
void setReadOnly(bool readOnly);
/// Restores a working disk.
void heal();

/// Writes, truncations and flushes since `failAt` or `heal`.
int operations();
/// True if at least one of them failed.
bool hasFailed();

} // namespace FaultyDisk
