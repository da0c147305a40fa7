/// A session with the internet.
#pragma once

#include "base/CFile.h"

/// How a session gets out: as the system is set up, or directly.
constexpr DWORD INTERNET_OPEN_TYPE_PRECONFIG = 0;
constexpr DWORD INTERNET_OPEN_TYPE_DIRECT = 1;

// How content is transferred: as text, whose lines may end with a carriage return and a line feed, or byte by byte.
constexpr DWORD INTERNET_FLAG_TRANSFER_ASCII = 1;
constexpr DWORD INTERNET_FLAG_TRANSFER_BINARY = 2;

/// Opens URLs with the schemes http, https and file. Certificates are checked against the system's authorities.
/// Redirects are followed, ten at most, but never from https to http nor to a file. The system's proxy settings are the
/// environment variables `http_proxy`, `https_proxy`, `all_proxy` and `no_proxy`. An answer such as "404 Not Found" is
/// content like any other. A call that hears nothing from the server for a minute ends the transfer; how long the
/// caller waits between calls does not matter. Sessions share nothing, so each thread may use one of its own.
class KOLM_API CInternetSession : public CObject
{
public:
    /// `agent` names the program to the server; null or an empty name is not told. Proxy names have to be null and the
    /// flags 0, otherwise, or with another access type, the invalid-argument exception is raised.
    explicit CInternetSession(LPCTSTR agent = nullptr, DWORD_PTR context = 1,
                              DWORD accessType = INTERNET_OPEN_TYPE_PRECONFIG, LPCTSTR proxyName = nullptr,
                              LPCTSTR proxyBypass = nullptr, DWORD flags = 0);

    /// The content at the URL, which the caller deletes; the session may be closed before. Returns when the first bytes
    /// are there. What cannot be opened raises the internet exception; a URL without a scheme, or with a scheme that is
    /// not one of those above, cannot. Spaces and bytes of 128 and above are sent as "%20" and the like. `headers` has
    /// to be null with a length of 0.
    CStdioFile* OpenURL(LPCTSTR url, DWORD_PTR context = 1, DWORD flags = INTERNET_FLAG_TRANSFER_ASCII,
                        LPCTSTR headers = nullptr, DWORD headersLength = 0);

    /// No URL can be opened from now on.
    void Close() { m_open = false; }

private:
    CStdioFile* OpenWebPage(LPCTSTR url, DWORD_PTR context, bool text) const;

    CString m_agent;
    DWORD m_accessType;
    bool m_open = true;
};
