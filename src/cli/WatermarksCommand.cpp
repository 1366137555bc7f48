#include "cli/WatermarksCommand.h"

#include "cli/JsonText.h"
#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "prefs/WatermarkStore.h"

#include <nlohmann/json.hpp>

#include <cerrno>

namespace tarvo {
namespace {

using Json = nlohmann::ordered_json;

std::string TextOf(const NamedWatermark& each)
{
    std::string text = WithoutControls(each.name) + '\n';
    if (each.watermark && !each.watermark->imageFilePath.empty()) {
        text += "  " + WithoutControls(each.watermark->imageFilePath) + '\n';
    }
    return text;
}

// Each with its name first, and below it the file of a picture.
std::string WatermarksText(const std::vector<NamedWatermark>& watermarks)
{
    std::string text;
    for (const NamedWatermark& each : watermarks) {
        text += TextOf(each);
    }
    return text;
}

Json JsonOf(const Watermark& watermark)
{
    return {
        {"text",     watermark.text         },
        {"fileName", watermark.imageFileName},
        {"filePath", watermark.imageFilePath},
        {"fontName", watermark.fontName     },
        {"fontSize", watermark.fontSize     },
        {"angle",    watermark.angle        },
        {"density",  watermark.density      },
        {"scale",    watermark.scale        }
    };
}

std::string WatermarksJson(const std::vector<NamedWatermark>& watermarks)
{
    Json json = {
        {"watermarks", Json::array()}
    };
    for (const NamedWatermark& each : watermarks) {
        json["watermarks"].push_back({
            {"name",      each.name                                               },
            {"watermark", each.watermark ? JsonOf(*each.watermark) : Json(nullptr)}
        });
    }
    return JsonText(json);
}

} // namespace

ExitStatus RunWatermarksList(const Arguments& arguments)
{
    PreferenceFailure failure;
    auto watermarks = loadWatermarks(UserPreferenceFolders(), WatermarksFile, &failure);
    if (!watermarks && failure.error != ENOENT && failure.error != ENOTDIR) {
        PrintMessage(failure.message());
        return ExitStatus::Failed;
    }
    if (!watermarks) { // none was ever made
        watermarks.emplace();
    }
    const ExitStatus printed = PrintResult(arguments.has(JsonOption) ? WatermarksJson(*watermarks)
                                                                     : WatermarksText(*watermarks));
    ExitStatus left = ExitStatus::Done;
    for (const NamedWatermark& each : *watermarks) {
        if (!each.watermark) {
            PrintMessage("the watermark \"" + each.name + "\" is in the list, but not stored");
            left = ExitStatus::LeftOut;
        }
    }
    return printed == ExitStatus::Done ? left : printed;
}

} // namespace tarvo
