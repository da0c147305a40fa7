#include "base/CArchive.h"

#include "base/CFile.h"

#include <algorithm>
#include <cstdlib>
#include <typeinfo>

namespace {

// Below this a buffer gains nothing and could not even hold the largest number with room to spare.
constexpr int kLeastBuffer = 128;

} // namespace

CArchive::CArchive(CFile* file, UINT mode, int bufferSize, void* buffer)
    : m_file(file), m_bufferSize(size_t(std::max(bufferSize, kLeastBuffer))), m_mode(mode)
{
    if (!file)
        AfxThrowInvalidArgException();
    // A caller's buffer that is too small is left alone rather than overrun. Own buffers come from malloc: their bytes
    // are written before they are read, and clearing them would cost more than a short archive does.
    m_ownsBuffer = !buffer || bufferSize < kLeastBuffer;
    m_buffer = static_cast<BYTE*>(m_ownsBuffer ? std::malloc(m_bufferSize) : buffer);
    if (!m_buffer)
        AfxThrowMemoryException();
    // Not from a class that is derived from it, which may read in a way of its own.
    m_readsInPlace = IsLoading() && m_ownsBuffer && typeid(*file) == typeid(CMemFile);
    ResetPointers();
}

CArchive::~CArchive()
{
    // An archive is often destroyed because something else raised already; a second exception would end the process.
    if (!(m_mode & bNoFlushOnDelete)) {
        try {
            Close();
        } catch (CException* e) {
            e->Delete();
        } catch (...) {
        }
    }
    Abort();
}

/// An empty buffer: nothing read ahead, or all of it free to store into.
void CArchive::ResetPointers()
{
    if (IsStoring()) {
        m_storeNext = m_buffer;
        m_storeEnd = m_buffer + m_bufferSize;
    } else {
        m_loadNext = m_loadEnd = m_buffer;
    }
}

void CArchive::Throw(int cause) const
{
    AfxThrowArchiveException(cause, m_file ? m_file->GetFilePath().GetString() : nullptr);
}

void CArchive::RequireStoring() const
{
    if (IsLoading())
        Throw(CArchiveException::readOnly);
    if (!m_file)
        Throw(CArchiveException::genericException);
}

void CArchive::RequireLoading() const
{
    if (IsStoring())
        Throw(CArchiveException::writeOnly);
    if (!m_file)
        Throw(CArchiveException::genericException);
}

void CArchive::Flush()
{
    if (IsStoring()) {
        RequireStoring();
        WriteBuffer();
        m_file->Flush(); // a file with a buffer of its own passes the bytes on
    } else {
        RequireLoading();
        // The file stands where reading ahead left it; whoever reads it next expects it where the values ended.
        if (m_loadNext != m_loadEnd)
            m_file->Seek(m_loadNext - m_loadEnd, CFile::current);
        ResetPointers();
    }
}

void CArchive::Close()
{
    if (!m_file)
        return;
    Flush();
    Abort();
}

/// Without a buffer every fast path fails its test and ends in the checks, which then tell that the archive is closed.
void CArchive::Abort()
{
    if (m_ownsBuffer)
        std::free(m_buffer);
    m_ownsBuffer = false;
    m_file = nullptr;
    m_buffer = nullptr;
    m_storeNext = m_storeEnd = nullptr;
    m_loadNext = m_loadEnd = nullptr;
}

/// Hands the stored bytes to the file. When that raises they stay in the buffer, and the caller may try again or abort.
void CArchive::WriteBuffer()
{
    if (m_storeNext != m_buffer)
        m_file->Write(m_buffer, UINT(m_storeNext - m_buffer));
    ResetPointers();
}

/// The slow path of storing a number: there is no room, which is also how loading and closed archives arrive here.
void CArchive::MakeRoom()
{
    RequireStoring();
    WriteBuffer();
}

/// Reads ahead once: what is left, and behind it what the file gives, up to the buffer's size together. False at the
/// end of the file.
bool CArchive::ReadAhead()
{
    const size_t rest = size_t(m_loadEnd - m_loadNext);
    if (m_readsInPlace) {
        // The same bytes once more and those after them, and the file's position behind both, as if they were copied.
        void* start = nullptr;
        void* stop = nullptr;
        m_file->Seek(-LONGLONG(rest), CFile::current);
        const UINT count = m_file->GetBufferPtr(CFile::bufferRead, UINT(m_bufferSize), &start, &stop);
        m_loadNext = static_cast<const BYTE*>(start);
        m_loadEnd = static_cast<const BYTE*>(stop);
        return count > rest;
    }
    if (rest > 0)
        std::memmove(m_buffer, m_loadNext, rest);
    m_loadNext = m_buffer;
    m_loadEnd = m_buffer + rest;
    const UINT count = m_file->Read(m_buffer + rest, UINT(m_bufferSize - rest));
    m_loadEnd += count;
    return count > 0;
}

/// Reads ahead until there are `needed` bytes, at most the size of the buffer.
void CArchive::Fill(size_t needed)
{
    RequireLoading();
    while (size_t(m_loadEnd - m_loadNext) < needed) {
        if (!ReadAhead())
            Throw(CArchiveException::endOfFile); // the bytes of the number that are there stay unread
    }
}

UINT CArchive::Read(void* bytes, UINT count)
{
    RequireLoading();
    BYTE* to = static_cast<BYTE*>(bytes);
    UINT missing = count;
    // Files may answer with less than they were asked for, so the loop ends only when there is nothing at all.
    while (missing > 0) {
        if (m_loadNext == m_loadEnd && missing < m_bufferSize)
            ReadAhead();
        UINT got = UINT(std::min<size_t>(size_t(m_loadEnd - m_loadNext), missing));
        if (got > 0) {
            std::memcpy(to, m_loadNext, got);
            m_loadNext += got;
        } else if (missing >= m_bufferSize) {
            got = m_file->Read(to, missing); // what would fill the buffer anyway goes past it
        }
        if (got == 0)
            break;
        to += got;
        missing -= got;
    }
    return count - missing;
}

void CArchive::EnsureRead(void* bytes, UINT count)
{
    if (Read(bytes, count) < count)
        Throw(CArchiveException::endOfFile);
}

void CArchive::Write(const void* bytes, UINT count)
{
    RequireStoring();
    if (count > size_t(m_storeEnd - m_storeNext)) {
        WriteBuffer();
        if (count >= m_bufferSize) {
            m_file->Write(bytes, count); // the buffer is empty now, so nothing is overtaken
            return;
        }
    }
    if (count > 0) {
        std::memcpy(m_storeNext, bytes, count);
        m_storeNext += count;
    }
}

void CArchive::WriteCount(DWORD_PTR count)
{
    if (count < 0xFFFF) {
        *this << WORD(count);
        return;
    }
    *this << WORD(0xFFFF);
    if (count < 0xFFFFFFFF)
        *this << DWORD(count);
    else
        *this << DWORD(0xFFFFFFFF) << ULONGLONG(count);
}

DWORD_PTR CArchive::ReadCount()
{
    WORD count16;
    *this >> count16;
    if (count16 != 0xFFFF)
        return count16;
    DWORD count32;
    *this >> count32;
    if (count32 != 0xFFFFFFFF)
        return count32;
    ULONGLONG count64;
    *this >> count64;
    return DWORD_PTR(count64);
}

/// Any byte but 0 is true: a bool whose memory holds something else would not be a value of its type.
CArchive& CArchive::operator>>(bool& value)
{
    BYTE byte;
    *this >> byte;
    value = byte != 0;
    return *this;
}
