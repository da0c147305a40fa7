#include "util/CKCommunicator.h"

#include "Raises.h"
#include "support/LoopbackServer.h"

#include <afxinet.h>

#include <gtest/gtest.h>

namespace {

class CKCommunicatorTest : public testing::Test
{
protected:
    void SetUp() override { ForgetProxies(); }
};

std::string Fetch(const std::string& url)
{
    const CString text = CKCommunicator::OpenURL(url.c_str());
    return std::string(text, size_t(text.GetLength()));
}

TEST_F(CKCommunicatorTest, JoinsLines)
{
    const struct
    {
        const char* why;
        std::string content, text;
    } cases[] = {
        {"two lines", "first\nsecond\n", "firstsecond"},
        {"no line feed at the end", "first", "first"},
        {"nothing", "", ""},
        {"empty lines", "\n\na\n\n", "a"},
        {"a carriage return before a line feed", "a\r\nb\r\n", "ab"},
        {"others are content", "a\rb\r\r\nc\r", "a\rb\rc\r"},
        {"high and zero bytes", std::string("\xFF\0\n\xC3\xA4", 5), std::string("\xFF\0\xC3\xA4", 4)},
    };
    for (const auto& c : cases) {
        LoopbackServer server([&](const std::string&) { return LoopbackServer::Page(c.content); });
        EXPECT_EQ(Fetch(server.Url("/")), c.text) << c.why;
    }
}

TEST_F(CKCommunicatorTest, TakesContentOfAnySize)
{
    // One line of many megabytes, and as many short ones.
    const std::string line(5 << 20, 'x');
    std::string lines;
    while (lines.size() < line.size())
        lines += "line\r\n";
    LoopbackServer server([&](const std::string&) { return LoopbackServer::Page(line + "\n" + lines); });
    EXPECT_EQ(Fetch(server.Url("/")).size(), line.size() + lines.size() / 6 * 4);
}

TEST_F(CKCommunicatorTest, GivesNothingForWhatCannotBeOpened)
{
    LoopbackServer silent([](const std::string&) { return std::string(); });
    const std::string closed = "127.0.0.1:" + std::to_string(LoopbackServer::ClosedPort());
    for (const std::string& url :
         {std::string(), std::string("no address"), std::string("127.0.0.1"), std::string("http://"),
          std::string("unknown://127.0.0.1/"), std::string("file:///no/such/file"), "http://" + closed + "/",
          "https://" + closed + "/", silent.Url("/")})
        EXPECT_EQ(Fetch(url), "") << url;
    EXPECT_EQ(silent.Requests().size(), 1u);
}

TEST_F(CKCommunicatorTest, LetsContentThatBreaksOffRaise)
{
    for (const char* answer :
         {"HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nfirst\nsec", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n",
          "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n6\r\nfirst\n\r\n5\r\nsec"})
    {
        LoopbackServer server([&](const std::string&) { return answer; });
        EXPECT_TRUE(Raises<CInternetException>([&] { Fetch(server.Url("/")); })) << answer;
    }
}

} // namespace
