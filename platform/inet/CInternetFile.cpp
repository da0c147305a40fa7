#include "inet/CInternetFile.h"

#include "inet/CInternetException.h"
#include "inet/Transfer.h"

#include <algorithm>
#include <cstring>

CInternetFile::CInternetFile(std::unique_ptr<afx::Transfer> transfer, DWORD_PTR context, bool text)
    : m_transfer(std::move(transfer)), m_context(context), m_text(text)
{}

CInternetFile::~CInternetFile() = default;

void CInternetFile::Close()
{
    m_transfer.reset();
}

/// What has arrived and was not read yet, waiting for it when there is nothing; empty at the end.
std::string_view CInternetFile::Unread()
{
    if (!m_transfer)
        AfxThrowFileException(CFileException::invalidFile);
    if (m_position == m_transfer->Bytes().size()) {
        m_position = 0;
        if (const DWORD error = m_transfer->Fetch())
            AfxThrowInternetException(m_context, error);
    }
    return std::string_view(m_transfer->Bytes()).substr(m_position);
}

UINT CInternetFile::Read(void* bytes, UINT count)
{
    UINT done = 0;
    while (done < count) {
        const std::string_view unread = Unread();
        if (unread.empty())
            break;
        const size_t step = std::min(unread.size(), size_t(count - done));
        std::memcpy(static_cast<BYTE*>(bytes) + done, unread.data(), step);
        m_position += step;
        done += UINT(step);
    }
    return done;
}

BOOL CInternetFile::ReadString(CString& line)
{
    line.Empty();
    bool any = false;
    for (;;) {
        const std::string_view unread = Unread();
        if (unread.empty())
            return any; // a last line without a line feed: a carriage return at its end is content
        any = true;
        const size_t lineFeed = unread.find('\n');
        const size_t step = std::min(lineFeed, unread.size());
        line.Append(unread.data(), int(step));
        m_position += step;
        if (lineFeed == std::string_view::npos)
            continue;
        ++m_position;
        if (const int length = line.GetLength(); m_text && length > 0 && line[length - 1] == '\r')
            line.Delete(length - 1);
        return TRUE;
    }
}
