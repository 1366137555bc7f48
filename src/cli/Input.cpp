#include "cli/Input.h"

#include "platform/files/FileContents.h"

#include <unistd.h>

namespace tarvo {

std::optional<std::string> ReadInput(const std::string& file, std::size_t maximumBytes,
                                     std::string& reason)
{
    std::string why;
    auto contents = file == "-" ? ReadDescriptorContents(STDIN_FILENO, maximumBytes, why)
                                : ReadFileContents(file, maximumBytes, why);
    if (!contents) {
        reason = "cannot read: " + why;
    }
    return contents;
}

} // namespace tarvo
