/// Files by handle. A handle is a number, never an address: the slot in a table and the slot's generation, so that a
/// handle that was closed stays invalid when its slot is used again.
#include "base/Immortal.h"
#include "base/SystemError.h"
#include "base/winkernel.h"

#include <cerrno>
#include <fcntl.h>
#include <mutex>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kSlotBits = 16;
constexpr UINT_PTR kHandleTag = UINT_PTR(0x46) << 56; // keeps file handles apart from addresses and small numbers

struct Slot
{
    int descriptor = -1;
    uint32_t generation = 0;
};

struct FileTable
{
    std::mutex mutex;
    std::vector<Slot> slots;
};

FileTable& Files()
{
    return Immortal<FileTable>();
}

HANDLE HandleOf(size_t index, uint32_t generation)
{
    return reinterpret_cast<HANDLE>(kHandleTag | UINT_PTR(generation) << kSlotBits | UINT_PTR(index));
}

/// The slot of an open file, or null with the error set. The table has to be locked.
Slot* FindSlot(FileTable& table, HANDLE handle)
{
    const UINT_PTR bits = reinterpret_cast<UINT_PTR>(handle);
    const size_t index = size_t(bits & ((UINT_PTR(1) << kSlotBits) - 1));
    if (index < table.slots.size()) {
        Slot& slot = table.slots[index];
        if (slot.descriptor >= 0 && HandleOf(index, slot.generation) == handle)
            return &slot;
    }
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

/// The system's file below a handle, or -1. It is used without the lock, which a slow disk must not hold.
int DescriptorOf(HANDLE handle)
{
    FileTable& table = Files();
    const std::lock_guard<std::mutex> guard(table.mutex);
    const Slot* slot = FindSlot(table, handle);
    return slot ? slot->descriptor : -1;
}

/// A handle for an open file; INVALID_HANDLE_VALUE with the error set when there is no room for one.
HANDLE Register(int descriptor)
{
    FileTable& table = Files();
    const std::lock_guard<std::mutex> guard(table.mutex);
    size_t index = 0;
    while (index < table.slots.size() && table.slots[index].descriptor >= 0)
        ++index;
    if (index >> kSlotBits) {
        SetLastError(ERROR_TOO_MANY_OPEN_FILES);
        return INVALID_HANDLE_VALUE;
    }
    if (index == table.slots.size()) {
        try {
            table.slots.emplace_back();
        } catch (const std::bad_alloc&) {
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return INVALID_HANDLE_VALUE;
        }
    }
    table.slots[index].descriptor = descriptor;
    // A new generation for each use of the slot: handles of earlier files no longer match.
    return HandleOf(index, ++table.slots[index].generation);
}

/// Flags of the system's open for a disposition, or -1 for one that does not exist.
int DispositionFlags(DWORD disposition)
{
    switch (disposition) {
    case CREATE_NEW:
        return O_CREAT | O_EXCL;
    case CREATE_ALWAYS:
        return O_CREAT | O_TRUNC;
    case OPEN_EXISTING:
        return 0;
    case OPEN_ALWAYS:
        return O_CREAT;
    case TRUNCATE_EXISTING:
        return O_TRUNC;
    default:
        return -1;
    }
}

HANDLE Fail(DWORD code)
{
    SetLastError(code);
    return INVALID_HANDLE_VALUE;
}

bool IsDirectory(int descriptor)
{
    struct stat info;
    return ::fstat(descriptor, &info) == 0 && S_ISDIR(info.st_mode);
}

/// Moves `count` bytes with the system's read or write, which may do it in pieces. TRUE unless it failed; a read that
/// meets the end moves fewer. `moved` (may be null) tells how many in any case.
template <class Byte, class Call>
BOOL Transfer(HANDLE file, Byte* bytes, DWORD count, LPDWORD moved, const OVERLAPPED* overlapped, Call call)
{
    if (moved)
        *moved = 0;
    const int descriptor = DescriptorOf(file);
    if (descriptor < 0)
        return FALSE;
    if (overlapped || (!bytes && count > 0)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    for (DWORD done = 0; done < count;) {
        const ssize_t step = call(descriptor, bytes + done, count - done);
        if (step < 0 && errno != EINTR) {
            SetLastError(afx::ErrorFromErrno(errno));
            return FALSE;
        }
        if (step == 0)
            break;
        if (step > 0)
            done += DWORD(step);
        if (moved)
            *moved = done;
    }
    return TRUE;
}

} // namespace

HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD, SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD,
                   HANDLE templateFile)
{
    const int flags = DispositionFlags(disposition);
    if (!path || security || templateFile || flags < 0)
        return Fail(ERROR_INVALID_PARAMETER);
    const bool writes = (access & GENERIC_WRITE) != 0;
    const int mode = !writes ? O_RDONLY : access & GENERIC_READ ? O_RDWR : O_WRONLY;
    if (disposition == TRUNCATE_EXISTING && !writes)
        return Fail(ERROR_INVALID_PARAMETER);

    // Asked before opening, which may make the file. Somebody else may do so in between; only the code told to the
    // caller would then be off.
    struct stat before;
    const bool existed = ::stat(path, &before) == 0;
    const int descriptor = ::open(path, flags | mode | O_CLOEXEC, 0666);
    if (descriptor < 0)
        return Fail(afx::ErrorFromErrno(errno));
    if (IsDirectory(descriptor)) {
        ::close(descriptor);
        return Fail(ERROR_ACCESS_DENIED);
    }
    HANDLE handle = Register(descriptor);
    if (handle == INVALID_HANDLE_VALUE)
        ::close(descriptor);
    else if (disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS)
        SetLastError(existed ? ERROR_ALREADY_EXISTS : NO_ERROR);
    return handle;
}

BOOL WriteFile(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD written, OVERLAPPED* overlapped)
{
    const BYTE* from = static_cast<const BYTE*>(bytes);
    return Transfer(file, from, count, written, overlapped, ::write);
}

BOOL ReadFile(HANDLE file, LPVOID bytes, DWORD count, LPDWORD read, OVERLAPPED* overlapped)
{
    return Transfer(file, static_cast<BYTE*>(bytes), count, read, overlapped, ::read);
}

BOOL CloseHandle(HANDLE handle)
{
    FileTable& table = Files();
    const std::lock_guard<std::mutex> guard(table.mutex);
    Slot* slot = FindSlot(table, handle);
    if (!slot)
        return FALSE;
    const int descriptor = slot->descriptor;
    slot->descriptor = -1; // whatever closing says, the system has let go of the number
    if (::close(descriptor) == 0 || errno == EINTR)
        return TRUE;
    SetLastError(afx::ErrorFromErrno(errno));
    return FALSE;
}

BOOL DeleteFileA(LPCSTR path)
{
    if (path && ::unlink(path) == 0)
        return TRUE;
    SetLastError(path ? afx::ErrorFromErrno(errno) : ERROR_INVALID_PARAMETER);
    return FALSE;
}
