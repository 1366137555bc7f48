#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

/// One client of a demonstration printer, over a raw socket: what a printer does wrong, a library
/// for HTTP would not let it do.
class Connection {
public:
    explicit Connection(int socket) : socket_(socket) {}
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    /// Reads a request with its body. A client that waits for leave to send is given it; one that
    /// names no host is turned away, as HTTP wants it.
    /// @return the body; nullopt when there is none to answer
    std::optional<std::string> readRequest() const;

    /// @return false when the client has hung up
    bool send(std::string_view bytes) const;
    /// A line of status, the length and the body.
    bool sendAnswer(std::string_view status, std::string_view type, std::string_view body) const;
    /// The same before the body, with any length.
    bool sendHead(std::string_view status, std::string_view type, std::size_t length) const;
    /// Does nothing until the client hangs up.
    void awaitHangUp() const;

private:
    bool receive(std::string& bytes) const;

    int socket_;
};

} // namespace tarvo
