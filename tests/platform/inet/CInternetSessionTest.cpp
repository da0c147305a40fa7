#include <afxinet.h>

#include "Raises.h"
#include "support/LoopbackServer.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

namespace {

class InternetSession : public testing::Test
{
protected:
    void SetUp() override { ForgetProxies(); }
    void TearDown() override { ForgetProxies(); }
};

/// The path in the first line of a request.
std::string PathOf(const std::string& request)
{
    const size_t start = request.find(' ') + 1;
    return request.substr(start, request.find(' ', start) - start);
}

std::string ContentOf(CStdioFile& file)
{
    std::string content;
    char bytes[7];
    while (const UINT count = file.Read(bytes, sizeof bytes))
        content.append(bytes, count);
    return content;
}

std::string Fetch(CInternetSession& session, const std::string& url)
{
    const std::unique_ptr<CStdioFile> file(session.OpenURL(url.c_str()));
    return ContentOf(*file);
}

/// The reason of the internet exception that opening raises, or 0.
DWORD OpeningError(const std::string& url)
{
    try {
        CInternetSession session;
        const std::unique_ptr<CStdioFile> file(session.OpenURL(url.c_str(), 42));
        return 0;
    } catch (CInternetException* e) {
        char text[100];
        EXPECT_TRUE(e->GetErrorMessage(text, sizeof text));
        EXPECT_EQ(e->m_dwContext, 42u);
        const DWORD error = e->m_dwError;
        e->Delete();
        return error;
    }
}

TEST_F(InternetSession, FollowsRedirectsToTheirEnd)
{
    LoopbackServer server([](const std::string& request) {
        const std::string path = PathOf(request);
        if (path == "/end")
            return LoopbackServer::Page("found");
        if (path == "/file")
            return LoopbackServer::Page("", "302 Found", "Location: file:///etc/hostname\r\n");
        if (path == "/closed")
            return LoopbackServer::Page("", "302 Found",
                                        "Location: http://127.0.0.1:" + std::to_string(LoopbackServer::ClosedPort()) +
                                            "/\r\n");
        // "/3" leads to "/2" and so on; "/loop" to itself.
        const std::string next = path == "/loop" ? path
                                 : path == "/1"  ? "/end"
                                                 : "/" + std::to_string(std::stoi(path.substr(1)) - 1);
        return LoopbackServer::Page("elsewhere", "301 Moved Permanently", "Location: " + next + "\r\n");
    });
    CInternetSession session;
    EXPECT_EQ(Fetch(session, server.Url("/10")), "found");
    EXPECT_EQ(OpeningError(server.Url("/11")), ERROR_HTTP_REDIRECT_FAILED);
    EXPECT_EQ(OpeningError(server.Url("/loop")), ERROR_HTTP_REDIRECT_FAILED);
    EXPECT_EQ(OpeningError(server.Url("/file")), ERROR_INTERNET_UNRECOGNIZED_SCHEME);
    EXPECT_EQ(OpeningError(server.Url("/closed")), ERROR_INTERNET_CANNOT_CONNECT);
}

TEST_F(InternetSession, TellsWhyAUrlCannotBeOpened)
{
    LoopbackServer plain([](const std::string&) { return "this is not the web\r\n\r\n"; });
    const std::string port = std::to_string(plain.Port());
    const struct
    {
        std::string url;
        DWORD error;
    } cases[] = {
        {"", ERROR_INTERNET_UNRECOGNIZED_SCHEME},
        {"http://127.0.0.1:99999/", ERROR_INTERNET_INVALID_URL},
        {"127.0.0.1:" + port + "/", ERROR_INTERNET_UNRECOGNIZED_SCHEME},
        {"ftp://127.0.0.1/", ERROR_INTERNET_UNRECOGNIZED_SCHEME},
        {"file:///no/such/file", ERROR_INTERNET_ITEM_NOT_FOUND},
        {"file:///", ERROR_INTERNET_ITEM_NOT_FOUND},
        {"http://127.0.0.1:" + std::to_string(LoopbackServer::ClosedPort()), ERROR_INTERNET_CANNOT_CONNECT},
        {"http://127.0.0.1:" + port + "/", ERROR_INTERNET_UNRECOGNIZED_SCHEME}, // an answer of another protocol
    };
    for (const auto& c : cases)
        EXPECT_EQ(OpeningError(c.url), c.error) << c.url;
}

TEST_F(InternetSession, SendsWhatTheUrlNames)
{
    LoopbackServer server([](const std::string&) { return LoopbackServer::Page("no such page", "404 Not Found"); });
    CInternetSession session("Kolm test");
    EXPECT_EQ(Fetch(session, server.Url("/a b/\xC3\xA4%20?q=1#part")), "no such page");
    ASSERT_EQ(server.Requests().size(), 1u);
    EXPECT_EQ(PathOf(server.Requests()[0]), "/a%20b/%c3%a4%20?q=1");
    EXPECT_NE(server.Requests()[0].find("User-Agent: Kolm test\r\n"), std::string::npos);
}

/// The proxy is asked for a name that nobody could resolve.
TEST_F(InternetSession, UsesTheProxyOfTheSystem)
{
    LoopbackServer proxy([](const std::string&) { return LoopbackServer::Page("by proxy"); });
    ::setenv("http_proxy", proxy.Url("").c_str(), 1);
    CInternetSession session;
    EXPECT_EQ(Fetch(session, "http://board.invalid/list"), "by proxy");
    EXPECT_EQ(PathOf(proxy.Requests()[0]), "http://board.invalid/list");

    LoopbackServer server([](const std::string&) { return LoopbackServer::Page("direct"); });
    CInternetSession direct(nullptr, 1, INTERNET_OPEN_TYPE_DIRECT);
    EXPECT_EQ(Fetch(direct, server.Url("/")), "direct");
    ::setenv("no_proxy", "127.0.0.1", 1);
    EXPECT_EQ(Fetch(session, server.Url("/")), "direct");
}

TEST_F(InternetSession, HandsOnWhatArrivedBeforeABreak)
{
    LoopbackServer server(
        [](const std::string&) { return "HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\na\r\nb\nrest"; });
    CInternetSession session;
    const std::unique_ptr<CStdioFile> file(session.OpenURL(server.Url("/").c_str()));
    session.Close(); // the file does not need it
    CString line;
    EXPECT_TRUE(file->ReadString(line));
    EXPECT_STREQ(line, "a");
    char byte = 0;
    EXPECT_EQ(file->Read(&byte, 1), 1u);
    EXPECT_EQ(byte, 'b');
    EXPECT_TRUE(file->ReadString(line));
    EXPECT_STREQ(line, "");
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(Raises<CInternetException>([&] { file->ReadString(line); }));
    EXPECT_TRUE(Raises<CNotSupportedException>([&] { file->SeekToBegin(); }));
    file->Close();
    EXPECT_TRUE(Raises<CFileException>([&] { file->ReadString(line); }));
    EXPECT_TRUE(Raises<CInternetException>([&] { session.OpenURL(server.Url("/").c_str()); })) << "closed";
}

TEST_F(InternetSession, KeepsCarriageReturnsInABinaryTransfer)
{
    LoopbackServer server([](const std::string&) { return LoopbackServer::Page("a\r\n"); });
    CInternetSession session;
    const std::unique_ptr<CStdioFile> file(session.OpenURL(server.Url("/").c_str(), 1, INTERNET_FLAG_TRANSFER_BINARY));
    CString line;
    EXPECT_TRUE(file->ReadString(line));
    EXPECT_STREQ(line, "a\r");
    EXPECT_FALSE(file->ReadString(line));
}

TEST_F(InternetSession, ReadsLocalFiles)
{
    TemporaryFolder folder;
    folder.Put("inet \xC3\xA4.txt", "first\r\nsecond");
    CInternetSession session;
    EXPECT_EQ(Fetch(session, "file://" + folder.Path("inet \xC3\xA4.txt")), "first\r\nsecond");
}

TEST_F(InternetSession, RefusesArgumentsThatItCannotHonour)
{
    EXPECT_TRUE(Raises<CInvalidArgException>([] { CInternetSession(nullptr, 1, 3, "proxy"); }));
    EXPECT_TRUE(Raises<CInvalidArgException>([] { CInternetSession(nullptr, 1, 0, nullptr, nullptr, 1); }));
    CInternetSession session;
    EXPECT_TRUE(Raises<CInvalidArgException>([&] { session.OpenURL("file:///", 1, 1, "Accept: text", 12); }));
}

} // namespace
