// The module that GTK's list of modules names, and so every GTK 3 program loads: it must cost next
// to nothing. It names no library that such a program lacks, not even the C++ runtime, and only
// watches for the first print dialog, with which it loads the host part.
#include "host/HostInterface.h"

#include <dlfcn.h>
#include <glib-object.h>
#include <gmodule.h>

namespace {

using Constructed = TarvoObjectConstructed;

// What has been replaced, and what the host part wants to know.
Constructed originalDialogConstructed = nullptr;
Constructed originalJobConstructed = nullptr;
Constructed hostDialogConstructed = nullptr;
Constructed hostJobConstructed = nullptr;
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
        hostDialogConstructed =
            reinterpret_cast<Constructed>(dlsym(host, TARVO_DIALOG_CONSTRUCTED));
        hostJobConstructed = reinterpret_cast<Constructed>(dlsym(host, TARVO_JOB_CONSTRUCTED));
    } else {
        const char* reason = path == nullptr ? "tarvo-printhost.so is missing" : dlerror();
        g_printerr("tarvo-print-module: %s\n", reason);
    }
    g_free(path);
}

void DialogConstructed(GObject* dialog)
{
    originalDialogConstructed(dialog);
    if (!isHostSought) {
        LoadHost();
    }
    if (hostDialogConstructed != nullptr) {
        hostDialogConstructed(dialog);
    }
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
