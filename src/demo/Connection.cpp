#include "demo/Connection.h"

#include <sys/socket.h>

#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace tarvo {
namespace {

// The value of a field, "" when it is missing. Names of fields have no case.
std::string FieldOf(const std::string& head, std::string_view name)
{
    const auto isSame = [](char left, char right) { return (left | 0x20) == (right | 0x20); };
    const std::string start = "\r\n" + std::string(name) + ": ";
    const auto found = std::search(head.begin(), head.end(), start.begin(), start.end(), isSame);
    if (found == head.end()) {
        return "";
    }
    const auto value = found + static_cast<std::ptrdiff_t>(start.size());
    return {value, std::find(value, head.end(), '\r')};
}

} // namespace

Connection::~Connection()
{
    close(socket_);
}

bool Connection::receive(std::string& bytes) const
{
    std::array<char, 4096> piece;
    const ssize_t count = recv(socket_, piece.data(), piece.size(), 0);
    bytes.append(piece.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return count > 0;
}

std::optional<std::string> Connection::readRequest() const
{
    constexpr std::string_view EndOfHead = "\r\n\r\n";
    std::string bytes;
    std::size_t end = 0;
    while ((end = bytes.find(EndOfHead)) == std::string::npos) {
        if (!receive(bytes)) {
            return std::nullopt;
        }
    }
    const std::string head = bytes.substr(0, end + 2);
    if (FieldOf(head, "Host").empty()) { // printers insist on it
        sendAnswer("400 Bad Request", "text/plain", "");
        return std::nullopt;
    }
    std::string body = bytes.substr(end + EndOfHead.size());
    if (!FieldOf(head, "Expect").empty()) {
        send("HTTP/1.1 100 Continue\r\n\r\n");
    }
    std::size_t length = 0;
    const std::string digits = FieldOf(head, "Content-Length");
    std::from_chars(digits.data(), digits.data() + digits.size(), length);
    while (body.size() < length) {
        if (!receive(body)) {
            return std::nullopt;
        }
    }
    return body;
}

bool Connection::send(std::string_view bytes) const
{
    while (!bytes.empty()) {
        const ssize_t count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool Connection::sendHead(std::string_view status, std::string_view type, std::size_t length) const
{
    std::string head = "HTTP/1.1 ";
    head.append(status).append("\r\nContent-Type: ").append(type);
    head.append("\r\nContent-Length: ").append(std::to_string(length));
    return send(head.append("\r\nConnection: close\r\n\r\n"));
}

bool Connection::sendAnswer(std::string_view status, std::string_view type,
                            std::string_view body) const
{
    return sendHead(status, type, body.size()) && send(body);
}

void Connection::awaitHangUp() const
{
    std::string ignored;
    while (receive(ignored)) {
        ignored.clear();
    }
}

} // namespace tarvo
