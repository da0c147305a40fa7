/// The kernel's functions that the library and its hosts call: global memory, files by handle, scaled integers.
///
/// Handles and blocks are looked up before they are used. One that was closed or freed, that belongs to something else
/// or that was made up is refused with an error, never followed.
///
/// The process clock: inside the library, clock() of <time.h> counts wall milliseconds since the library was loaded, as
/// the platform's runtime does, and not processor time. Sources divide by 1000 and do not use CLOCKS_PER_SEC, which
/// belongs to the system's header. A host's own clock() stays what it is.
#pragma once

#include "base/wintypes.h"

/// The reason of the last failure on the calling thread; calls that succeed leave it alone unless they say otherwise.
KOLM_API DWORD GetLastError();

/// Sets that reason, for instance to NO_ERROR before a call that says more through it than through its result.
KOLM_API void SetLastError(DWORD code);

// The reasons that calls of this header give; ERROR_GEN_FAILURE stands for what the system has no better word for.
constexpr DWORD NO_ERROR = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
constexpr DWORD ERROR_TOO_MANY_OPEN_FILES = 4;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr DWORD ERROR_GEN_FAILURE = 31;
constexpr DWORD ERROR_SHARING_VIOLATION = 32;
constexpr DWORD ERROR_FILE_EXISTS = 80;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_DISK_FULL = 112;
constexpr DWORD ERROR_NOT_LOCKED = 158;
constexpr DWORD ERROR_ALREADY_EXISTS = 183;

// --- Global memory ---------------------------------------------------------------------------------------------------

// How a block is made: it stays where it is or may move when its size changes, and it may start out cleared.
constexpr UINT GMEM_FIXED = 0x0000;
constexpr UINT GMEM_MOVEABLE = 0x0002;
constexpr UINT GMEM_ZEROINIT = 0x0040;
constexpr UINT GPTR = GMEM_FIXED | GMEM_ZEROINIT; // usual pairs
constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;

/// A new block of exactly `bytes` bytes (0 is a size like any other), aligned for every type; null when there is no
/// memory. The caller frees it with GlobalFree. The handle of a fixed block is the address of its first byte.
KOLM_API HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes);

/// Changes the size; the contents stay up to the smaller size, and GMEM_ZEROINIT clears what is added. The block may
/// only move when the flags hold GMEM_MOVEABLE or when it is moveable and not locked; the old handle is then void and
/// the returned one takes its place. Null on failure: the old block lives on unchanged.
KOLM_API HGLOBAL GlobalReAlloc(HGLOBAL block, SIZE_T bytes, UINT flags);

/// The size that was asked for, exactly, in bytes; 0 for a block that does not exist.
KOLM_API SIZE_T GlobalSize(HGLOBAL block);

/// Null when the block is gone, else the block itself. A null block is accepted and gives null.
KOLM_API HGLOBAL GlobalFree(HGLOBAL block);

/// The address of the first byte; null for a block that does not exist. Locks of moveable blocks are counted.
KOLM_API LPVOID GlobalLock(HGLOBAL block);

/// TRUE while the block is still locked (always, for a fixed one). FALSE when this was the last lock, with the error
/// NO_ERROR, or when there was none, with ERROR_NOT_LOCKED.
KOLM_API BOOL GlobalUnlock(HGLOBAL block);

// --- Files -----------------------------------------------------------------------------------------------------------

/// What opening a file gives when it fails. Not null, as other handles would be.
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(INT_PTR(-1)))

// What the opener wants to do with the file; both may be combined.
constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;

constexpr DWORD FILE_SHARE_READ = 1;
constexpr DWORD FILE_SHARE_WRITE = 2;

// What happens when the file is there, or is not.
constexpr DWORD CREATE_NEW = 1;        ///< fails when it is there
constexpr DWORD CREATE_ALWAYS = 2;     ///< empties it when it is there; ERROR_ALREADY_EXISTS then tells so
constexpr DWORD OPEN_EXISTING = 3;     ///< fails when it is not there
constexpr DWORD OPEN_ALWAYS = 4;       ///< makes it when it is not there; otherwise ERROR_ALREADY_EXISTS tells so
constexpr DWORD TRUNCATE_EXISTING = 5; ///< empties it, fails when it is not there; takes GENERIC_WRITE

constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;

struct SECURITY_ATTRIBUTES; ///< never defined: calls take null
struct OVERLAPPED;          ///< never defined: calls take null

/// Opens or creates a file as `disposition` says; INVALID_HANDLE_VALUE on failure. Directories are refused. Sharing is
/// not enforced against other openers, attributes are ignored; security and template have to be null.
KOLM_API HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security, DWORD disposition,
                            DWORD attributes, HANDLE templateFile);

/// Writes at the file's position. TRUE when all bytes were written; `written` (may be null) tells how many in any case.
KOLM_API BOOL WriteFile(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD written, OVERLAPPED* overlapped);

/// Reads from the file's position. TRUE with fewer bytes than asked, down to 0, at the end of the file.
KOLM_API BOOL ReadFile(HANDLE file, LPVOID bytes, DWORD count, LPDWORD read, OVERLAPPED* overlapped);

/// FALSE for anything that is not an open handle of CreateFileA.
KOLM_API BOOL CloseHandle(HANDLE handle);

/// Removes a file; FALSE when it is not there, for directories, and where the directory may not be changed.
KOLM_API BOOL DeleteFileA(LPCSTR path);

// --- Process and arithmetic ------------------------------------------------------------------------------------------

/// A pseudo handle that stands for the calling process; it is never closed.
KOLM_API HANDLE GetCurrentProcess();

/// number * numerator / denominator with a 64-bit product, rounded to the nearest, halves away from zero.
/// -1 when the denominator is 0 or the magnitude of the result exceeds INT_MAX.
KOLM_API int MulDiv(int number, int numerator, int denominator);

/// What clock() counts inside the library: wall milliseconds since the library was loaded. Never runs backwards.
KOLM_API LONGLONG GetProcessMilliseconds();

/// Which cache PreFetchCacheLine loads: the first one, for data that is used more than once.
constexpr int PF_TEMPORAL_LEVEL_1 = 3;

/// Begins to load the cache line of an address without waiting for it. Any address may be given; nothing is read.
/// `level` is the constant above.
inline void PreFetchCacheLine(int /*level*/, const void* address)
{
    __builtin_prefetch(address);
}

// Reasons for which the system loads and unloads a module.
constexpr DWORD DLL_PROCESS_DETACH = 0;
constexpr DWORD DLL_PROCESS_ATTACH = 1;
