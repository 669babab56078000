// SPDX-License-Identifier: LGPL-2.1-or-later
#include "faultyvfs.h"

#include <sqlite3.h>

#include <cstdlib>

namespace {

/// Counts what is asked of it and tells which of that fails.
class Faults
{
public:
    void failAt(long n, bool always)
    {
        m_failing = n;
        m_always = always;
        m_count = 0;
    }
    bool next()
    {
        ++m_count;
        return m_failing > 0 && (m_always ? m_count >= m_failing : m_count == m_failing);
    }
    long count() const { return m_count; }

private:
    long m_failing = 0;
    long m_count = 0;
    bool m_always = false;
};

Faults fileFaults;
Faults memoryFaults;

// Files

sqlite3_vfs *sound = nullptr;

/// What SQLite gets as an open file; the sound file lies behind it.
struct FaultyFile
{
    sqlite3_file base;
};

sqlite3_file *behind(sqlite3_file *file)
{
    return reinterpret_cast<sqlite3_file *>(reinterpret_cast<FaultyFile *>(file) + 1);
}

/// An operation of a file that either fails with `fault` or is handed on.
template <int fault, auto member, typename... Arguments>
int onFile(sqlite3_file *file, Arguments... arguments)
{
    if (fault != SQLITE_OK && fileFaults.next())
        return fault;
    sqlite3_file *real = behind(file);
    return (real->pMethods->*member)(real, arguments...);
}

using Methods = sqlite3_io_methods;

int closeFile(sqlite3_file *file)
{
    const int status = behind(file)->pMethods->xClose(behind(file));
    file->pMethods = nullptr;
    return status;
}

/// Version 1: without shared memory and memory-mapped files, whose failures are the machine's and not the file's.
constexpr Methods faultyMethods = {
    1,
    closeFile,
    onFile<SQLITE_IOERR_READ, &Methods::xRead, void *, int, sqlite3_int64>,
    onFile<SQLITE_IOERR_WRITE, &Methods::xWrite, const void *, int, sqlite3_int64>,
    onFile<SQLITE_IOERR_TRUNCATE, &Methods::xTruncate, sqlite3_int64>,
    onFile<SQLITE_IOERR_FSYNC, &Methods::xSync, int>,
    onFile<SQLITE_IOERR_FSTAT, &Methods::xFileSize, sqlite3_int64 *>,
    onFile<SQLITE_IOERR_LOCK, &Methods::xLock, int>,
    onFile<SQLITE_OK, &Methods::xUnlock, int>, // a lock that cannot be given back is no lock any more
    onFile<SQLITE_IOERR_CHECKRESERVEDLOCK, &Methods::xCheckReservedLock, int *>,
    onFile<SQLITE_OK, &Methods::xFileControl, int, void *>,
    onFile<SQLITE_OK, &Methods::xSectorSize>,
    onFile<SQLITE_OK, &Methods::xDeviceCharacteristics>,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
};

int openFile(sqlite3_vfs *, const char *name, sqlite3_file *file, int flags, int *openedFlags)
{
    file->pMethods = nullptr;
    if (fileFaults.next())
        return SQLITE_CANTOPEN;
    const int status = sound->xOpen(sound, name, behind(file), flags, openedFlags);
    if (status == SQLITE_OK)
        file->pMethods = &faultyMethods;
    return status;
}

int findFile(sqlite3_vfs *, const char *name, int flags, int *result)
{
    return fileFaults.next() ? SQLITE_IOERR_ACCESS : sound->xAccess(sound, name, flags, result);
}

int fullPath(sqlite3_vfs *, const char *name, int size, char *path)
{
    return fileFaults.next() ? SQLITE_CANTOPEN_FULLPATH : sound->xFullPathname(sound, name, size, path);
}

// Memory

sqlite3_mem_methods soundMemory;

void *allocate(int size)
{
    return memoryFaults.next() ? nullptr : soundMemory.xMalloc(size);
}

void *reallocate(void *old, int size)
{
    return memoryFaults.next() ? nullptr : soundMemory.xRealloc(old, size);
}

} // namespace

void FaultyVfs::install()
{
    static sqlite3_vfs faulty;
    sound = sqlite3_vfs_find(nullptr);
    faulty = *sound;
    faulty.zName = "faulty";
    faulty.szOsFile = int(sizeof(FaultyFile)) + sound->szOsFile;
    faulty.xOpen = openFile;
    faulty.xAccess = findFile;
    faulty.xFullPathname = fullPath;
    sqlite3_vfs_register(&faulty, 1);
}

void FaultyVfs::failAt(long n, bool always)
{
    fileFaults.failAt(n, always);
}

long FaultyVfs::count()
{
    return fileFaults.count();
}

bool FaultyMemory::install()
{
    if (sqlite3_config(SQLITE_CONFIG_GETMALLOC, &soundMemory) != SQLITE_OK)
        return false;
    sqlite3_mem_methods faulty = soundMemory;
    faulty.xMalloc = allocate;
    faulty.xRealloc = reallocate;
    // No reserve per connection, so that every allocation comes by here.
    return sqlite3_config(SQLITE_CONFIG_MALLOC, &faulty) == SQLITE_OK &&
           sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0) == SQLITE_OK;
}

void FaultyMemory::failAt(long n, bool always)
{
    memoryFaults.failAt(n, always);
}

long FaultyMemory::count()
{
    return memoryFaults.count();
}
