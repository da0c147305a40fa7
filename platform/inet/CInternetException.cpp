#include "inet/CInternetException.h"

#include <algorithm>
#include <cstring>

namespace {

LPCSTR SentenceOf(DWORD error)
{
    switch (error) {
    case ERROR_INTERNET_TIMEOUT:
        return "The server did not answer in time.";
    case ERROR_INTERNET_EXTENDED_ERROR:
        return "The server's answer cannot be understood.";
    case ERROR_INTERNET_INVALID_URL:
        return "The address is not valid.";
    case ERROR_INTERNET_UNRECOGNIZED_SCHEME:
        return "The address is of an unknown kind.";
    case ERROR_INTERNET_NAME_NOT_RESOLVED:
        return "The server's name is not known.";
    case ERROR_INTERNET_INCORRECT_HANDLE_STATE:
        return "The session is closed.";
    case ERROR_INTERNET_ITEM_NOT_FOUND:
        return "The file was not found.";
    case ERROR_INTERNET_CANNOT_CONNECT:
        return "The server cannot be reached.";
    case ERROR_INTERNET_CONNECTION_ABORTED:
        return "The content broke off before its end.";
    case ERROR_INTERNET_CONNECTION_RESET:
        return "The connection was lost.";
    case ERROR_INTERNET_INVALID_CA:
        return "The server's certificate is not trusted.";
    case ERROR_HTTP_REDIRECT_FAILED:
        return "The server passes the request on without end.";
    case ERROR_INTERNET_SECURITY_CHANNEL_ERROR:
        return "No secure connection to the server came about.";
    default:
        return "The internet cannot be used.";
    }
}

} // namespace

BOOL CInternetException::GetErrorMessage(LPTSTR text, UINT capacity, UINT* helpContext) const
{
    if (helpContext)
        *helpContext = 0;
    if (!text || capacity == 0)
        return FALSE;
    const LPCSTR sentence = SentenceOf(m_dwError);
    const size_t kept = std::min(std::strlen(sentence), size_t(capacity) - 1);
    std::memcpy(text, sentence, kept);
    text[kept] = 0;
    return kept > 0;
}

void AfxThrowInternetException(DWORD_PTR context, DWORD error)
{
    auto* exception = new CInternetException(error);
    exception->m_dwContext = context;
    throw exception;
}
