#include "demo/MediaFile.h"

#include "platform/files/FileContents.h"

#include <sstream>

namespace tarvo {

std::optional<std::vector<DemoMedium>> ReadMediaFile(const std::string& path, std::string& fault)
{
    constexpr std::size_t LargestFile = std::size_t{16} * 1024 * 1024;
    const auto contents = ReadFileContents(path, LargestFile, fault);
    if (!contents) {
        fault = path + ": " + fault;
        return std::nullopt;
    }
    std::vector<DemoMedium> media;
    std::istringstream lines(*contents);
    std::string line;
    bool isWithin = false;
    for (std::size_t number = 1; std::getline(lines, line); ++number) {
        const std::size_t colon = line.find(": ");
        if (line.empty() || line.front() == '#') {
            isWithin = isWithin && !line.empty();
        } else if (colon == std::string::npos) {
            fault =
                path + ":" + std::to_string(number) + ": neither \"member: value\" nor a comment";
            return std::nullopt;
        } else {
            if (!isWithin) {
                media.emplace_back();
                isWithin = true;
            }
            media.back().emplace_back(line.substr(0, colon), line.substr(colon + 2));
        }
    }
    return media;
}

} // namespace tarvo
