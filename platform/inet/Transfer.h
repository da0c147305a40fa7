#pragma once

#include "base/wintypes.h"

#include <curl/curl.h>

#include <chrono>
#include <memory>
#include <string>

namespace afx {

/// One download. The library below pushes bytes into a callback; this turns it around, so that whoever reads asks for
/// more. The bytes that have arrived stand in Bytes() until the next call of Fetch(), and no more are asked for
/// before that. Used by one thread at a time.
class Transfer
{
public:
    struct Request
    {
        const char* url;
        const char* agent; ///< names the program to the server; empty is not told
        bool direct;       ///< passes the system's proxies by
    };

    /// Nothing is sent yet; the request's texts are copied.
    explicit Transfer(const Request& request);
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;
    ~Transfer();

    /// Waits until the content begins. 0, or the reason why there is none.
    DWORD Open();

    /// Waits for bytes that follow those of Bytes() and puts them in their place. 0 with no bytes is the end; otherwise
    /// the reason why the content broke off. Raises the memory exception when there is no room.
    DWORD Fetch();

    const std::string& Bytes() const { return m_bytes; }

private:
    using Clock = std::chrono::steady_clock;

    static size_t OnBytes(char* bytes, size_t size, size_t count, void* self);
    static size_t OnHeader(char* line, size_t size, size_t count, void* self);
    void SetOptions(const Request& request);
    void StayChecked();
    void Step();
    void Finish(CURLcode result);
    bool HasBegun() const { return m_headersComplete || !m_bytes.empty(); }

    struct EasyCleanup
    {
        void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
    };
    struct MultiCleanup
    {
        void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
    };

    std::unique_ptr<CURLM, MultiCleanup> m_multi;
    std::unique_ptr<CURL, EasyCleanup> m_easy;
    std::string m_bytes;
    Clock::time_point m_lastHeard;  ///< when something arrived, or the wait for it began
    bool m_location = false;        ///< the answer at hand names another place
    bool m_headersComplete = false; ///< of the last answer: what follows is content
    bool m_outOfMemory = false;     ///< in a callback, which must not let exceptions through
    bool m_done = false;
    CURLcode m_result = CURLE_OK; ///< once done
};

} // namespace afx
