#include "base/CFile.h"

#include "base/winkernel.h"

#include <cerrno>
#include <cstring>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

CStdioFile::CStdioFile(LPCTSTR path, UINT openFlags)
{
    auto error = std::make_unique<CFileException>();
    if (!CStdioFile::Open(path, openFlags, error.get()))
        throw error.release();
}

CStdioFile::~CStdioFile()
{
    CStdioFile::Abort();
}

BOOL CStdioFile::Open(LPCTSTR path, UINT openFlags, CFileException* error)
{
    const CString name(path);
    CStdioFile::Abort();
    const int descriptor = OpenDescriptor(name, openFlags, error);
    if (descriptor < 0)
        return FALSE;
    // The descriptor was opened with the flags of Open and emptied or not by them; these modes never empty a file.
    const UINT mode = openFlags & 3;
    m_stream = ::fdopen(descriptor, mode == modeRead ? "rb" : mode == modeWrite ? "wb" : "r+b");
    if (!m_stream) {
        ::close(descriptor);
        if (error) {
            error->m_cause = CFileException::genericException;
            error->m_strFileName = name;
        }
        return FALSE;
    }
    m_path = name;
    m_text = !(openFlags & typeBinary);
    return TRUE;
}

/// The stream, ready for a direction: the C library wants a move of the position between reading and writing.
FILE* CStdioFile::Stream(Direction direction) const
{
    if (!m_stream) {
        errno = EBADF;
        ThrowSystemError();
    }
    if (direction != m_direction && m_direction != Direction::None && direction != Direction::None)
        std::fseek(m_stream, 0, SEEK_CUR);
    if (direction != Direction::None)
        m_direction = direction;
    return m_stream;
}

UINT CStdioFile::Read(void* bytes, UINT count)
{
    FILE* stream = Stream(Direction::Reading);
    std::clearerr(stream); // an end that was met before may have moved since
    const size_t got = std::fread(bytes, 1, count, stream);
    if (got < count && std::ferror(stream))
        ThrowSystemError();
    return UINT(got);
}

void CStdioFile::Write(const void* bytes, UINT count)
{
    FILE* stream = Stream(Direction::Writing);
    if (std::fwrite(bytes, 1, count, stream) != count)
        ThrowSystemError();
}

ULONGLONG CStdioFile::Seek(LONGLONG offset, UINT from)
{
    FILE* stream = Stream(Direction::None);
    const int whence = from == begin ? SEEK_SET : from == current ? SEEK_CUR : SEEK_END;
    if (::fseeko(stream, offset, whence) != 0)
        AfxThrowFileException(CFileException::badSeek, -1, m_path);
    m_direction = Direction::None;
    return GetPosition();
}

ULONGLONG CStdioFile::GetPosition() const
{
    const off_t position = ::ftello(Stream(Direction::None));
    if (position < 0)
        ThrowSystemError();
    return ULONGLONG(position);
}

ULONGLONG CStdioFile::GetLength() const
{
    FILE* stream = Stream(Direction::None);
    struct stat info;
    if (m_direction == Direction::Writing)
        std::fflush(stream); // bytes in the buffer count as well
    if (::fstat(::fileno(stream), &info) != 0)
        ThrowSystemError();
    return ULONGLONG(info.st_size);
}

void CStdioFile::SetLength(ULONGLONG length)
{
    Flush(); // bytes that wait in the buffer would be written behind the cut
    if (length > ULONGLONG(INT64_MAX))
        AfxThrowFileException(CFileException::diskFull, LONG(ERROR_DISK_FULL), m_path);
    if (::ftruncate(::fileno(m_stream), off_t(length)) != 0)
        ThrowSystemError();
    Seek(LONGLONG(length), begin);
}

void CStdioFile::Flush()
{
    FILE* stream = Stream(Direction::None);
    if (m_direction == Direction::Writing && std::fflush(stream) != 0)
        ThrowSystemError();
}

void CStdioFile::Close()
{
    FILE* stream = m_stream;
    m_stream = nullptr; // closed even when the last bytes cannot be written
    m_direction = Direction::None;
    if (stream && std::fclose(stream) != 0) // the last bytes are written here, so this is where a full disk shows
        ThrowSystemError();
    m_path.Empty();
}

void CStdioFile::Abort()
{
    if (m_stream)
        std::fclose(m_stream);
    m_stream = nullptr;
    m_direction = Direction::None;
    m_path.Empty();
}

BOOL CStdioFile::ReadString(CString& line)
{
    FILE* stream = Stream(Direction::Reading);
    std::clearerr(stream);
    line.Empty();
    int ch;
    bool any = false;
    while ((ch = std::getc(stream)) != EOF) {
        any = true;
        if (ch == '\n')
            break;
        line.AppendChar(char(ch));
    }
    if (ch == EOF && std::ferror(stream))
        ThrowSystemError();
    // Only the one before the line feed belongs to the line's end; others are contents.
    if (m_text && ch == '\n')
        if (const int length = line.GetLength(); length > 0 && line[length - 1] == '\r')
            line.Delete(length - 1);
    return any;
}

void CStdioFile::WriteString(LPCTSTR text)
{
    if (text)
        Write(text, UINT(std::strlen(text)));
}
