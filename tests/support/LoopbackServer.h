/// A web server of a test's own, reachable on this machine only.
#pragma once

#include <arpa/inet.h>
#include <atomic>
#include <functional>
#include <netinet/in.h>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <sys/time.h>
#include <thread>
#include <unistd.h>
#include <vector>

/// Answers each connection with the bytes that `answer` gives for the head of its request, and closes it. Waits for a
/// client at most a few seconds, so that a fault ends a test instead of blocking it.
class LoopbackServer
{
public:
    using Answer = std::function<std::string(const std::string& request)>;

    /// `beforeClosing` keeps a connection open, silent, for as long as it runs.
    explicit LoopbackServer(
        Answer answer, std::function<void()> beforeClosing = [] {})
        : m_answer(std::move(answer)), m_beforeClosing(std::move(beforeClosing)), m_socket(Listen())
    {
        m_thread = std::thread([this] { Serve(); });
    }

    ~LoopbackServer()
    {
        m_stop = true;
        m_thread.join();
        ::close(m_socket);
    }

    int Port() const { return PortOf(m_socket); }
    std::string Url(const std::string& path) const { return "http://127.0.0.1:" + std::to_string(Port()) + path; }

    /// The requests so far, each with its head only. To be asked when no answer is awaited.
    const std::vector<std::string>& Requests() const { return m_requests; }

    /// A port of this machine at which nobody listens.
    static int ClosedPort()
    {
        const int socket = Listen();
        const int port = PortOf(socket);
        ::close(socket);
        return port;
    }

    /// An answer with the headers that its length needs.
    static std::string Page(const std::string& body, const std::string& status = "200 OK",
                            const std::string& headers = "")
    {
        return "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n" + headers + "\r\n" +
               body;
    }

private:
    static int Listen()
    {
        const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        ::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address);
        ::listen(socket, 8);
        return socket;
    }

    static int PortOf(int socket)
    {
        sockaddr_in address = {};
        socklen_t size = sizeof address;
        ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
        return ntohs(address.sin_port);
    }

    void Serve()
    {
        while (!m_stop) {
            pollfd waiting = {m_socket, POLLIN, 0};
            if (::poll(&waiting, 1, 10) > 0) {
                const int client = ::accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC);
                AnswerTo(client);
                m_beforeClosing();
                ::close(client);
            }
        }
    }

    void AnswerTo(int client)
    {
        const timeval patience = {5, 0};
        ::setsockopt(client, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        ::setsockopt(client, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
        std::string request;
        char byte;
        while (request.find("\r\n\r\n") == std::string::npos && ::recv(client, &byte, 1, 0) == 1)
            request += byte;
        m_requests.push_back(request);
        const std::string bytes = m_answer(request);
        for (size_t sent = 0; sent < bytes.size();) {
            const ssize_t step = ::send(client, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
            if (step <= 0)
                break; // the client has gone
            sent += size_t(step);
        }
    }

    Answer m_answer;
    std::function<void()> m_beforeClosing;
    std::vector<std::string> m_requests;
    std::atomic<bool> m_stop{false};
    int m_socket;
    std::thread m_thread;
};

/// Takes the proxies that the machine may have set away from this process.
inline void ForgetProxies()
{
    for (const char* name :
         {"http_proxy", "https_proxy", "HTTPS_PROXY", "all_proxy", "ALL_PROXY", "no_proxy", "NO_PROXY"})
        ::unsetenv(name);
}
