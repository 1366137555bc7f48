#include "prefs/WatermarkStore.h"

#include "platform/bundle/CFBundle.h"
#include "platform/text/Utf8.h"

#include <cerrno>
#include <cmath>
#include <limits>
#include <utility>

namespace tarvo {
namespace {

constexpr std::string_view WatermarkListKey = "WatermarkListEntries";

struct TextField {
    std::string_view key;
    std::string Watermark::*text;
    std::size_t longest;
};

constexpr TextField TextFields[] = {
    {"textString", &Watermark::text,          LongestWatermarkText},
    {"filename",   &Watermark::imageFileName, LongestWatermarkText},
    {"filePath",   &Watermark::imageFilePath, LongestWatermarkPath},
    {"fontName",   &Watermark::fontName,      LongestWatermarkText},
};

struct OffsetField {
    std::string_view key;
    float Watermark::*offset;
};

constexpr OffsetField OffsetFields[] = {
    {"xOffset", &Watermark::xOffset},
    {"yOffset", &Watermark::yOffset},
};

struct ColorField {
    std::string_view key;
    WatermarkColor Watermark::*color;
    float WatermarkColor::*component;
};

constexpr ColorField ColorFields[] = {
    {"fontColorRed",   &Watermark::fontColor, &WatermarkColor::red  },
    {"fontColorGreen", &Watermark::fontColor, &WatermarkColor::green},
    {"fontColorBlue",  &Watermark::fontColor, &WatermarkColor::blue },
    {"fontColorAlpha", &Watermark::fontColor, &WatermarkColor::alpha},
    {"wellColorRed",   &Watermark::wellColor, &WatermarkColor::red  },
    {"wellColorGreen", &Watermark::wellColor, &WatermarkColor::green},
    {"wellColorBlue",  &Watermark::wellColor, &WatermarkColor::blue },
    {"wellColorAlpha", &Watermark::wellColor, &WatermarkColor::alpha},
};

struct NumberField {
    std::string_view key;
    std::int32_t Watermark::*number;
};

constexpr NumberField NumberFields[] = {
    {"angle",    &Watermark::angle   },
    {"density",  &Watermark::density },
    {"scale",    &Watermark::scale   },
    {"units",    &Watermark::units   },
    {"fontSize", &Watermark::fontSize},
};

struct PositionField {
    std::string_view key;
    double Watermark::*position;
};

constexpr PositionField PositionFields[] = {
    {"xPos", &Watermark::xPosition},
    {"yPos", &Watermark::yPosition},
};

// The value as a real; nullopt when the entry is no finite number.
std::optional<double> RealValue(const CFDictionary& entries, std::string_view key)
{
    const CFPropertyList* value = entries.find(key);
    if (value == nullptr) {
        return std::nullopt;
    }
    if (const auto* integer = value->get<std::int64_t>()) {
        return static_cast<double>(*integer);
    }
    const auto* real = value->get<double>();
    return real != nullptr && std::isfinite(*real) ? std::optional(*real) : std::nullopt;
}

void ReadReal(const CFDictionary& entries, std::string_view key, double& field)
{
    field = RealValue(entries, key).value_or(field);
}

void ReadReal(const CFDictionary& entries, std::string_view key, float& field)
{
    const auto value = RealValue(entries, key);
    if (value && std::abs(*value) <= double{std::numeric_limits<float>::max()}) {
        field = static_cast<float>(*value);
    }
}

CFDictionary EntriesOf(const Watermark& watermark)
{
    CFDictionary entries;
    for (const TextField& field : TextFields) {
        entries.set(field.key, Utf8Prefix(watermark.*field.text, field.longest));
    }
    for (const OffsetField& field : OffsetFields) {
        entries.set(field.key, watermark.*field.offset);
    }
    for (const ColorField& field : ColorFields) {
        entries.set(field.key, watermark.*field.color.*field.component);
    }
    for (const NumberField& field : NumberFields) {
        entries.set(field.key, watermark.*field.number);
    }
    for (const PositionField& field : PositionFields) {
        entries.set(field.key, watermark.*field.position);
    }
    return entries;
}

void ReadEntries(const CFDictionary& entries, Watermark& watermark)
{
    for (const TextField& field : TextFields) {
        if (const auto* text = entries.get<std::string>(field.key)) {
            watermark.*field.text = Utf8Prefix(*text, field.longest);
        }
    }
    for (const OffsetField& field : OffsetFields) {
        ReadReal(entries, field.key, watermark.*field.offset);
    }
    for (const ColorField& field : ColorFields) {
        ReadReal(entries, field.key, watermark.*field.color.*field.component);
    }
    for (const NumberField& field : NumberFields) {
        watermark.*field.number = entries.int32(field.key).value_or(watermark.*field.number);
    }
    for (const PositionField& field : PositionFields) {
        ReadReal(entries, field.key, watermark.*field.position);
    }
}

std::optional<Watermark> WatermarkOf(const CFDictionary& root, std::string_view name)
{
    const auto* entries = root.get<CFDictionary>(name);
    if (entries == nullptr) {
        return std::nullopt;
    }
    Watermark watermark;
    ReadEntries(*entries, watermark);
    return watermark;
}

std::string NameOf(const Watermark& watermark)
{
    const std::string& name = watermark.isText ? watermark.text : watermark.imageFileName;
    return std::string(Utf8Prefix(name, LongestWatermarkText));
}

bool Change(const PreferenceFolders& folders, std::string_view fileName,
            const PreferenceChange& change, PreferenceFailure* failure)
{
    PreferenceFailure unwritten;
    const bool isDone = ChangeXMLData(folders, fileName, change, unwritten);
    if (!isDone && failure != nullptr) {
        *failure = std::move(unwritten);
    }
    return isDone;
}

} // namespace

void loadFontData(const PreferenceFolders& folders, std::string_view fileName, std::string_view key,
                  std::string& bytes)
{
    const auto root = CopyXMLData(folders, fileName);
    const auto* data = root ? root->get<CFData>(key) : nullptr;
    if (data != nullptr) {
        bytes += data->bytes;
    }
}

bool storeFontData(const PreferenceFolders& folders, std::string_view fileName,
                   std::string_view key, const CFData& bytes, PreferenceFailure* failure)
{
    const auto store = [key, &bytes](CFDictionary& root, bool isPresent) {
        root.set(key, bytes);
        return isPresent;
    };
    return Change(folders, fileName, store, failure);
}

bool removeWatermarkData(const PreferenceFolders& folders, std::string_view fileName,
                         std::string_view name, PreferenceFailure* failure)
{
    const auto remove = [name](CFDictionary& root, bool isPresent) {
        return isPresent && root.remove(name);
    };
    return Change(folders, fileName, remove, failure);
}

bool saveWatermarkList(const PreferenceFolders& folders, std::string_view fileName,
                       const std::vector<std::string>& names, PreferenceFailure* failure)
{
    const auto save = [&names](CFDictionary& root, bool) {
        root.set(WatermarkListKey, CFArray(names.begin(), names.end()));
        return true;
    };
    return Change(folders, fileName, save, failure);
}

std::optional<std::vector<std::string>> loadWatermarkList(const PreferenceFolders& folders,
                                                          std::string_view fileName)
{
    const auto root = CopyXMLData(folders, fileName);
    const auto* list = root ? root->get<CFArray>(WatermarkListKey) : nullptr;
    if (list == nullptr) {
        return std::nullopt;
    }
    std::vector<std::string> names;
    for (const CFPropertyList& value : *list) {
        if (const auto* name = value.get<std::string>()) {
            names.push_back(*name);
        }
    }
    return names;
}

bool saveWatermarkData(const PreferenceFolders& folders, std::string_view fileName,
                       const Watermark& watermark, PreferenceFailure* failure)
{
    const std::string name = NameOf(watermark);
    if (name.empty() || name == WatermarkListKey) {
        if (failure != nullptr) {
            *failure = {"write", "watermark \"" + name + "\"", EINVAL, "no name for a watermark"};
        }
        return false;
    }
    const auto save = [&](CFDictionary& root, bool) {
        root.set(name, EntriesOf(watermark));
        return true;
    };
    return Change(folders, fileName, save, failure);
}

bool loadWatermarkData(const PreferenceFolders& folders, std::string_view fileName,
                       std::string_view name, Watermark& watermark)
{
    const auto root = CopyXMLData(folders, fileName);
    const auto* entries = root ? root->get<CFDictionary>(name) : nullptr;
    if (entries == nullptr) {
        watermark = Watermark();
        return false;
    }
    ReadEntries(*entries, watermark);
    watermark.isText = false;
    return true;
}

std::optional<std::vector<NamedWatermark>> loadWatermarks(const PreferenceFolders& folders,
                                                          std::string_view fileName,
                                                          PreferenceFailure* failure)
{
    const auto root = CopyXMLData(folders, fileName, failure);
    if (!root) {
        return std::nullopt;
    }
    std::vector<NamedWatermark> watermarks;
    const auto* list = root->get<CFArray>(WatermarkListKey);
    for (const CFPropertyList& value : list == nullptr ? CFArray() : *list) {
        if (const auto* name = value.get<std::string>()) {
            watermarks.push_back({*name, WatermarkOf(*root, *name)});
        }
    }
    return watermarks;
}

void CreateDefaultWatermarks(const PreferenceFolders& folders, const CFBundle& bundle)
{
    struct DefaultWatermark {
        const char* key; // of its text
        double xPosition;
        double yPosition;
    };
    constexpr DefaultWatermark Defaults[] = {
        {"DraftWatermark",        280.627441, 311.049927},
        {"ConfidentialWatermark", 201.350601, 231.773102},
        {"CopyWatermark",         276.36319,  306.785675},
    };
    std::vector<std::string> names;
    for (const DefaultWatermark& row : Defaults) {
        Watermark watermark;
        watermark.isText = true;
        watermark.text = bundle.localizedString(row.key);
        watermark.fontName = "ArialMT";
        watermark.fontSize = 72;
        watermark.angle = 45;
        watermark.density = 25;
        watermark.scale = 100;
        watermark.fontColor = {0.75F, 0.75F, 1, 1};
        watermark.wellColor = {0, 0, 1, 1};
        watermark.xPosition = row.xPosition;
        watermark.yPosition = row.yPosition;
        names.push_back(watermark.text);
        saveWatermarkData(folders, WatermarksFile, watermark);
    }
    saveWatermarkList(folders, WatermarksFile, names);
}

} // namespace tarvo
