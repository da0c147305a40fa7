#include "inet/Transfer.h"

#include "base/CException.h"
#include "inet/CInternetException.h"

#include <new>
#include <string_view>
#include <strings.h>

namespace afx {

namespace {

constexpr long kMostRedirects = 10;
constexpr std::chrono::seconds kMostSilence(60);
constexpr int kPollMilliseconds = 1000; // the library wakes up earlier for its own timers

DWORD ReasonOf(CURLcode code)
{
    switch (code) {
    case CURLE_OK:
        return 0;
    case CURLE_URL_MALFORMAT:
        return ERROR_INTERNET_INVALID_URL;
    case CURLE_UNSUPPORTED_PROTOCOL:
        return ERROR_INTERNET_UNRECOGNIZED_SCHEME;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
        return ERROR_INTERNET_NAME_NOT_RESOLVED;
    case CURLE_COULDNT_CONNECT:
        return ERROR_INTERNET_CANNOT_CONNECT;
    case CURLE_OPERATION_TIMEDOUT:
        return ERROR_INTERNET_TIMEOUT;
    case CURLE_TOO_MANY_REDIRECTS:
        return ERROR_HTTP_REDIRECT_FAILED;
    case CURLE_PEER_FAILED_VERIFICATION:
        return ERROR_INTERNET_INVALID_CA;
    case CURLE_SSL_CONNECT_ERROR:
        return ERROR_INTERNET_SECURITY_CHANNEL_ERROR;
    case CURLE_PARTIAL_FILE:
    case CURLE_GOT_NOTHING:
        return ERROR_INTERNET_CONNECTION_ABORTED;
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
        return ERROR_INTERNET_CONNECTION_RESET;
    case CURLE_WEIRD_SERVER_REPLY:
        return ERROR_INTERNET_EXTENDED_ERROR;
    default:
        return ERROR_INTERNET_INTERNAL_ERROR;
    }
}

bool StartsWith(std::string_view line, std::string_view start)
{
    return line.size() >= start.size() && ::strncasecmp(line.data(), start.data(), start.size()) == 0;
}

} // namespace

Transfer::Transfer(const Request& request)
{
    static const CURLcode initialized = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (initialized != CURLE_OK)
        AfxThrowInternetException(1, ERROR_INTERNET_INTERNAL_ERROR);
    m_multi.reset(curl_multi_init());
    m_easy.reset(curl_easy_init());
    if (!m_multi || !m_easy)
        AfxThrowMemoryException();
    SetOptions(request);
    if (curl_multi_add_handle(m_multi.get(), m_easy.get()) != CURLM_OK)
        AfxThrowMemoryException();
}

Transfer::~Transfer()
{
    if (m_multi && m_easy)
        curl_multi_remove_handle(m_multi.get(), m_easy.get()); // before either is cleaned up
}

void Transfer::SetOptions(const Request& request)
{
    CURL* const easy = m_easy.get();
    curl_easy_setopt(easy, CURLOPT_URL, request.url);
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L); // signals belong to the host
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(easy, CURLOPT_REDIR_PROTOCOLS_STR, "http,https"); // less once one of them is https
    curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(easy, CURLOPT_MAXREDIRS, kMostRedirects);
    curl_easy_setopt(easy, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L); // a proxy's word is not the answer's beginning
    if (*request.agent)
        curl_easy_setopt(easy, CURLOPT_USERAGENT, request.agent);
    if (request.direct)
        curl_easy_setopt(easy, CURLOPT_PROXY, "");
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &Transfer::OnBytes);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
    curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &Transfer::OnHeader);
    curl_easy_setopt(easy, CURLOPT_HEADERDATA, this);
}

DWORD Transfer::Open()
{
    m_lastHeard = Clock::now();
    while (!m_done && !HasBegun())
        Step();
    return HasBegun() ? 0 : ReasonOf(m_result);
}

DWORD Transfer::Fetch()
{
    m_bytes.clear();
    m_lastHeard = Clock::now(); // the library's own limits would count the time that the reader was away
    while (!m_done && m_bytes.empty())
        Step();
    if (m_outOfMemory)
        AfxThrowMemoryException();
    return m_bytes.empty() ? ReasonOf(m_result) : 0;
}

/// Works on what has arrived. When that brings nothing to read, waits for the network, unless it was silent for long.
void Transfer::Step()
{
    const size_t before = m_bytes.size();
    int running = 0;
    CURLMcode code = curl_multi_perform(m_multi.get(), &running);
    if (code == CURLM_OK && running > 0 && m_bytes.size() == before) {
        if (Clock::now() - m_lastHeard > kMostSilence)
            return Finish(CURLE_OPERATION_TIMEDOUT);
        code = curl_multi_poll(m_multi.get(), nullptr, 0, kPollMilliseconds, nullptr);
    }
    if (code != CURLM_OK)
        return Finish(CURLE_FAILED_INIT);
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(m_multi.get(), &left)) {
        if (message->msg == CURLMSG_DONE)
            Finish(message->data.result);
    }
}

void Transfer::Finish(CURLcode result)
{
    m_done = true;
    m_result = result;
}

size_t Transfer::OnBytes(char* bytes, size_t size, size_t count, void* self)
{
    Transfer& transfer = *static_cast<Transfer*>(self);
    transfer.m_lastHeard = Clock::now();
    try {
        transfer.m_bytes.append(bytes, size * count);
    } catch (const std::bad_alloc&) {
        transfer.m_outOfMemory = true;
        return 0; // ends the transfer
    }
    return size * count;
}

/// Answers come one after another: "100 Continue", redirects, the last one. Content begins after the headers of an
/// answer that is none of the former.
size_t Transfer::OnHeader(char* line, size_t size, size_t count, void* self)
{
    Transfer& transfer = *static_cast<Transfer*>(self);
    transfer.m_lastHeard = Clock::now();
    const std::string_view header(line, size * count);
    if (StartsWith(header, "HTTP/")) {
        transfer.m_location = false;
    } else if (StartsWith(header, "location:")) {
        transfer.m_location = true;
    } else if (header == "\r\n" || header == "\n") {
        long status = 0;
        curl_easy_getinfo(transfer.m_easy.get(), CURLINFO_RESPONSE_CODE, &status);
        const bool elsewhere = status / 100 == 3 && transfer.m_location;
        transfer.m_headersComplete = status / 100 != 1 && !elsewhere;
        if (elsewhere)
            transfer.StayChecked();
    }
    return size * count;
}

/// Who has a checked connection must not be led away from it, be it the first one or that of an earlier redirect.
void Transfer::StayChecked()
{
    const char* url = nullptr; // that of the answer at hand
    curl_easy_getinfo(m_easy.get(), CURLINFO_EFFECTIVE_URL, &url);
    if (url && StartsWith(url, "https:"))
        curl_easy_setopt(m_easy.get(), CURLOPT_REDIR_PROTOCOLS_STR, "https");
}

} // namespace afx
