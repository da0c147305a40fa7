#include "base/CFile.h"

#include "base/SystemError.h"
#include "base/winkernel.h"

#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Calls of the system take sizes that fit a signed word; a transfer is cut into pieces well below that.
constexpr UINT kPiece = 0x40000000;

/// Open's flags in the system's words. Every file is closed when another program is started: handles are not inherited.
int SystemFlags(UINT openFlags)
{
    const UINT mode = openFlags & 3;
    int flags = O_CLOEXEC | (mode == CFile::modeRead ? O_RDONLY : mode == CFile::modeWrite ? O_WRONLY : O_RDWR);
    if (openFlags & CFile::modeCreate)
        flags |= O_CREAT | (openFlags & CFile::modeNoTruncate ? 0 : O_TRUNC);
    return flags;
}

} // namespace

CFile::CFile(LPCTSTR path, UINT openFlags)
{
    // Made before it is needed, so that one object serves both as the report of Open and as what is thrown.
    auto error = std::make_unique<CFileException>();
    if (!CFile::Open(path, openFlags, error.get()))
        throw error.release();
}

CFile::~CFile()
{
    CFile::Abort();
}

/// Reads errno first: anything else that is called may change it.
void CFile::ThrowSystemError() const
{
    const DWORD code = afx::ErrorFromErrno(errno);
    AfxThrowFileException(afx::FileCauseFromError(code), LONG(code), m_path);
}

/// An open file of the system, or -1 with the reason in `error`. Directories are refused: they have no bytes.
int CFile::OpenDescriptor(LPCTSTR path, UINT openFlags, CFileException* error)
{
    int descriptor = path ? ::open(path, SystemFlags(openFlags), 0666) : -1;
    int reason = path ? errno : ENOENT;
    struct stat info;
    if (descriptor >= 0 && (::fstat(descriptor, &info) != 0 || S_ISDIR(info.st_mode))) {
        ::close(descriptor);
        descriptor = -1;
        reason = EISDIR;
    }
    if (descriptor < 0 && error) {
        const DWORD code = afx::ErrorFromErrno(reason);
        error->m_cause = afx::FileCauseFromError(code);
        error->m_lOsError = LONG(code);
        error->m_strFileName = path;
    }
    return descriptor;
}

BOOL CFile::Open(LPCTSTR path, UINT openFlags, CFileException* error)
{
    const CString name(path); // the caller's text may be our own path, which closing forgets
    CFile::Abort();
    m_descriptor = OpenDescriptor(name, openFlags, error);
    if (m_descriptor < 0)
        return FALSE;
    m_path = name;
    return TRUE;
}

/// Pipes and terminals answer in pieces; the loop makes fewer bytes than asked for mean the end, as for files on disk.
UINT CFile::Read(void* bytes, UINT count)
{
    BYTE* to = static_cast<BYTE*>(bytes);
    UINT done = 0;
    while (done < count) {
        const UINT piece = count - done < kPiece ? count - done : kPiece;
        const ssize_t got = ::read(m_descriptor, to + done, piece);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            ThrowSystemError();
        if (got == 0)
            break;
        done += UINT(got);
    }
    return done;
}

void CFile::Write(const void* bytes, UINT count)
{
    const BYTE* from = static_cast<const BYTE*>(bytes);
    UINT done = 0;
    while (done < count) {
        const UINT piece = count - done < kPiece ? count - done : kPiece;
        const ssize_t put = ::write(m_descriptor, from + done, piece);
        if (put < 0 && errno == EINTR)
            continue;
        if (put < 0)
            ThrowSystemError(); // what was written before stays in the file
        done += UINT(put);
    }
}

ULONGLONG CFile::Seek(LONGLONG offset, UINT from)
{
    const int whence = from == begin ? SEEK_SET : from == current ? SEEK_CUR : SEEK_END;
    const off_t position = ::lseek(m_descriptor, offset, whence);
    if (position < 0 && errno == EBADF)
        ThrowSystemError(); // not open at all, which is not the fault of the position
    if (position < 0)
        AfxThrowFileException(CFileException::badSeek, -1, m_path);
    return ULONGLONG(position);
}

ULONGLONG CFile::GetPosition() const
{
    const off_t position = ::lseek(m_descriptor, 0, SEEK_CUR);
    if (position < 0)
        ThrowSystemError();
    return ULONGLONG(position);
}

ULONGLONG CFile::GetLength() const
{
    struct stat info;
    if (::fstat(m_descriptor, &info) != 0)
        ThrowSystemError();
    return ULONGLONG(info.st_size);
}

/// The position moves to the new end, as the platform's own function leaves it.
void CFile::SetLength(ULONGLONG length)
{
    if (length > ULONGLONG(INT64_MAX))
        AfxThrowFileException(CFileException::diskFull, LONG(ERROR_DISK_FULL), m_path);
    if (::ftruncate(m_descriptor, off_t(length)) != 0 || ::lseek(m_descriptor, off_t(length), SEEK_SET) < 0)
        ThrowSystemError();
}

void CFile::Flush() {} // every byte is with the system already

void CFile::Close()
{
    const int descriptor = m_descriptor;
    m_descriptor = -1; // whatever closing says, the system has let go of the number
    if (descriptor >= 0 && ::close(descriptor) != 0 && errno != EINTR)
        ThrowSystemError();
    m_path.Empty();
}

void CFile::Abort()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    m_descriptor = -1;
    m_path.Empty();
}

UINT CFile::GetBufferPtr(UINT, UINT, void**, void**)
{
    return 0;
}
