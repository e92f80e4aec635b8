#include "FaultyDisk.h"

#include <sqlite3.h>

namespace {

using FaultyDisk::Fault;
using FaultyDisk::Lasting;
using FaultyDisk::Operation;

struct Disk {
    int failing = 0; ///< number of the operation that fails; 0 for none
    Operation operation = Operation::Change;
    Fault fault = Fault::InputOutput;
    Lasting lasting = Lasting::Once;
    int operations = 0;
    bool failed = false;
    bool readOnly = false;
};

// Background threads of the client have a working disk.
Disk& disk()
{
    static thread_local Disk own;
    return own;
}

sqlite3_vfs*& realDisk()
{
    static sqlite3_vfs* disk = nullptr;
    return disk;
}

/// SQLite's own file object follows this one in memory.
struct File {
    sqlite3_file base;
};

sqlite3_file* realOf(sqlite3_file* file)
{
    return reinterpret_cast<sqlite3_file*>(reinterpret_cast<File*>(file) + 1);
}

bool failsNow(Operation operation)
{
    Disk& d = disk();
    if (operation != d.operation)
        return false;
    ++d.operations;
    const bool fails =
        d.failing > 0 && (d.lasting == Lasting::ForGood ? d.operations >= d.failing : d.operations == d.failing);
    d.failed = d.failed || fails;
    return fails;
}

int failure(int inputOutputCode)
{
    switch (disk().fault) {
    case Fault::Full:
        return SQLITE_FULL;
    case Fault::Taken:
        return SQLITE_BUSY;
    case Fault::InputOutput:
        break;
    }
    return inputOutputCode;
}

int closeFile(sqlite3_file* file)
{
    return realOf(file)->pMethods->xClose(realOf(file));
}

int readFile(sqlite3_file* file, void* data, int size, sqlite3_int64 offset)
{
    if (failsNow(Operation::Read))
        return failure(SQLITE_IOERR_READ);
    return realOf(file)->pMethods->xRead(realOf(file), data, size, offset);
}

int writeFile(sqlite3_file* file, const void* data, int size, sqlite3_int64 offset)
{
    if (failsNow(Operation::Change))
        return failure(SQLITE_IOERR_WRITE);
    return realOf(file)->pMethods->xWrite(realOf(file), data, size, offset);
}

int truncateFile(sqlite3_file* file, sqlite3_int64 size)
{
    if (failsNow(Operation::Change))
        return failure(SQLITE_IOERR_TRUNCATE);
    return realOf(file)->pMethods->xTruncate(realOf(file), size);
}

int syncFile(sqlite3_file* file, int flags)
{
    if (failsNow(Operation::Change))
        return failure(SQLITE_IOERR_FSYNC);
    return realOf(file)->pMethods->xSync(realOf(file), flags);
}

int fileSize(sqlite3_file* file, sqlite3_int64* size)
{
    return realOf(file)->pMethods->xFileSize(realOf(file), size);
}

int lockFile(sqlite3_file* file, int level)
{
    return realOf(file)->pMethods->xLock(realOf(file), level);
}

int unlockFile(sqlite3_file* file, int level)
{
    return realOf(file)->pMethods->xUnlock(realOf(file), level);
}

int checkReservedLock(sqlite3_file* file, int* result)
{
    return realOf(file)->pMethods->xCheckReservedLock(realOf(file), result);
}

int controlFile(sqlite3_file* file, int operation, void* argument)
{
    return realOf(file)->pMethods->xFileControl(realOf(file), operation, argument);
}

int sectorSize(sqlite3_file* file)
{
    return realOf(file)->pMethods->xSectorSize(realOf(file));
}

int characteristics(sqlite3_file* file)
{
    return realOf(file)->pMethods->xDeviceCharacteristics(realOf(file));
}

int mapShared(sqlite3_file* file, int page, int pageSize, int extend, void volatile** result)
{
    return realOf(file)->pMethods->xShmMap(realOf(file), page, pageSize, extend, result);
}

int lockShared(sqlite3_file* file, int offset, int count, int flags)
{
    if ((flags & SQLITE_SHM_LOCK) != 0 && failsNow(Operation::Lock))
        return failure(SQLITE_IOERR_SHMLOCK);
    return realOf(file)->pMethods->xShmLock(realOf(file), offset, count, flags);
}

void shareBarrier(sqlite3_file* file)
{
    realOf(file)->pMethods->xShmBarrier(realOf(file));
}

int unmapShared(sqlite3_file* file, int deleteFile)
{
    return realOf(file)->pMethods->xShmUnmap(realOf(file), deleteFile);
}

// Version 2 has no operations for memory-mapped database files, so SQLite does not map them.
const sqlite3_io_methods Methods{ 2, closeFile, readFile, writeFile, truncateFile, syncFile, fileSize, lockFile,
    unlockFile, checkReservedLock, controlFile, sectorSize, characteristics, mapShared, lockShared, shareBarrier,
    unmapShared, nullptr, nullptr };

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    file->pMethods = nullptr;
    sqlite3_file* const real = realOf(file);
    if (disk().readOnly && (flags & SQLITE_OPEN_MAIN_DB) != 0) {
        flags &= ~(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        flags |= SQLITE_OPEN_READONLY;
    }
    sqlite3_vfs* const system = realDisk();
    Q_ASSERT(system);
    const int result = system->xOpen(system, name, real, flags, outFlags);
    if (real->pMethods != nullptr)
        file->pMethods = &Methods;
    return result;
}

} // namespace

// The copy keeps all operations of the real layer that do not belong to an open file.
void FaultyDisk::install()
{
    static sqlite3_vfs faulty;
    if (realDisk() != nullptr)
        return;
    realDisk() = sqlite3_vfs_find(nullptr);
    faulty = *realDisk();
    faulty.pNext = nullptr;
    faulty.zName = "faulty-disk";
    faulty.szOsFile = static_cast<int>(sizeof(File)) + realDisk()->szOsFile;
    faulty.xOpen = openFile;
    sqlite3_vfs_register(&faulty, 1);
}

void FaultyDisk::failAt(int nth, Fault fault, Lasting lasting, Operation operation)
{
    heal();
    disk().operation = operation;
    disk().failing = nth;
    disk().fault = fault;
    disk().lasting = lasting;
}

void FaultyDisk::setReadOnly(bool readOnly)
{
    disk().readOnly = readOnly;
}

void FaultyDisk::heal()
{
    Disk& d = disk();
    d.failing = 0;
    d.operation = Operation::Change;
    d.operations = 0;
    d.failed = false;
    d.readOnly = false;
}

int FaultyDisk::operations()
{
    return disk().operations;
}

bool FaultyDisk::hasFailed()
{
    return disk().failed;
}
