#pragma once

#include <QtGlobal>

/// A disk under SQLite that fails on demand. After `install()` every file that SQLite opens in this process uses it.
/// Only operations of the thread that calls the other functions are counted and fail.
namespace FaultyDisk {

/// Replaces SQLite's file layer. Call once per process, before the first database is opened.
void install();

/// The operations that are counted and fail: writes, truncations and flushes; reads; locks of the log.
enum class Operation { Change, Read, Lock };
/// What a failing operation reports to SQLite. Only changes find the disk full, and only locks are taken.
enum class Fault { InputOutput, Full, Taken };
/// Whether the disk works again after the failing operation, or fails from then on.
enum class Lasting { Once, ForGood };

/// Makes the nth operation from now on fail; the first is 1.
void failAt(int nth, Fault fault, Lasting lasting, Operation operation = Operation::Change);
/// Databases opened from now on are read-only, as on a disk without write permission.
void setReadOnly(bool readOnly);
/// Restores a working disk.
void heal();

/// Counted operations since `failAt`, or changes since `heal`.
int operations();
/// True if at least one of them failed.
bool hasFailed();

} // namespace FaultyDisk
