// The module that GTK's list of modules names, and so every GTK 3 program loads: it must cost next
// to nothing. It names no library that such a program lacks, not even the C++ runtime, and only
// watches for print dialogs. The first printer that is selected in one loads the host part: by then
// the dialog is on the screen.
#include "host/HostInterface.h"

#include <dlfcn.h>
#include <glib-object.h>
#include <gmodule.h>

namespace {

using Constructed = void (*)(GObject*);

// What has been replaced, and what the host part wants to know.
Constructed originalDialogConstructed = nullptr;
Constructed originalJobConstructed = nullptr;
TarvoPrinterSelected hostPrinterSelected = nullptr;
TarvoDialogResponse hostDialogResponse = nullptr;
TarvoJobConstructed hostJobConstructed = nullptr;
bool isHostSought = false;

// From this module's folder: as installed, and in the build folder.
constexpr const char* HostPlaces[] = {TARVO_HOST_FROM_MODULE, "../host/tarvo-printhost.so"};

char* HostPath()
{
    Dl_info self = {};
    if (dladdr(&isHostSought, &self) == 0) {
        return nullptr;
    }
    char* folder = g_path_get_dirname(self.dli_fname);
    char* found = nullptr;
    for (const char* place : HostPlaces) {
        char* path = g_build_filename(folder, place, nullptr);
        if (found == nullptr && g_file_test(path, G_FILE_TEST_IS_REGULAR)) {
            found = path;
        } else {
            g_free(path);
        }
    }
    g_free(folder);
    return found;
}

void LoadHost()
{
    isHostSought = true;
    char* path = HostPath();
    // It leaves signal handlers and tasks behind, so it can never be unloaded.
    void* host = path == nullptr ? nullptr : dlopen(path, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (host != nullptr) {
        hostPrinterSelected =
            reinterpret_cast<TarvoPrinterSelected>(dlsym(host, TARVO_PRINTER_SELECTED));
        hostDialogResponse =
            reinterpret_cast<TarvoDialogResponse>(dlsym(host, TARVO_DIALOG_RESPONSE));
        hostJobConstructed =
            reinterpret_cast<TarvoJobConstructed>(dlsym(host, TARVO_JOB_CONSTRUCTED));
        if (hostPrinterSelected == nullptr || hostDialogResponse == nullptr ||
            hostJobConstructed == nullptr) {
            g_printerr("tarvo-print-module: %s is of another version\n", path);
        }
    } else {
        const char* reason = path == nullptr ? "tarvo-printhost.so is missing" : dlerror();
        g_printerr("tarvo-print-module: %s\n", reason);
    }
    g_free(path);
}

void PrinterSelected(GObject* dialog, GParamSpec* /*property*/, gpointer /*data*/)
{
    if (!isHostSought) {
        LoadHost();
    }
    if (hostPrinterSelected != nullptr) {
        hostPrinterSelected(dialog);
    }
}

void Responded(GObject* dialog, int response, gpointer /*data*/)
{
    if (hostDialogResponse != nullptr && hostDialogResponse(dialog, response) == 0) {
        g_signal_stop_emission_by_name(dialog, "response");
    }
}

// The application may keep a dialog that has ended.
void Destroyed(GObject* dialog, gpointer /*data*/)
{
    g_signal_handlers_disconnect_by_func(dialog, reinterpret_cast<gpointer>(PrinterSelected),
                                         nullptr);
    g_signal_handlers_disconnect_by_func(dialog, reinterpret_cast<gpointer>(Responded), nullptr);
}

// Connected before the application connects anything, so that its handlers run after ours.
void DialogConstructed(GObject* dialog)
{
    originalDialogConstructed(dialog);
    g_signal_connect(dialog, "notify::selected-printer", G_CALLBACK(PrinterSelected), nullptr);
    g_signal_connect(dialog, "response", G_CALLBACK(Responded), nullptr);
    g_signal_connect(dialog, "destroy", G_CALLBACK(Destroyed), nullptr);
}

void JobConstructed(GObject* job)
{
    originalJobConstructed(job);
    if (hostJobConstructed != nullptr) {
        hostJobConstructed(job);
    }
}

// Puts a function of ours before what a class does once an object of it is constructed.
// Returns false when the class is missing or already has it, from another copy of this module.
bool Replace(void* toolkit, const char* typeFunction, Constructed& original, Constructed ours)
{
    const auto typeOf = reinterpret_cast<GType (*)()>(dlsym(toolkit, typeFunction));
    if (typeOf == nullptr) {
        return false;
    }
    const GQuark mark = g_quark_from_static_string("tarvo-print-module");
    if (g_type_get_qdata(typeOf(), mark) != nullptr) {
        return false;
    }
    auto* objects = static_cast<GObjectClass*>(g_type_class_ref(typeOf())); // stays for good
    original = objects->constructed;
    objects->constructed = ours;
    g_type_set_qdata(typeOf(), mark, &isHostSought);
    return true;
}

} // namespace

extern "C" {

G_MODULE_EXPORT const char* g_module_check_init(GModule* module)
{
    g_module_make_resident(module); // the classes point into it
    return nullptr;
}

// GTK 3 is looked up rather than linked: another release of the toolkit may load us too, and then
// has no use for us, and a GTK may have been built without print dialogs.
G_MODULE_EXPORT void gtk_module_init(int* /*count*/, char*** /*words*/)
{
    void* toolkit = dlopen("libgtk-3.so.0", RTLD_LAZY | RTLD_NOLOAD);
    if (toolkit == nullptr) {
        return;
    }
    if (Replace(toolkit, "gtk_print_unix_dialog_get_type", originalDialogConstructed,
                DialogConstructed)) {
        Replace(toolkit, "gtk_print_job_get_type", originalJobConstructed, JobConstructed);
    }
    dlclose(toolkit);
}

} // extern "C"
