/// The content of a URL, read as it arrives.
#pragma once

#include "base/CFile.h"

#include <memory>
#include <string_view>

namespace afx {
class Transfer;
}

/// Content that a session has opened. It can be read once, from its start to its end; positions, lengths and writing
/// are refused with the not-supported exception, a second opening with 0. What arrives is handed on without being kept,
/// so content of any size takes little memory. When it breaks off, all that arrived before can be read, and the read
/// that needs more raises the internet exception, as does every later one.
class KOLM_API CInternetFile : public CStdioFile
{
public:
    ~CInternetFile() override; ///< closes

    BOOL Open(LPCTSTR, UINT, CFileException* = nullptr) override { return FALSE; }

    /// Up to `count` bytes, fewer only at the end of the content.
    UINT Read(void* bytes, UINT count) override;
    /// The next line without its line feed; 0 and an empty line at the end. In a text transfer the carriage return
    /// right before the line feed goes too.
    BOOL ReadString(CString& line) override;

    /// Lets the connection go, also in the middle of the content. Reading then raises the file exception invalidFile.
    void Close() override;
    void Abort() override { Close(); }
    void Flush() override {}

    void Write(const void*, UINT) override { AfxThrowNotSupportedException(); }
    ULONGLONG Seek(LONGLONG, UINT) override { AfxThrowNotSupportedException(); }
    ULONGLONG GetPosition() const override { AfxThrowNotSupportedException(); }
    ULONGLONG GetLength() const override { AfxThrowNotSupportedException(); }
    void SetLength(ULONGLONG) override { AfxThrowNotSupportedException(); }

private:
    friend class CInternetSession;
    CInternetFile(std::unique_ptr<afx::Transfer> transfer, DWORD_PTR context, bool text);
    std::string_view Unread();

    std::unique_ptr<afx::Transfer> m_transfer; ///< null when closed
    size_t m_position = 0;                     ///< in the bytes that have arrived: those before it were read
    DWORD_PTR m_context;
    bool m_text;
};
