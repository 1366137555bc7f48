#include "panels/toolkit/Help.h"

#include "panels/toolkit/DesktopServices.h"
#include "platform/bundle/CFBundle.h"

#include <glibmm/convert.h>

namespace tarvo {
namespace {

constexpr const char* HelpBookEntry = "CFBundleHelpBookName"; // string
constexpr const char* HelpFolder = "help";
constexpr const char* FirstPage = "index.html";

} // namespace

OSStatus DisplayHelp(const CFBundle* bundle, Gtk::Window* parent, const char* page,
                     const char* anchor)
{
    if (bundle == nullptr || bundle->infoDictionary().get<std::string>(HelpBookEntry) == nullptr) {
        return StatusBadArgument;
    }
    const std::string name = page == nullptr ? FirstPage : page;
    const auto path = bundle->resourcePath(std::string(HelpFolder) + "/" + name);
    if (!path) {
        return StatusNoFile;
    }
    std::string uri = Glib::filename_to_uri(*path);
    if (anchor != nullptr) {
        uri += std::string("#") + anchor;
    }
    return TheDesktopServices().openURI(parent, uri);
}

OSStatus RegisterMyHelpBook(const CFBundle* bundle)
{
    return bundle == nullptr || bundle->resourcePath(HelpFolder) ? StatusOk : StatusNoFile;
}

} // namespace tarvo
