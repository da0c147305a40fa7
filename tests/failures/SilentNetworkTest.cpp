/// A server that stops in the middle of a body, or before it, and keeps the connection open.
#include <afxinet.h>

#include "Raises.h"
#include "support/LoopbackServer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <ctime>
#include <memory>
#include <mutex>

namespace {

/// Added to the time of the clock below.
std::atomic<int> g_secondsAhead{0};

} // namespace

/// Takes the place of the standard library's for the whole process, so that a minute of silence can pass at once. (The
/// test framework tells the time by it as well, and reports the minute.)
std::chrono::steady_clock::time_point std::chrono::steady_clock::now() noexcept
{
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time_point(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec) +
                      std::chrono::seconds(g_secondsAhead));
}

namespace {

class Gate
{
public:
    void Open()
    {
        const std::lock_guard<std::mutex> guard(m_mutex);
        m_open = true;
        m_opened.notify_all();
    }
    void Wait()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_opened.wait(lock, [this] { return m_open; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_opened;
    bool m_open = false;
};

DWORD ErrorOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (CInternetException* e) {
        const DWORD error = e->m_dwError;
        e->Delete();
        return error;
    }
    return 0;
}

/// What arrived is handed on; the wait for more ends after a minute without a byte, and the next URL works.
TEST(SilentNetwork, EndsTheWaitForABodyThatStops)
{
    ForgetProxies();
    Gate gate;
    LoopbackServer stopping(
        [](const std::string&) { return "HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\nfirst\nsec"; },
        [&] { gate.Wait(); });
    LoopbackServer sound([](const std::string&) { return LoopbackServer::Page("well"); });
    CInternetSession session;
    {
        const std::unique_ptr<CStdioFile> file(session.OpenURL(stopping.Url("/").c_str()));
        CString line;
        ASSERT_TRUE(file->ReadString(line));
        EXPECT_STREQ(line, "first");
        // The clock is put forward while the reader waits: it looks at it about once a second.
        std::thread later([] {
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
            g_secondsAhead = 61;
        });
        EXPECT_EQ(ErrorOf([&] { file->ReadString(line); }), ERROR_INTERNET_TIMEOUT);
        later.join();
    }
    const std::unique_ptr<CStdioFile> file(session.OpenURL(sound.Url("/").c_str()));
    CString line;
    EXPECT_TRUE(file->ReadString(line));
    EXPECT_STREQ(line, "well");
    gate.Open();
}

} // namespace
