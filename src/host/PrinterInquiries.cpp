#include "host/PrinterInquiries.h"

#include "host/Guarded.h"
#include "platform/ports/Task.h"

#include <glib.h>

#include <utility>

namespace tarvo {
namespace {

using Body = std::function<void()>;

gboolean RunBody(gpointer body)
{
    Guarded(*static_cast<Body*>(body));
    return G_SOURCE_REMOVE;
}

void DeleteBody(gpointer body)
{
    std::unique_ptr<Body>(static_cast<Body*>(body)).reset();
}

// To the application's loop: the calling thread may be any.
void RunInMainLoop(Body body)
{
    g_idle_add_full(G_PRIORITY_DEFAULT, RunBody, std::make_unique<Body>(std::move(body)).release(),
                    DeleteBody);
}

} // namespace

PrinterInquiries& PrinterInquiries::Shared()
{
    static PrinterInquiries inquiries;
    return inquiries;
}

void PrinterInquiries::ask(const std::string& queue, Answer answer)
{
    queues_.insert(queue, Queue());
    Queue& entry = *queues_.find(queue);
    entry.waiting.push_back(std::move(answer));
    if (entry.waiting.size() > 1) {
        return;
    }
    const OSStatus status = StartTask([this, queue, known = entry.description] {
        std::optional<PrinterFacts> facts;
        Guarded([&] { facts = AskForPrinter(queue, known); });
        RunInMainLoop([this, queue, facts = std::move(facts)] { take(queue, facts); });
    });
    if (status != StatusOk) {
        entry.waiting.clear(); // asked again with the next choice of the printer
    }
}

void PrinterInquiries::take(const std::string& queue, const std::optional<PrinterFacts>& facts)
{
    Queue& entry = *queues_.find(queue);
    const auto waiting = std::exchange(entry.waiting, {});
    if (!facts) {
        return;
    }
    entry.description = facts->description;
    for (const Answer& answer : waiting) {
        Guarded([&] { answer(*facts); });
    }
}

} // namespace tarvo
