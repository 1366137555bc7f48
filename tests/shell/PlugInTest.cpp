// The plug-in through its C interface alone, as a print dialog that knows nothing else of it.
#include "DialogSession.h"
#include "settings/TicketKeys.h"
#include "shell/PlugInInterface.h"
#include "support/BuiltBundle.h"

#include <gmock/gmock.h>
#include <gtk/gtk.h>

#include <dlfcn.h>

#include <cstring>

namespace tarvo {
namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

TarvoPlugInFactory FactoryOf(const std::string& bundle)
{
    const std::string module = bundle + "/Contents/Linux/TarvoFeatures.so";
    void* handle = dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL);
    EXPECT_NE(handle, nullptr) << dlerror();
    return reinterpret_cast<TarvoPlugInFactory>(dlsym(handle, TARVO_FACTORY_NAME));
}

TarvoPrintSession* AsInterface(PMPrintSession& session)
{
    return reinterpret_cast<TarvoPrintSession*>(&session);
}

// A dialog's side: an instance, its interface, a window and what Prologue said. It ends with this.
class Host {
public:
    explicit Host(const std::string& bundle = BuiltBundleFolder)
        : instance_(FactoryOf(bundle)(nullptr, TARVO_PDE_TYPE_ID))
    {
        void* object = nullptr;
        EXPECT_EQ(instance_->table->QueryInterface(instance_, TARVO_PDE_INTERFACE_ID, &object), 0);
        pde = static_cast<TarvoPDE*>(object);
        table = pde->table;
        window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
        pane = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
        gtk_container_add(GTK_CONTAINER(window), pane);
        reference.self = this;
        reference.SetEventHandler = [](void* self, TarvoEventHandler given, void* data) {
            static_cast<Host*>(self)->handler = given;
            static_cast<Host*>(self)->handlerData = data;
        };
        EXPECT_EQ(table->Prologue(&context, &creator, &kind, &title, &width, &height), 0);
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    ~Host()
    {
        EXPECT_TRUE(context == nullptr || terminate() == 0);
        gtk_widget_destroy(window);
        EXPECT_EQ(table->Release(&pde), 0);
        EXPECT_EQ(pde, nullptr);
        EXPECT_EQ(instance_->table->Release(instance_), 0U) << "the interface has its own count";
    }

    TarvoStatus initialize()
    {
        return table->Initialize(context, 0, &reference, GTK_CONTAINER(pane),
                                 AsInterface(dialog.session));
    }
    TarvoStatus terminate() { return table->Terminate(std::exchange(context, nullptr), 0); }
    // There is nothing in it, whatever was there before.
    TarvoStatus getSummaryText(void* of) const
    {
        const char* const none[] = {nullptr};
        const char* const* titles = none;
        const char* const* summaries = none;
        const TarvoStatus status = table->GetSummaryText(of, &titles, &summaries);
        EXPECT_EQ(titles, nullptr);
        EXPECT_EQ(summaries, nullptr);
        return status;
    }
    TarvoStatus hit(std::int32_t control) const
    {
        const TarvoEvent event{TARVO_CONTROL_CLASS, TARVO_CONTROL_HIT, 0x5473686C, control};
        return handler(&event, handlerData);
    }

    DialogSession dialog;
    TarvoPDE* pde = nullptr;
    const TarvoPDETable* table = nullptr;
    GtkWidget* window = nullptr;
    GtkWidget* pane = nullptr;
    TarvoPDEHost reference{};
    TarvoEventHandler handler = nullptr;
    void* handlerData = nullptr;
    void* context = nullptr;
    std::uint32_t creator = 0;
    const char* kind = nullptr;
    const char* title = nullptr;
    std::int32_t width = 0;
    std::int32_t height = 0;

private:
    TarvoUnknown* instance_;
};

TEST(PlugInFactory, MakesWhatItIsAskedFor)
{
    const TarvoPlugInFactory factory = FactoryOf(BuiltBundleFolder);
    EXPECT_EQ(factory(nullptr, TARVO_PDE_INTERFACE_ID), nullptr) << "no type of ours";
    TarvoUnknown* instance = factory(nullptr, TARVO_PDE_TYPE_ID);
    ASSERT_NE(instance, nullptr);
    const TarvoUnknownTable& unknown = *instance->table;
    EXPECT_EQ(unknown.reserved, nullptr);

    void* object = instance;
    const TarvoUUID strange = TARVO_PDE_TYPE_ID;
    EXPECT_EQ(static_cast<std::uint32_t>(unknown.QueryInterface(instance, strange, &object)),
              0x80000004U);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(unknown.QueryInterface(instance, TARVO_UNKNOWN_ID, &object), 0);
    EXPECT_EQ(object, instance);
    EXPECT_EQ(unknown.AddRef(instance), 3U) << "asking for the instance counts";
    for (const std::uint32_t count : {2U, 1U, 0U}) {
        EXPECT_EQ(unknown.Release(instance), count);
    }
    EXPECT_EQ(unknown.AddRef(nullptr), 0U);
    EXPECT_EQ(unknown.Release(nullptr), 0U);
}

TEST(PlugIn, SaysWhatItIs)
{
    Host host;
    TarvoVersion version{};
    EXPECT_EQ(host.table->GetAPIVersion(host.pde, &version), 0);
    EXPECT_EQ(version.build, 0x00010000U);
    EXPECT_EQ(version.base, 0x00010000U);
    EXPECT_EQ(host.table->Retain(host.pde), 0);
    TarvoPDE* other = host.pde;
    EXPECT_EQ(host.table->Release(&other), 0);
    EXPECT_EQ(other, nullptr);

    EXPECT_EQ(host.creator, 0x70646520U); // 'pde '
    EXPECT_STREQ(host.kind, "com.tarvo.print.pde.tarvofeatureskind");
    EXPECT_STREQ(host.title, "Tarvo Features");
    EXPECT_EQ(host.width, 540);
    EXPECT_EQ(host.height, 491);
}

TEST(PlugIn, RefusesContextsThatAreNone)
{
    Host host;
    EXPECT_EQ(host.table->Initialize(host.context, 0, nullptr, nullptr, nullptr), -9530);
    EXPECT_EQ(host.table->Open(host.context), -9530) << "not before it is initialized";
    EXPECT_EQ(host.table->Sync(host.context, nullptr, true), -30879);
    void* const ended = host.context;
    EXPECT_EQ(host.terminate(), 0);
    for (void* context : {static_cast<void*>(nullptr), ended}) {
        SCOPED_TRACE(context == nullptr ? "null" : "ended");
        TarvoPrintSession* session = AsInterface(host.dialog.session);
        EXPECT_EQ(host.table->Initialize(context, 0, nullptr, nullptr, session), -9530);
        EXPECT_EQ(host.table->Sync(context, session, true), -30879);
        EXPECT_EQ(host.getSummaryText(context), -9530);
        EXPECT_EQ(host.table->Open(context), -9530);
        EXPECT_EQ(host.table->Close(context), -9530);
        EXPECT_EQ(host.table->Terminate(context, 0), -9530);
    }
    EXPECT_EQ(host.table->Prologue(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), -50);
}

TEST(PlugIn, IsForPrintersOfItsMaker)
{
    // manufacturer, status, diagnostic
    const std::tuple<const char*, TarvoStatus, const char*> cases[] = {
        {"Tarvo",  0,     ""                               },
        {"tarvo",  -9530, "Initialize() not a Tarvo PDE.\n"},
        {"Tarvo ", -9530, "Initialize() not a Tarvo PDE.\n"},
        {"",       -9530, "Initialize() not a Tarvo PDE.\n"},
    };
    for (const auto& [manufacturer, status, diagnostic] : cases) {
        SCOPED_TRACE(manufacturer);
        Host host;
        DialogSession other(manufacturer);
        CaptureStderr();
        EXPECT_EQ(host.table->Initialize(host.context, 0, &host.reference, GTK_CONTAINER(host.pane),
                                         AsInterface(other.session)),
                  status);
        EXPECT_EQ(GetCapturedStderr(), diagnostic);
        EXPECT_EQ(host.handler != nullptr, status == 0);
    }
    Host host;
    PMPrintSession empty;
    CaptureStderr();
    EXPECT_EQ(host.table->Initialize(host.context, 0, nullptr, nullptr, AsInterface(empty)), -9530);
    EXPECT_EQ(GetCapturedStderr(), "Initialize()::ppdOpenCompiledPPDFromTicket() failed.\n");
}

// The order in which a dialog ends differs from host to host.
enum class End { TerminateFirst, WindowFirst, WithoutClose };

TEST(PlugIn, ServesTenDialogsInARow)
{
    for (int dialog = 0; dialog < 10; ++dialog) {
        SCOPED_TRACE(dialog);
        const auto end = static_cast<End>(dialog % 3);
        Host host;
        ASSERT_EQ(host.initialize(), 0);
        EXPECT_EQ(gtk_container_get_children(GTK_CONTAINER(host.pane)), nullptr) << "not yet open";
        gtk_widget_show(host.window);
        EXPECT_EQ(host.table->Open(host.context), 0);
        gtk_widget_show_all(host.window);
        EXPECT_EQ(host.hit(1967), 0);
        EXPECT_EQ(host.hit(1966), 0);
        TarvoPrintSession* session = AsInterface(host.dialog.session);
        EXPECT_EQ(host.table->Sync(host.context, session, false), 0);
        // Of the first panel, the last one with settings, and the shell.
        for (const char* key : {"com.tarvo.print.JobLevelStock", "com.tarvo.print.EmitTPIF",
                                "com.tarvo.print.TPIFOptions"}) {
            EXPECT_TRUE(host.dialog.ticket().containsItem(key)) << key;
        }
        EXPECT_EQ(host.getSummaryText(host.context), 0);
        if (end != End::WithoutClose) {
            EXPECT_EQ(host.table->Close(host.context), 0);
        }
        if (end == End::WindowFirst) {
            gtk_widget_destroy(gtk_bin_get_child(GTK_BIN(host.window)));
        }
        EXPECT_EQ(host.terminate(), 0);
        EXPECT_EQ(host.handler, nullptr);
    }
}

TEST(PlugIn, LetsOtherEventsGoOn)
{
    Host host;
    ASSERT_EQ(host.initialize(), 0);
    // class, kind, signature, control
    const TarvoEvent events[] = {
        {TARVO_CONTROL_CLASS, TARVO_CONTROL_HIT,     0,          TARVO_DEFAULT_BUTTON},
        {TARVO_CONTROL_CLASS, TARVO_CONTROL_HIT,     0,          TARVO_CANCEL_BUTTON },
        {TARVO_CONTROL_CLASS, TARVO_CONTROL_HIT,     0x5473686C, 1967                }, // not open
        {TARVO_CONTROL_CLASS, TARVO_CONTROL_HIT + 1, 0x5473686C, 1967                },
        {0,                   TARVO_CONTROL_HIT,     0x5473686C, 1967                },
    };
    for (const TarvoEvent& event : events) {
        EXPECT_EQ(host.handler(&event, host.handlerData), TARVO_EVENT_NOT_HANDLED);
    }
    EXPECT_EQ(host.handler(nullptr, host.handlerData), TARVO_EVENT_NOT_HANDLED);
}

// Makes a copy of the bundle unusable; the module in it is another one, so it starts afresh.
struct BrokenBundle {
    const char* name;
    void (*breakIt)(const BundleCopy& copy);
    const char* diagnostic;
};

constexpr const char* NoWindow = "Initialize()::CreateWindowFromNib() failed.\n";
constexpr const char* NoNib = "Initialize()::CreateNibReferenceWithCFBundle() failed.\n";

const BrokenBundle BrokenBundles[] = {
    {"no description",
     [](const BundleCopy& copy) { std::filesystem::remove(copy.resource("PDE_Shell.ui")); }, NoNib   },
    {"description cut off",
     [](const BundleCopy& copy) {
         std::filesystem::resize_file(copy.resource("PDE_Shell.ui"), 900);
     },                                                                                      NoWindow},
    {"description of something else",
     [](const BundleCopy& copy) {
         std::filesystem::copy(copy.resource("About.ui"), copy.resource("PDE_Shell.ui"),
                               std::filesystem::copy_options::overwrite_existing);
     },                                                                                      NoWindow},
    {"another bundle",
     [](const BundleCopy& copy) {
         std::filesystem::remove(copy.folder() + "/Contents/Info.plist");
     },                                                                                      NoNib   },
};

TEST(PlugIn, ShowsNothingOfABrokenBundle)
{
    for (const auto& [name, breakIt, diagnostic] : BrokenBundles) {
        SCOPED_TRACE(name);
        const BundleCopy copy;
        breakIt(copy);
        Host host(copy.folder());
        EXPECT_EQ(host.title == nullptr, std::strcmp(name, "another bundle") == 0);
        CaptureStderr();
        EXPECT_EQ(host.initialize(), -9530);
        EXPECT_EQ(GetCapturedStderr(), diagnostic);
        EXPECT_EQ(host.table->Open(host.context), -9530);
        EXPECT_EQ(host.handler, nullptr);
    }
}

} // namespace
} // namespace tarvo
