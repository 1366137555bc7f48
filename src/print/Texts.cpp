#include "print/Texts.h"

#include "platform/bundle/CFBundle.h"
#include "platform/text/TextFormat.h"

#include <filesystem>
#include <system_error>

namespace tarvo {
namespace {

constexpr const char* DialogTitleKey = "PrintDocumentTitle";
constexpr const char* InputTitleKey = "StandardInputTitle";

const CFBundle& Texts()
{
    static const CFBundle bundle = [] {
        std::error_code error; // unread: then there are no texts
        const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
        return CFBundle(BundleFolderFrom(program.parent_path(),
                                         {"../../TarvoFeatures.plugin", TARVO_BUNDLE_FROM_PROGRAM}),
                        UserLanguages());
    }();
    return bundle;
}

} // namespace

std::string DialogTitle(const std::string& document)
{
    return Texts().hasTexts() ? FilledFormat(Texts().localizedString(DialogTitleKey), document)
                              : document;
}

std::string InputTitle()
{
    return Texts().hasTexts() ? Texts().localizedString(InputTitleKey) : "-";
}

} // namespace tarvo
