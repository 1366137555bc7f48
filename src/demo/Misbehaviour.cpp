#include "demo/Misbehaviour.h"

#include "demo/Connection.h"

#include <chrono>
#include <string>
#include <thread>

namespace tarvo {
namespace {

constexpr std::chrono::milliseconds DripDelay{20};

void AddValue(std::string& bytes, int tag, std::string_view name, std::string_view value)
{
    const auto addString = [&bytes](std::string_view text) {
        bytes += static_cast<char>(text.size() >> 8 & 0xFF);
        bytes += static_cast<char>(text.size() & 0xFF);
        bytes += text;
    };
    bytes += static_cast<char>(tag);
    addString(name);
    addString(value);
}

// The beginning of the right answer with a printer's group open, for what the library would refuse
// to write.
std::string ReplyHead(std::string_view reply)
{
    constexpr std::size_t HeaderLength = 8;
    return std::string(reply.substr(0, HeaderLength)) + '\x04';
}

constexpr char EndOfAttributes = '\x03';
constexpr int BeginCollection = 0x34;
constexpr int EndCollection = 0x37;
constexpr int Keyword = 0x44;
constexpr int Integer = 0x21;
constexpr int MemberName = 0x4A;
constexpr std::string_view Database = "media-col-database";

void AddMember(std::string& bytes, std::string_view name, int tag, std::string_view value)
{
    AddValue(bytes, MemberName, "", name);
    AddValue(bytes, tag, "", value);
}

void SendReply(const Connection& connection, std::string bytes)
{
    bytes += EndOfAttributes;
    connection.sendAnswer(OkLine, IppType, bytes);
}

void StaySilent(const Connection& connection, std::string_view /*reply*/)
{
    connection.awaitHangUp();
}

void Stall(const Connection& connection, std::string_view reply)
{
    connection.sendHead(OkLine, IppType, reply.size());
    connection.send(reply.substr(0, reply.size() / 2));
    connection.awaitHangUp();
}

void Drip(const Connection& connection, std::string_view reply)
{
    connection.sendHead(OkLine, IppType, reply.size());
    for (const char byte : reply) {
        std::this_thread::sleep_for(DripDelay);
        if (!connection.send({&byte, 1})) {
            return;
        }
    }
}

void DripHead(const Connection& connection, std::string_view /*reply*/)
{
    connection.send("HTTP/1.1 200 OK\r\n");
    do {
        std::this_thread::sleep_for(DripDelay);
    } while (connection.send("X-Padding: x\r\n"));
}

void Continue(const Connection& connection, std::string_view /*reply*/)
{
    do {
        std::this_thread::sleep_for(DripDelay);
    } while (connection.send("HTTP/1.1 100 Continue\r\n\r\n"));
}

void PromiseMore(const Connection& connection, std::string_view reply)
{
    connection.sendHead(OkLine, IppType, reply.size() * 2);
    connection.send(reply);
    connection.awaitHangUp();
}

void PromiseLess(const Connection& connection, std::string_view reply)
{
    connection.sendHead(OkLine, IppType, reply.size() / 2);
    connection.send(reply);
}

void PromiseTooMuch(const Connection& connection, std::string_view reply)
{
    connection.sendHead(OkLine, IppType, std::size_t{3'000'000'000});
    connection.send(reply);
    connection.awaitHangUp();
}

void Cut(const Connection& connection, std::string_view reply)
{
    connection.sendHead(OkLine, IppType, reply.size());
    connection.send(reply.substr(0, reply.size() / 2));
}

void Endless(const Connection& connection, std::string_view reply)
{
    std::string bytes = "HTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\n\r\n";
    bytes += reply;
    while (connection.send(bytes)) {
        bytes.assign(65536, '\0');
    }
}

void Garbage(const Connection& connection, std::string_view /*reply*/)
{
    std::string bytes;
    for (unsigned number = 1; bytes.size() < 10'000; number = number * 1'664'525 + 1'013'904'223) {
        bytes += static_cast<char>(number >> 24);
    }
    connection.send(bytes);
    connection.awaitHangUp();
}

void Html(const Connection& connection, std::string_view /*reply*/)
{
    connection.sendAnswer(OkLine, "text/html", "<!DOCTYPE html><title>Welcome</title>");
}

template <int Code>
void HttpError(const Connection& connection, std::string_view reply)
{
    const std::string line = std::to_string(Code) + " No";
    if (Code == 401) {
        connection.send("HTTP/1.1 401 No\r\nWWW-Authenticate: Basic realm=\"press\"\r\n"
                        "Content-Length: 0\r\nConnection: close\r\n\r\n");
        return;
    }
    connection.sendAnswer(line, IppType, reply);
}

void WrongIdentifier(const Connection& connection, std::string_view reply)
{
    std::string bytes(reply);
    ++bytes[7]; // the last byte of the number
    connection.sendAnswer(OkLine, IppType, bytes);
}

void NotFound(const Connection& connection, std::string_view reply)
{
    std::string bytes = ReplyHead(reply);
    bytes[2] = '\x04'; // the status is client-error-not-found
    bytes[3] = '\x06';
    SendReply(connection, std::move(bytes));
}

void Nested(const Connection& connection, std::string_view reply)
{
    constexpr int Levels = 20'000;
    std::string bytes = ReplyHead(reply);
    AddValue(bytes, BeginCollection, Database, "");
    for (int level = 1; level < Levels; ++level) {
        AddMember(bytes, "media-size", BeginCollection, "");
    }
    for (int level = 0; level < Levels; ++level) {
        AddValue(bytes, EndCollection, "", "");
    }
    SendReply(connection, std::move(bytes));
}

void Million(const Connection& connection, std::string_view reply)
{
    std::string medium;
    AddMember(medium, "media-key", Keyword, "m");
    AddValue(medium, EndCollection, "", "");
    std::string bytes = ReplyHead(reply);
    for (int number = 0; number < 1'000'000; ++number) {
        AddValue(bytes, BeginCollection, number == 0 ? Database : "", "");
        bytes += medium;
    }
    SendReply(connection, std::move(bytes));
}

// One medium with these members.
void SendMedium(const Connection& connection, std::string_view reply, std::string_view members)
{
    std::string bytes = ReplyHead(reply);
    AddValue(bytes, BeginCollection, Database, "");
    bytes += members;
    AddValue(bytes, EndCollection, "", "");
    SendReply(connection, std::move(bytes));
}

void LongTexts(const Connection& connection, std::string_view reply)
{
    std::string members;
    for (const char* name : {"media-key", "media-description", "media-info"}) {
        AddMember(members, name, Keyword, std::string(65535, 'x'));
    }
    SendMedium(connection, reply, members);
}

void Negative(const Connection& connection, std::string_view reply)
{
    constexpr std::string_view MinusOne = "\xFF\xFF\xFF\xFF";
    std::string members;
    AddMember(members, "media-key", Keyword, "negative");
    AddMember(members, "media-hole-count", Integer, MinusOne);
    AddMember(members, "media-size", BeginCollection, "");
    AddMember(members, "x-dimension", Integer, MinusOne);
    AddMember(members, "y-dimension", Integer, MinusOne);
    AddValue(members, EndCollection, "", "");
    SendMedium(connection, reply, members);
}

void ControlCharacters(const Connection& connection, std::string_view reply)
{
    std::string members;
    AddMember(members, "media-key", Keyword, "a\x1B[31m\r\nb\xFF");
    SendMedium(connection, reply, members);
}

constexpr Misbehaviour Misbehaviours[] = {
    {"refuse",       "refuses connections",                           nullptr,           true },
    {"silent",       "takes a connection and says nothing",           StaySilent,        true },
    {"stall",        "sends half the answer and waits",               Stall,             false},
    {"drip",         "sends the answer byte by byte",                 Drip,              false},
    {"drip-head",    "sends header after header",                     DripHead,          false},
    {"continue",     "asks to continue for ever",                     Continue,          false},
    {"long-length",  "promises twice the answer, and waits",          PromiseMore,       false},
    {"short-length", "promises half the answer",                      PromiseLess,       false},
    {"huge-length",  "promises three gigabytes",                      PromiseTooMuch,    false},
    {"cut",          "hangs up within the answer",                    Cut,               false},
    {"endless",      "sends for ever",                                Endless,           false},
    {"garbage",      "sends noise before it is asked",                Garbage,           true },
    {"html",         "shows its web page",                            Html,              false},
    {"401",          "wants a password",                              HttpError<401>,    false},
    {"404",          "is not found",                                  HttpError<404>,    false},
    {"417",          "expects nothing",                               HttpError<417>,    false},
    {"500",          "has an error",                                  HttpError<500>,    false},
    {"wrong-id",     "answers another request",                       WrongIdentifier,   false},
    {"not-found",    "knows no printer of that address",              NotFound,          false},
    {"nested",       "nests 20,000 collections",                      Nested,            false},
    {"million",      "reports a million media",                       Million,           false},
    {"long-texts",   "reports texts of 64 KB",                        LongTexts,         false},
    {"negative",     "reports numbers below 0",                       Negative,          false},
    {"control",      "reports control characters and broken letters", ControlCharacters, false},
};

} // namespace

const Misbehaviour* MisbehaviourOfName(std::string_view name)
{
    for (const Misbehaviour& row : Misbehaviours) {
        if (row.name == name) {
            return &row;
        }
    }
    return nullptr;
}

std::string MisbehaviourHelp()
{
    std::string help;
    for (const Misbehaviour& row : Misbehaviours) {
        help.append(row.name).append("  ").append(row.description).append("\n");
    }
    return help;
}

} // namespace tarvo
