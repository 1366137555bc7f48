// A plug-in that keeps a record of what the print dialog's side does with it, and vetoes on order.
#include "FakePlugIn.h"

#include "platform/printing/BuildText.h"
#include "platform/printing/PPDFile.h"
#include "shell/PlugInInterface.h"

#include <gtk/gtk.h>

#include <cstring>
#include <memory>

namespace tarvo {
namespace {

FakePlugInState& State()
{
    static FakePlugInState state;
    return state;
}

void Called(const char* operation)
{
    State().calls.append(" ").append(operation);
}

PMPrintSession& SessionOf(TarvoPrintSession* session)
{
    return *reinterpret_cast<PMPrintSession*>(session);
}

struct Context {
    const TarvoPDEHost* host = nullptr;
    PMPrintSession* session = nullptr;
    std::string title = "Fake Features";
};

TarvoStatus Prologue(void** context, std::uint32_t* /*creator*/, const char** /*kind*/,
                     const char** title, std::int32_t* /*width*/, std::int32_t* /*height*/)
{
    Called("Prologue");
    auto made = std::make_unique<Context>();
    *title = made->title.c_str();
    *context = made.release();
    ++State().contexts;
    return 0;
}

void Look(const PMPrintSession& session)
{
    FakePlugInState& state = State();
    state.printer = session.currentPrinter.value_or(PMPrinter());
    state.pageFormat = session.pageFormat.value_or(PageFormat());
    state.choices = session.ticket(JobTicketName)->ppdDictionary();
    ParseError error;
    const auto ppd = ppdOpenCompiledPPDFromTicket(session.ticket(PrinterInfoTicketName), error);
    state.maker = ppd ? ppd->manufacturer() : error.reason;
}

TarvoStatus RefuseToPrint(const TarvoEvent* event, void* userData)
{
    const bool isPrint = event->eventClass == TARVO_CONTROL_CLASS &&
                         event->kind == TARVO_CONTROL_HIT && event->signature == 0 &&
                         event->control == TARVO_DEFAULT_BUTTON;
    Look(*static_cast<Context*>(userData)->session);
    Called(isPrint ? "print?" : "cancel?");
    return isPrint && State().refusesToPrint ? 0 : TARVO_EVENT_NOT_HANDLED;
}

TarvoStatus Initialize(void* context, std::uint32_t /*flags*/, const TarvoPDEHost* host,
                       GtkContainer* pane, TarvoPrintSession* session)
{
    Called("Initialize");
    Look(SessionOf(session));
    if (State().refusesPrinter) {
        return -9530;
    }
    static_cast<Context*>(context)->host = host;
    static_cast<Context*>(context)->session = &SessionOf(session);
    host->SetEventHandler(host->self, RefuseToPrint, context);
    gtk_container_add(pane, gtk_label_new("Fake"));
    return 0;
}

void Choose(PMTicket& ticket, const CFDictionary& choices)
{
    for (const auto& entry : choices) {
        ticket.ppdDictionary().set(entry.key, entry.value);
    }
}

TarvoStatus Sync(void* /*context*/, TarvoPrintSession* session, bool direction)
{
    Called(direction ? "Sync(true)" : "Sync(false)");
    Look(SessionOf(session));
    PMTicket& ticket = *SessionOf(session).ticket(JobTicketName);
    for (const auto& entry : State().ticket) {
        ticket.setItem(PanelClient, entry.key, entry.value);
    }
    Choose(ticket, State().ppdChoices);
    return 0;
}

TarvoStatus GetSummaryText(void* /*context*/, const char* const** /*titles*/,
                           const char* const** /*summaries*/)
{
    return 0;
}

TarvoStatus Open(void* context)
{
    Called("Open");
    Choose(*static_cast<Context*>(context)->session->ticket(JobTicketName), State().panelChoices);
    return 0;
}

TarvoStatus Close(void* /*context*/)
{
    Called("Close");
    return 0;
}

TarvoStatus Terminate(void* context, TarvoStatus /*status*/)
{
    Called("Terminate");
    std::unique_ptr<Context>(static_cast<Context*>(context)).reset();
    --State().contexts;
    return 0;
}

TarvoStatus Retain(TarvoPDE* /*object*/)
{
    return 0;
}

TarvoStatus Release(TarvoPDE** object)
{
    std::unique_ptr<TarvoPDE>(std::exchange(*object, nullptr)).reset();
    --State().interfaces;
    return 0;
}

TarvoStatus GetAPIVersion(TarvoPDE* /*object*/, TarvoVersion* version)
{
    *version = {State().version, State().version};
    return State().versionStatus;
}

constexpr TarvoPDETable Operations = {Retain, Release,        GetAPIVersion, Prologue, Initialize,
                                      Sync,   GetSummaryText, Open,          Close,    Terminate};

bool IsSame(const TarvoUUID& one, const TarvoUUID& other)
{
    return std::memcmp(one.bytes, other.bytes, sizeof one.bytes) == 0;
}

TarvoStatus QueryInterface(TarvoUnknown* /*instance*/, TarvoUUID interfaceId, void** object)
{
    *object = nullptr;
    if (!IsSame(interfaceId, TARVO_PDE_INTERFACE_ID)) {
        return TARVO_NO_INTERFACE;
    }
    *object = std::make_unique<TarvoPDE>(TarvoPDE{&Operations}).release();
    ++State().interfaces;
    return 0;
}

std::uint32_t AddRef(TarvoUnknown* /*instance*/)
{
    return 0;
}

std::uint32_t ReleaseInstance(TarvoUnknown* instance)
{
    std::unique_ptr<TarvoUnknown>(instance).reset();
    --State().instances;
    return 0;
}

constexpr TarvoUnknownTable Instance = {nullptr, QueryInterface, AddRef, ReleaseInstance};

} // namespace
} // namespace tarvo

extern "C" {

[[gnu::visibility("default")]] TarvoUnknown* TarvoPDEPluginFactory(void* /*allocator*/,
                                                                   TarvoUUID typeId)
{
    using namespace tarvo;
    if (!IsSame(typeId, TARVO_PDE_TYPE_ID)) {
        return nullptr;
    }
    ++State().instances;
    return std::make_unique<TarvoUnknown>(TarvoUnknown{&Instance}).release();
}

[[gnu::visibility("default")]] const char* TarvoPDEBuild()
{
    return tarvo::BuildText();
}

[[gnu::visibility("default")]] tarvo::FakePlugInState* FakePlugInGetState()
{
    return &tarvo::State();
}

} // extern "C"
