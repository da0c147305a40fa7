/// What the internet session raises, by pointer like all exceptions of the platform.
#pragma once

#include "base/CException.h"

// Reasons that the session tells apart.
constexpr DWORD ERROR_INTERNET_TIMEOUT = 12002;
constexpr DWORD ERROR_INTERNET_EXTENDED_ERROR = 12003; ///< the server broke the protocol's rules
constexpr DWORD ERROR_INTERNET_INTERNAL_ERROR = 12004;
constexpr DWORD ERROR_INTERNET_INVALID_URL = 12005;
constexpr DWORD ERROR_INTERNET_UNRECOGNIZED_SCHEME = 12006;
constexpr DWORD ERROR_INTERNET_NAME_NOT_RESOLVED = 12007;
constexpr DWORD ERROR_INTERNET_INCORRECT_HANDLE_STATE = 12019; ///< the session is closed
constexpr DWORD ERROR_INTERNET_ITEM_NOT_FOUND = 12028;         ///< of a file on this machine
constexpr DWORD ERROR_INTERNET_CANNOT_CONNECT = 12029;
constexpr DWORD ERROR_INTERNET_CONNECTION_ABORTED = 12030; ///< the content broke off
constexpr DWORD ERROR_INTERNET_CONNECTION_RESET = 12031;
constexpr DWORD ERROR_INTERNET_INVALID_CA = 12045; ///< the server's certificate is not trusted
constexpr DWORD ERROR_HTTP_REDIRECT_FAILED = 12156;
constexpr DWORD ERROR_INTERNET_SECURITY_CHANNEL_ERROR = 12157;

/// A URL that cannot be opened or whose content breaks off.
class KOLM_API CInternetException : public CException
{
public:
    explicit CInternetException(DWORD error) : m_dwError(error) {}
    BOOL GetErrorMessage(LPTSTR text, UINT capacity, UINT* helpContext = nullptr) const override;

    DWORD m_dwError;           ///< one of the reasons above
    DWORD_PTR m_dwContext = 1; ///< as it was passed when the URL was opened
};

[[noreturn]] KOLM_API void AfxThrowInternetException(DWORD_PTR context, DWORD error);
