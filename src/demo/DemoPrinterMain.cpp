// A printer to try things with: answers requests for its media over IPP on a loopback port, rightly
// or as wrongly as ordered.
#include "demo/Connection.h"
#include "demo/MediaFile.h"
#include "demo/MediaReplies.h"
#include "demo/Misbehaviour.h"
#include "platform/ports/Task.h"

#include <CLI/CLI.hpp>
#include <arpa/inet.h>
#include <sys/socket.h>

#include <cstdio>
#include <exception>
#include <memory>
#include <mutex>

namespace tarvo {
namespace {

class Printer {
public:
    /// The right answer. It is kept for the next client who asks the same, so that what is measured
    /// with many media is the client.
    std::optional<std::string> replyTo(const std::string& request)
    {
        const std::lock_guard lock(mutex_);
        if (request != request_ || !reply_) {
            reply_ = MediaReplyTo(request, media, repeat);
            request_ = request;
        }
        return reply_;
    }

    // As ordered; not changed once it serves.
    std::vector<DemoMedium> media;
    std::size_t repeat = 1;
    const Misbehaviour* misbehaviour = nullptr; // null: none

private:
    std::mutex mutex_;
    std::string request_;
    std::optional<std::string> reply_;
};

void Serve(const Connection& connection, Printer& printer)
{
    const Misbehaviour* misbehaviour = printer.misbehaviour;
    if (misbehaviour != nullptr && misbehaviour->beforeRequest) {
        misbehaviour->act(connection, "");
        return;
    }
    const std::optional<std::string> request = connection.readRequest();
    if (!request) {
        return;
    }
    const auto reply = printer.replyTo(*request);
    if (!reply) {
        connection.sendAnswer("400 Bad Request", "text/plain", "");
    } else if (misbehaviour != nullptr) {
        misbehaviour->act(connection, *reply);
    } else {
        connection.sendAnswer(OkLine, IppType, *reply);
    }
}

// A socket bound to the port, with its number in `port`; -1 when the system refuses.
int Bind(std::uint16_t& port)
{
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int reuse = 1;
    setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &reuse, sizeof reuse);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    socklen_t length = sizeof address;
    if (bind(listener, generic, length) != 0 || getsockname(listener, generic, &length) != 0) {
        return -1;
    }
    port = ntohs(address.sin_port);
    return listener;
}

[[noreturn]] void ServeAll(int listener, const std::shared_ptr<Printer>& printer)
{
    for (;;) {
        const int client = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
        const auto connection = std::make_shared<Connection>(client);
        if (StartTask([connection, printer] { Serve(*connection, *printer); }) != StatusOk) {
            std::fputs("tarvo-demo-printer: a client was turned away\n", stderr);
        }
    }
}

int Run(std::uint16_t port, const std::shared_ptr<Printer>& printer)
{
    const int listener = Bind(port);
    const bool refuses = printer->misbehaviour != nullptr && printer->misbehaviour->act == nullptr;
    if (listener < 0 || (!refuses && listen(listener, SOMAXCONN) != 0)) {
        std::perror("tarvo-demo-printer: listening");
        return 1;
    }
    std::printf("127.0.0.1:%u\n", static_cast<unsigned>(port));
    std::fflush(stdout);
    if (!refuses) {
        ServeAll(listener, printer);
    }
    for (;;) {
        pause();
    }
}

int RunAsOrdered(int argc, char** argv)
{
    CLI::App app("A demonstration printer. Prints host and port once it can be reached.",
                 "tarvo-demo-printer");
    std::uint16_t port = 0;
    std::string mediaFile;
    std::string misbehaviour;
    const auto printer = std::make_shared<Printer>();
    app.add_option("--port", port, "port on the loopback address; a free one unless given");
    app.add_option("--media", mediaFile, "file with its media; it has none unless given");
    app.add_option("--repeat", printer->repeat, "reports each medium that often");
    app.add_option("--misbehave", misbehaviour, "one of:\n" + MisbehaviourHelp());
    CLI11_PARSE(app, argc, argv);
    std::string fault;
    auto media = mediaFile.empty() ? std::vector<DemoMedium>() : ReadMediaFile(mediaFile, fault);
    printer->misbehaviour = MisbehaviourOfName(misbehaviour);
    if (!media || (printer->misbehaviour == nullptr && !misbehaviour.empty())) {
        std::fprintf(stderr, "tarvo-demo-printer: %s\n",
                     media ? "unknown misbehaviour" : fault.c_str());
        return 2;
    }
    printer->media = std::move(*media);
    return Run(port, printer);
}

} // namespace
} // namespace tarvo

int main(int argc, char** argv)
{
    try {
        return tarvo::RunAsOrdered(argc, argv);
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "tarvo-demo-printer: %s\n", fault.what());
        return 1;
    }
}
