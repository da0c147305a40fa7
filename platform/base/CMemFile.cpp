#include "base/CFile.h"

#include "base/CArray.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

CMemFile::CMemFile(UINT growBytes) : m_growBytes(growBytes) {}

CMemFile::CMemFile(BYTE* block, UINT size, UINT growBytes) : m_growBytes(growBytes)
{
    Attach(block, size, growBytes);
}

CMemFile::~CMemFile()
{
    CMemFile::Close();
}

void CMemFile::Attach(BYTE* block, UINT size, UINT growBytes)
{
    CMemFile::Close();
    m_block = block;
    m_capacity = block ? size : 0;
    m_length = growBytes == 0 ? m_capacity : 0; // contents to read, or only room to write into
    m_growBytes = growBytes;
    m_ownsBlock = false;
}

BYTE* CMemFile::Detach()
{
    BYTE* block = m_block;
    m_block = nullptr;
    m_capacity = m_length = m_position = 0;
    return block;
}

BOOL CMemFile::Open(LPCTSTR path, UINT, CFileException* error)
{
    if (error) {
        error->m_cause = CFileException::badPath;
        error->m_lOsError = -1;
        error->m_strFileName = path;
    }
    return FALSE;
}

/// Makes the block at least `size` bytes large. The file itself does not change.
void CMemFile::Reserve(ULONGLONG size)
{
    if (size <= m_capacity)
        return;
    if (m_growBytes == 0 || size > ULONGLONG(PTRDIFF_MAX) - m_growBytes)
        AfxThrowMemoryException();
    // Half as much again at least: with a fixed step, writing n bytes would copy in proportion to n squared.
    const ULONGLONG multiple = (size + m_growBytes - 1) / m_growBytes * m_growBytes;
    const ULONGLONG capacity = std::max(multiple, m_capacity + m_capacity / 2);
    m_block = static_cast<BYTE*>(afx::ReallocateArray(m_block, INT_PTR(capacity), 1));
    m_capacity = capacity;
}

/// Seeking past the end and writing there leaves a gap, which reads as zeros.
void CMemFile::ClearGap()
{
    if (m_position > m_length)
        std::memset(m_block + m_length, 0, size_t(m_position - m_length));
}

UINT CMemFile::Read(void* bytes, UINT count)
{
    if (m_position >= m_length)
        return 0;
    const UINT got = UINT(std::min<ULONGLONG>(count, m_length - m_position));
    std::memcpy(bytes, m_block + m_position, got);
    m_position += got;
    return got;
}

void CMemFile::Write(const void* bytes, UINT count)
{
    if (count == 0)
        return;
    Reserve(m_position + count); // raises before anything has changed
    ClearGap();
    std::memcpy(m_block + m_position, bytes, count);
    m_position += count;
    m_length = std::max(m_length, m_position);
}

ULONGLONG CMemFile::Seek(LONGLONG offset, UINT from)
{
    // Positions stay below half of the 64-bit range, so the sum cannot wrap twice.
    const ULONGLONG base = from == begin ? 0 : from == current ? m_position : m_length;
    const ULONGLONG position = base + ULONGLONG(offset);
    if (position > ULONGLONG(INT64_MAX))
        AfxThrowFileException(CFileException::badSeek);
    m_position = position;
    return m_position;
}

void CMemFile::SetLength(ULONGLONG length)
{
    Reserve(length);
    if (length > m_length)
        std::memset(m_block + m_length, 0, size_t(length - m_length));
    m_length = length;
    m_position = std::min(m_position, length);
}

void CMemFile::Close()
{
    BYTE* block = Detach();
    if (m_ownsBlock)
        std::free(block);
}

UINT CMemFile::GetBufferPtr(UINT command, UINT count, void** start, void** stop)
{
    switch (command) {
    case bufferCheck:
        return bufferDirect;
    case bufferCommit:
        // Only bytes that a bufferWrite made room for can have been written.
        if (count > m_capacity - std::min(m_position, m_capacity))
            AfxThrowInvalidArgException();
        if (count == 0)
            return 0; // a position past the end does not lengthen the file by itself
        ClearGap();
        m_position += count;
        m_length = std::max(m_length, m_position);
        return count;
    case bufferRead: {
        const UINT got = m_position < m_length ? UINT(std::min<ULONGLONG>(count, m_length - m_position)) : 0;
        if (start && stop) {
            *start = got > 0 ? m_block + m_position : m_block;
            *stop = static_cast<BYTE*>(*start) + got;
        }
        m_position += got;
        return got;
    }
    case bufferWrite:
        Reserve(m_position + count);
        ClearGap();
        if (start && stop) {
            *start = m_block + m_position;
            *stop = m_block + m_position + count;
        }
        return count;
    default:
        AfxThrowInvalidArgException();
    }
}
