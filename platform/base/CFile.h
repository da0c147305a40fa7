/// Files: on disk without a buffer of their own, on disk through the C library's buffer, and in memory.
#pragma once

#include "base/CException.h"

#include <cstdio>

/// A file on disk. Reading and writing go straight to the system; CArchive brings the buffer. Failures raise
/// CFileException*, working on a file that is not open raises it with the cause invalidFile.
class KOLM_API CFile : public CObject
{
public:
    /// Flags of Open: one mode, then what may be added. Sharing is accepted and not enforced.
    enum OpenFlags
    {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeCreate = 0x1000,     ///< makes the file; an existing one is emptied
        modeNoTruncate = 0x2000, ///< with modeCreate: an existing file keeps its contents
        typeText = 0x4000,       ///< for CStdioFile
        typeBinary = 0x8000
    };
    /// Where Seek counts from.
    enum SeekPosition
    {
        begin,
        current,
        end
    };
    /// What GetBufferPtr is asked for.
    enum BufferCommand
    {
        bufferRead,
        bufferWrite,
        bufferCommit,
        bufferCheck
    };
    /// What GetBufferPtr answers to bufferCheck.
    enum BufferFlags
    {
        bufferDirect = 0x01,
        bufferBlocking = 0x02
    };

    CFile() = default;                   ///< not open
    CFile(LPCTSTR path, UINT openFlags); ///< open, or raises
    ~CFile() override;                   ///< closes the file; never raises

    /// 1 when open. On failure 0, and `error` (may be null) gets the cause. An open file is closed first. Directories
    /// are refused.
    virtual BOOL Open(LPCTSTR path, UINT openFlags, CFileException* error = nullptr);

    /// Up to `count` bytes; fewer only at the end of the file.
    virtual UINT Read(void* bytes, UINT count);
    /// All bytes, or raises (diskFull when there is no room).
    virtual void Write(const void* bytes, UINT count);

    /// Moves the position and returns it, in bytes from the start. Past the end is allowed; before the start raises
    /// badSeek and the position stays.
    virtual ULONGLONG Seek(LONGLONG offset, UINT from);
    void SeekToBegin() { Seek(0, begin); }
    ULONGLONG SeekToEnd() { return Seek(0, end); }
    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG GetLength() const; ///< in bytes, those included that a buffer still holds back
    /// Cuts the file or lengthens it with zeros. Files on disk then stand at their end.
    virtual void SetLength(ULONGLONG length);

    virtual void Flush(); ///< hands over what the file itself holds back
    virtual void Close(); ///< nothing when it is not open
    virtual void Abort(); ///< closes and never raises

    /// Direct access to the bytes, for files that have them in memory: see CMemFile. A file on disk answers 0.
    virtual UINT GetBufferPtr(UINT command, UINT count = 0, void** start = nullptr, void** stop = nullptr);

    const CString& GetFilePath() const { return m_path; } ///< as it was opened; empty when there is none

protected:
    [[noreturn]] void ThrowSystemError() const; ///< the file exception that errno stands for
    /// A descriptor of the system that the caller closes; -1 on failure, with the cause in `error` (may be null).
    static int OpenDescriptor(LPCTSTR path, UINT openFlags, CFileException* error);

    CString m_path;

private:
    int m_descriptor = -1; ///< the system's number of the open file
};

/// A file read and written by lines, through the C library's buffer. Text mode (the default) drops a carriage return
/// before a line feed in ReadString; everything else passes bytes as they are.
class KOLM_API CStdioFile : public CFile
{
public:
    CStdioFile() = default;                   ///< not open
    CStdioFile(LPCTSTR path, UINT openFlags); ///< open, or raises
    ~CStdioFile() override;                   ///< closes the file; never raises, so Close() is where a full disk shows

    BOOL Open(LPCTSTR path, UINT openFlags, CFileException* error = nullptr) override;
    UINT Read(void* bytes, UINT count) override;
    void Write(const void* bytes, UINT count) override;
    ULONGLONG Seek(LONGLONG offset, UINT from) override;
    ULONGLONG GetPosition() const override;
    ULONGLONG GetLength() const override;
    void SetLength(ULONGLONG length) override;
    void Flush() override;
    void Close() override;
    void Abort() override;

    /// The next line without its line feed; 0 and an empty line at the end of the file.
    virtual BOOL ReadString(CString& line);
    /// Writes the text up to its first zero byte and adds nothing.
    void WriteString(LPCTSTR text);

private:
    enum class Direction
    {
        None,
        Reading,
        Writing
    };
    FILE* Stream(Direction direction) const;

    FILE* m_stream = nullptr; ///< null while the file is not open
    mutable Direction m_direction = Direction::None;
    bool m_text = true;
};

/// A file in memory. Its own block grows by half or more at a time, so that writing n bytes costs time in proportion to
/// n; a gap left by seeking past the end reads as zeros. No memory raises CMemoryException*, and the file stays as it
/// was.
class KOLM_API CMemFile : public CFile
{
public:
    explicit CMemFile(UINT growBytes = 1024); ///< open and empty; grows in multiples of `growBytes`, with 0 never
    CMemFile(BYTE* block, UINT size, UINT growBytes = 0);
    ~CMemFile() override; ///< frees the file's own block, never an attached one

    /// Works on the caller's block, which stays the caller's. With growBytes 0 the file is the block's contents and
    /// cannot grow. Otherwise the block has to come from malloc, the file is empty at first, and the block may move
    /// when the file grows: Detach tells where it is.
    void Attach(BYTE* block, UINT size, UINT growBytes = 0);

    /// Gives the block to the caller, who frees it with free() when the file had made or grown it. The file is then
    /// empty. Null when there is no block.
    BYTE* Detach();

    BOOL Open(LPCTSTR path, UINT openFlags, CFileException* error = nullptr) override; ///< refused: it has no path
    UINT Read(void* bytes, UINT count) override;
    void Write(const void* bytes, UINT count) override;
    ULONGLONG Seek(LONGLONG offset, UINT from) override;
    ULONGLONG GetPosition() const override { return m_position; }
    ULONGLONG GetLength() const override { return m_length; }
    void SetLength(ULONGLONG length) override;
    void Flush() override {}
    void Close() override; ///< empties the file
    void Abort() override { Close(); }

    /// bufferCheck: bufferDirect. bufferRead: `start` and `stop` enclose up to `count` bytes from the position on,
    /// which moves behind them. bufferWrite: they enclose `count` bytes to write into, made if need be; bufferCommit
    /// then moves the position by `count` and makes those bytes part of the file (more than were offered raises).
    /// Returns the number of bytes enclosed or committed. The pointers hold until the next call that writes.
    UINT GetBufferPtr(UINT command, UINT count = 0, void** start = nullptr, void** stop = nullptr) override;

private:
    void Reserve(ULONGLONG size);
    void ClearGap();

    BYTE* m_block = nullptr;
    ULONGLONG m_capacity = 0;
    ULONGLONG m_length = 0;
    ULONGLONG m_position = 0; ///< may lie past the end
    UINT m_growBytes;
    bool m_ownsBlock = true;
};
