/// Archives: binary streams of numbers and texts over a file, buffered, little-endian, without padding.
#pragma once

#include "base/CException.h"

#include <cstring>

class CFile;

#if defined(__BYTE_ORDER__)
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "archives copy numbers as they lie in memory");
#endif

/// Stores to a file or loads from it; one or the other for its life. The file stays the caller's and has to outlive
/// the archive. While the archive is open it holds bytes back (storing) or has read ahead (loading); Flush and Close
/// bring the file's position to where the values end. Values of a CMemFile are loaded from where they lie in its block,
/// unless the caller gave a buffer: until the archive is closed or flushed, the file keeps its bytes as they are.
///
/// Storing into a loading archive raises CArchiveException* readOnly, loading from a storing one writeOnly, both on a
/// closed one genericException; loading past the end raises endOfFile. Failures of the file below pass through.
class KOLM_API CArchive
{
public:
    enum Mode
    {
        store = 0,
        load = 1,
        bNoFlushOnDelete = 2, ///< the destructor discards what was not flushed
        bNoByteSwap = 4       ///< accepted; no archive swaps bytes here
    };

    /// `buffer` (may be null) is used instead of an own one when it has 128 bytes or more, and stays the caller's.
    CArchive(CFile* file, UINT mode, int bufferSize = 65536, void* buffer = nullptr);
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;
    /// Closes the archive and swallows what goes wrong; call Close() first to learn of a full disk.
    ~CArchive();

    int IsLoading() const { return (m_mode & load) != 0; }
    int IsStoring() const { return (m_mode & load) == 0; }
    CFile* GetFile() const { return m_file; } ///< null once closed

    void Flush(); ///< storing: writes what is held back. Loading: gives back what was read ahead
    void Close(); ///< flushes and lets go of the file; nothing the second time. When flushing raises it stays open
    void Abort(); ///< lets go of the file without flushing; never raises

    UINT Read(void* bytes, UINT count);       ///< up to `count` bytes, fewer only at the end
    void EnsureRead(void* bytes, UINT count); ///< all of them, or raises endOfFile
    void Write(const void* bytes, UINT count);

    /// Counts of lists: a WORD, from 0xFFFF on 0xFFFF and a DWORD, from 0xFFFFFFFF on both and 64 bits. A count that
    /// was read is a claim: grow as the elements arrive.
    void WriteCount(DWORD_PTR count);
    DWORD_PTR ReadCount();

    /// @name Numbers, in the width of their type. A bool takes one byte, 0 or 1. A plain long has its width in memory;
    /// say LONG or LONGLONG where the bytes have to be the same everywhere.
    /// @{
    CArchive& operator<<(bool value) { return Put(BYTE(value ? 1 : 0)); }
    CArchive& operator<<(char value) { return Put(value); }
    CArchive& operator<<(signed char value) { return Put(value); }
    CArchive& operator<<(unsigned char value) { return Put(value); }
    CArchive& operator<<(short value) { return Put(value); }
    CArchive& operator<<(unsigned short value) { return Put(value); }
    CArchive& operator<<(int value) { return Put(value); }
    CArchive& operator<<(unsigned int value) { return Put(value); }
    CArchive& operator<<(long value) { return Put(value); }
    CArchive& operator<<(unsigned long value) { return Put(value); }
    CArchive& operator<<(long long value) { return Put(value); }
    CArchive& operator<<(unsigned long long value) { return Put(value); }
    CArchive& operator<<(float value) { return Put(value); }
    CArchive& operator<<(double value) { return Put(value); }
    CArchive& operator<<(const void*) = delete; ///< a pointer, a literal too, would go as a bool

    CArchive& operator>>(bool& value);
    CArchive& operator>>(char& value) { return Get(value); }
    CArchive& operator>>(signed char& value) { return Get(value); }
    CArchive& operator>>(unsigned char& value) { return Get(value); }
    CArchive& operator>>(short& value) { return Get(value); }
    CArchive& operator>>(unsigned short& value) { return Get(value); }
    CArchive& operator>>(int& value) { return Get(value); }
    CArchive& operator>>(unsigned int& value) { return Get(value); }
    CArchive& operator>>(long& value) { return Get(value); }
    CArchive& operator>>(unsigned long& value) { return Get(value); }
    CArchive& operator>>(long long& value) { return Get(value); }
    CArchive& operator>>(unsigned long long& value) { return Get(value); }
    CArchive& operator>>(float& value) { return Get(value); }
    CArchive& operator>>(double& value) { return Get(value); }
    /// @}

private:
    template <class T>
    CArchive& Put(T value)
    {
        // Only a storing archive has room between the two pointers, so this one test also guards the mode.
        if (size_t(m_storeEnd - m_storeNext) < sizeof value)
            MakeRoom();
        std::memcpy(m_storeNext, &value, sizeof value);
        m_storeNext += sizeof value;
        return *this;
    }

    template <class T>
    CArchive& Get(T& value)
    {
        if (size_t(m_loadEnd - m_loadNext) < sizeof value)
            Fill(sizeof value);
        // By way of a local: bytes copied straight into the caller's number could lie anywhere for the compiler, which
        // would read both pointers anew for every number of a record.
        T loaded;
        std::memcpy(&loaded, m_loadNext, sizeof loaded);
        m_loadNext += sizeof loaded;
        value = loaded;
        return *this;
    }

    // The slow paths: checks that tell why the fast ones found no room, and traffic with the file.
    void RequireStoring() const;
    void RequireLoading() const;
    [[noreturn]] void Throw(int cause) const;
    void WriteBuffer();
    void MakeRoom();
    bool ReadAhead();
    void Fill(size_t needed);
    void ResetPointers();

    // Bytes stored so far end at m_storeNext, bytes to load begin at m_loadNext. The pair of the other direction is
    // null, both are once the archive is closed.
    BYTE* m_storeNext = nullptr;
    BYTE* m_storeEnd = nullptr;
    const BYTE* m_loadNext = nullptr;
    const BYTE* m_loadEnd = nullptr;

    CFile* m_file;
    BYTE* m_buffer = nullptr;
    size_t m_bufferSize;
    UINT m_mode;
    bool m_ownsBuffer = false;
    bool m_readsInPlace = false; ///< m_loadNext and m_loadEnd lie in the block of a CMemFile
};

/// A text as AfxWriteStringLength announces it, narrow, then its bytes.
KOLM_API CArchive& operator<<(CArchive& ar, const CString& text);

/// Reads a narrow or a wide text; wide ones become UTF-8, with U+FFFD for a surrogate without its partner. `text`
/// changes only when the whole of it was there. Memory grows with the bytes that arrive, whatever length was promised.
KOLM_API CArchive& operator>>(CArchive& ar, CString& text);

/// The length of a text in characters, before its characters: below 255 a byte; below 0xFFFE the byte 0xFF and a WORD;
/// below 0xFFFFFFFF the byte 0xFF, the WORD 0xFFFF and a DWORD; else these with all bits set and 64 bits. The byte 0xFF
/// and the WORD 0xFFFE before it announce two-byte characters.
KOLM_API void AfxWriteStringLength(CArchive& ar, UINT_PTR length, BOOL unicode);

/// Reads such a length; `charSize` becomes 1 or 2. The length is a claim: read the characters in steps.
KOLM_API UINT_PTR AfxReadStringLength(CArchive& ar, int& charSize);
