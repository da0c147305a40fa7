#include "inet/CInternetSession.h"

#include "inet/CInternetException.h"
#include "inet/CInternetFile.h"
#include "inet/Transfer.h"

namespace {

/// A URL taken apart, with what may not stand in one encoded.
class Url
{
public:
    /// 0, or the reason why the text is no URL.
    DWORD Parse(LPCTSTR text)
    {
        m_url.reset(curl_url());
        if (!m_url)
            AfxThrowMemoryException();
        switch (curl_url_set(m_url.get(), CURLUPART_URL, text ? text : "", CURLU_URLENCODE | CURLU_ALLOW_SPACE)) {
        case CURLUE_OK:
            return 0;
        case CURLUE_OUT_OF_MEMORY:
            AfxThrowMemoryException();
        case CURLUE_BAD_SCHEME:
        case CURLUE_UNSUPPORTED_SCHEME:
            return ERROR_INTERNET_UNRECOGNIZED_SCHEME;
        default:
            return ERROR_INTERNET_INVALID_URL;
        }
    }

    /// Empty when there is no such part.
    CString Part(CURLUPart part, unsigned flags = 0) const
    {
        char* text = nullptr;
        if (curl_url_get(m_url.get(), part, &text, flags) != CURLUE_OK)
            return CString();
        const std::unique_ptr<char, void (*)(void*)> owner(text, &curl_free);
        return CString(text);
    }

private:
    struct Cleanup
    {
        void operator()(CURLU* url) const { curl_url_cleanup(url); }
    };
    std::unique_ptr<CURLU, Cleanup> m_url;
};

CStdioFile* OpenLocalFile(const CString& path, DWORD_PTR context, bool text)
{
    auto file = std::make_unique<CStdioFile>();
    if (!file->Open(path, CFile::modeRead | (text ? CFile::typeText : CFile::typeBinary)))
        AfxThrowInternetException(context, ERROR_INTERNET_ITEM_NOT_FOUND);
    return file.release();
}

} // namespace

CInternetSession::CInternetSession(LPCTSTR agent, DWORD_PTR, DWORD accessType, LPCTSTR proxyName, LPCTSTR proxyBypass,
                                   DWORD flags)
    : m_agent(agent), m_accessType(accessType)
{
    const bool known = accessType == INTERNET_OPEN_TYPE_PRECONFIG || accessType == INTERNET_OPEN_TYPE_DIRECT;
    if (!known || proxyName || proxyBypass || flags != 0)
        AfxThrowInvalidArgException();
}

CStdioFile* CInternetSession::OpenURL(LPCTSTR url, DWORD_PTR context, DWORD flags, LPCTSTR headers, DWORD headersLength)
{
    if (headers || headersLength != 0)
        AfxThrowInvalidArgException();
    if (!m_open)
        AfxThrowInternetException(context, ERROR_INTERNET_INCORRECT_HANDLE_STATE);
    Url parsed;
    if (const DWORD error = parsed.Parse(url))
        AfxThrowInternetException(context, error);
    const bool text = (flags & INTERNET_FLAG_TRANSFER_BINARY) == 0;
    const CString scheme = parsed.Part(CURLUPART_SCHEME); // in lower case
    if (scheme == "file")
        return OpenLocalFile(parsed.Part(CURLUPART_PATH, CURLU_URLDECODE), context, text);
    if (scheme != "http" && scheme != "https")
        AfxThrowInternetException(context, ERROR_INTERNET_UNRECOGNIZED_SCHEME);
    return OpenWebPage(parsed.Part(CURLUPART_URL), context, text);
}

CStdioFile* CInternetSession::OpenWebPage(LPCTSTR url, DWORD_PTR context, bool text) const
{
    const bool direct = m_accessType == INTERNET_OPEN_TYPE_DIRECT;
    auto transfer = std::make_unique<afx::Transfer>(afx::Transfer::Request{url, m_agent, direct});
    if (const DWORD error = transfer->Open())
        AfxThrowInternetException(context, error);
    return new CInternetFile(std::move(transfer), context, text);
}
