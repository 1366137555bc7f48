// The plug-in as a print dialog loads it: the factory and the tables of functions that it leads to.
#include "panels/toolkit/Guarded.h"
#include "platform/printing/BuildText.h"
#include "settings/SettingMap.h"
#include "shell/BundleLookup.h"
#include "shell/PanelTable.h"
#include "shell/Shell.h"
#include "stocklibrary/PrinterStocks.h"

#include <gtkmm/main.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace tarvo {
namespace {

constexpr std::uint32_t PaneCreator = FourCharCode("pde ");

bool IsEqual(const TarvoUUID& first, const TarvoUUID& second)
{
    return std::equal(std::begin(first.bytes), std::end(first.bytes), std::begin(second.bytes));
}

template <typename Function>
TarvoStatus GuardedStatus(Function function, TarvoStatus failure = StatusNoMemory)
{
    try {
        return function();
    } catch (...) {
        ReportCaughtException();
        return failure;
    }
}

// What a context is: a shell, and the texts that its callers were given.
struct Context {
    Shell shell{FindBundle(), PanelMap};
    PanelSummary summary;
    std::vector<const char*> titles;
    std::vector<const char*> summaries;
};

// Those that live, so that one which has ended is known as such. The list never ends: an
// application may exit with a dialog open, and what a shell uses in its end is gone by then.
std::vector<std::unique_ptr<Context>>& Contexts()
{
    using List = std::vector<std::unique_ptr<Context>>;
    static List* const contexts = std::make_unique<List>().release();
    return *contexts;
}

// Calls the function with the context; null and contexts that have ended are refused.
template <typename Function>
TarvoStatus WithContext(void* address, TarvoStatus refusal, Function function)
{
    return GuardedStatus([&] {
        const auto& contexts = Contexts();
        const auto found = std::find_if(contexts.begin(), contexts.end(),
                                        [=](const auto& owner) { return owner.get() == address; });
        return found == contexts.end() ? refusal : function(**found);
    });
}

template <typename Value>
void Give(Value* place, const Value& value)
{
    if (place != nullptr) {
        *place = value;
    }
}

PMPrintSession* SessionOf(TarvoPrintSession* session)
{
    return reinterpret_cast<PMPrintSession*>(session);
}

TarvoStatus Prologue(void** context, std::uint32_t* creator, const char** kind, const char** title,
                     std::int32_t* maxWidth, std::int32_t* maxHeight)
{
    if (context == nullptr) {
        return StatusBadArgument;
    }
    *context = nullptr;
    const auto make = [&] {
        Gtk::Main::init_gtkmm_internals();
        Contexts().push_back(std::make_unique<Context>());
        const Shell& shell = Contexts().back()->shell;
        Give(creator, PaneCreator);
        Give(kind, UserOptionKind);
        if (shell.title() != nullptr) {
            Give(title, shell.title()->c_str());
        }
        Give(maxWidth, std::int32_t{TARVO_PANE_WIDTH});
        Give(maxHeight, std::int32_t{TARVO_PANE_HEIGHT});
        *context = Contexts().back().get();
        return StatusOk;
    };
    return GuardedStatus(make, StatusNullContext);
}

TarvoStatus Initialize(void* context, std::uint32_t /*flags*/, const TarvoPDEHost* reference,
                       _GtkContainer* parentPane, TarvoPrintSession* session)
{
    return WithContext(context, StatusNullContext, [&](Context& dialog) {
        return dialog.shell.initialize(reference, parentPane, SessionOf(session));
    });
}

TarvoStatus Sync(void* context, TarvoPrintSession* session, bool direction)
{
    return WithContext(context, StatusNoSession, [&](Context& dialog) {
        return dialog.shell.sync(SessionOf(session),
                                 direction ? SyncDirection::FromTicket : SyncDirection::ToTicket);
    });
}

// Null for no texts; else they end with a null.
const char* const* ArrayOf(const std::optional<std::vector<std::string>>& texts,
                           std::vector<const char*>& array)
{
    array.clear();
    if (!texts) {
        return nullptr;
    }
    for (const std::string& text : *texts) {
        array.push_back(text.c_str());
    }
    array.push_back(nullptr);
    return array.data();
}

TarvoStatus GetSummaryText(void* context, const char* const** titles, const char* const** summaries)
{
    const char* const* const none = nullptr;
    Give(titles, none);
    Give(summaries, none);
    return WithContext(context, StatusNullContext, [&](Context& dialog) {
        dialog.summary = dialog.shell.getSummaryText();
        Give(titles, ArrayOf(dialog.summary.titles, dialog.titles));
        Give(summaries, ArrayOf(dialog.summary.summaries, dialog.summaries));
        return StatusOk;
    });
}

TarvoStatus Open(void* context)
{
    return WithContext(context, StatusNullContext,
                       [](Context& dialog) { return dialog.shell.open(); });
}

TarvoStatus Close(void* context)
{
    return WithContext(context, StatusNullContext,
                       [](Context& dialog) { return dialog.shell.close(); });
}

TarvoStatus Terminate(void* context, TarvoStatus status)
{
    return WithContext(context, StatusNullContext, [status](Context& dialog) {
        dialog.shell.terminate(status);
        std::erase_if(Contexts(), [&dialog](const auto& owner) { return owner.get() == &dialog; });
        return StatusOk;
    });
}

// An interface with its count.
struct PDEObject {
    TarvoPDE head;
    std::uint32_t count;
};

PDEObject* ObjectOf(TarvoPDE* head)
{
    return reinterpret_cast<PDEObject*>(head);
}

TarvoStatus Retain(TarvoPDE* object)
{
    if (object == nullptr) {
        return StatusBadArgument;
    }
    ++ObjectOf(object)->count;
    return StatusOk;
}

TarvoStatus Release(TarvoPDE** object)
{
    if (object == nullptr || *object == nullptr) {
        return StatusBadArgument;
    }
    std::unique_ptr<PDEObject> owner(ObjectOf(std::exchange(*object, nullptr)));
    if (--owner->count > 0) {
        static_cast<void>(owner.release());
    }
    return StatusOk;
}

TarvoStatus GetAPIVersion(TarvoPDE* /*object*/, TarvoVersion* version)
{
    if (version == nullptr) {
        return StatusBadArgument;
    }
    *version = {TARVO_PDE_VERSION, TARVO_PDE_VERSION};
    return StatusOk;
}

constexpr TarvoPDETable PDETable = {
    Retain, Release,        GetAPIVersion, Prologue, Initialize,
    Sync,   GetSummaryText, Open,          Close,    Terminate,
};

// An instance with its count.
struct Instance {
    TarvoUnknown head;
    std::uint32_t count;
};

Instance* InstanceOf(TarvoUnknown* head)
{
    return reinterpret_cast<Instance*>(head);
}

std::uint32_t IUnknownAddRef(TarvoUnknown* instance)
{
    return instance == nullptr ? 0 : ++InstanceOf(instance)->count;
}

std::uint32_t IUnknownRelease(TarvoUnknown* instance)
{
    if (instance == nullptr || InstanceOf(instance)->count == 0) {
        return 0;
    }
    std::unique_ptr<Instance> owner(InstanceOf(instance));
    if (--owner->count > 0) {
        return owner.release()->count;
    }
    return 0;
}

// The interface has a count of its own: asking for it does not raise the instance's.
TarvoStatus QueryInterface(TarvoUnknown* instance, TarvoUUID interfaceId, void** object)
{
    if (object == nullptr) {
        return StatusBadArgument;
    }
    *object = nullptr;
    return GuardedStatus([&]() -> TarvoStatus {
        if (instance != nullptr && IsEqual(interfaceId, TARVO_UNKNOWN_ID)) {
            IUnknownAddRef(instance);
            *object = instance;
        } else if (IsEqual(interfaceId, TARVO_PDE_INTERFACE_ID)) {
            *object = std::make_unique<PDEObject>(PDEObject{{&PDETable}, 1}).release();
        }
        return *object == nullptr ? TARVO_NO_INTERFACE : StatusOk;
    });
}

constexpr TarvoUnknownTable UnknownTable = {nullptr, QueryInterface, IUnknownAddRef,
                                            IUnknownRelease};

} // namespace
} // namespace tarvo

extern "C" __attribute__((visibility("default"))) const char* TarvoPDEBuild()
{
    return tarvo::BuildText();
}

extern "C" __attribute__((visibility("default"))) TarvoUnknown*
TarvoPDEPluginFactory(void* /*allocator*/, TarvoUUID typeId)
{
    using namespace tarvo;
    if (!IsEqual(typeId, TARVO_PDE_TYPE_ID)) {
        return nullptr;
    }
    TarvoUnknown* made = nullptr;
    GuardedStatus([&] {
        made = &std::make_unique<Instance>(Instance{{&UnknownTable}, 1}).release()->head;
        return StatusOk;
    });
    return made;
}
