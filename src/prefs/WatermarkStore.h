#pragma once

#include "platform/cf/CFPropertyList.h"
#include "prefs/PreferenceFiles.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

class CFBundle;

/// The site file of watermarks: their names in order, each watermark under its name, and the data
/// of fonts made ready for them under keys of their own.
inline constexpr std::string_view WatermarksFile = "com.tarvo.printing.watermarks.plist";

// Bytes of UTF-8 that the texts of a watermark have room for.
inline constexpr std::size_t LongestWatermarkText = 511;
inline constexpr std::size_t LongestWatermarkPath = 8191;

/// A colour's components, 0 to 1.
struct WatermarkColor {
    float red = 0;
    float green = 0;
    float blue = 0;
    float alpha = 0;
    bool operator==(const WatermarkColor&) const = default;
};

/// One watermark: a text or a picture behind or before the page's image.
struct Watermark {
    std::string text;
    std::string imageFileName;
    std::string imageFilePath;
    std::string fontName; // of PostScript
    float xOffset = 0;
    float yOffset = 0;
    WatermarkColor fontColor;
    WatermarkColor wellColor; // of the colour button
    std::int32_t angle = 0;   // degrees
    std::int32_t density = 0; // percent
    std::int32_t scale = 0;   // percent
    std::int32_t units = 0;
    std::int32_t fontSize = 0; // points
    bool isText = false;       // not stored
    double xPosition = 0;      // points
    double yPosition = 0;      // points
    bool operator==(const Watermark&) const = default;
};

// The functions below change the file under its lock. What cannot be written is lost without a
// word, save for the failure given back to whoever asks.

/// Appends the bytes stored under the key, if there are any.
void loadFontData(const PreferenceFolders& folders, std::string_view fileName, std::string_view key,
                  std::string& bytes);

/// Stores a font's bytes; does nothing while there is no file.
bool storeFontData(const PreferenceFolders& folders, std::string_view fileName,
                   std::string_view key, const CFData& bytes, PreferenceFailure* failure = nullptr);

/// Removes a watermark or a font's data; does nothing while there is no file. The list of names
/// stays as it is.
bool removeWatermarkData(const PreferenceFolders& folders, std::string_view fileName,
                         std::string_view name, PreferenceFailure* failure = nullptr);

/// Stores the names of the watermarks, in the order in which they are offered.
bool saveWatermarkList(const PreferenceFolders& folders, std::string_view fileName,
                       const std::vector<std::string>& names, PreferenceFailure* failure = nullptr);

/// @return the names in their order; nullopt when no list is stored
std::optional<std::vector<std::string>> loadWatermarkList(const PreferenceFolders& folders,
                                                          std::string_view fileName);

/// Stores a watermark under its text or, when it is no text, under the name of its picture. Texts
/// that are too long are cut. An empty name and that of the list itself are refused.
bool saveWatermarkData(const PreferenceFolders& folders, std::string_view fileName,
                       const Watermark& watermark, PreferenceFailure* failure = nullptr);

/// Fills a watermark with what is stored under the name; an entry that is absent leaves its field.
/// Whether it is a text is not stored: `isText` is false afterwards.
/// @return false, with the watermark cleared, when there is none of that name
bool loadWatermarkData(const PreferenceFolders& folders, std::string_view fileName,
                       std::string_view name, Watermark& watermark);

/// A name of the list of watermarks and what is stored under it.
struct NamedWatermark {
    std::string name;
    std::optional<Watermark> watermark; // nullopt when nothing is; see loadWatermarkData
};

/// Reads all watermarks of the list, in its order.
/// @return nullopt, with `failure` filled if that is given, when there is no file to read; none
/// when it has no list
std::optional<std::vector<NamedWatermark>> loadWatermarks(const PreferenceFolders& folders,
                                                          std::string_view fileName,
                                                          PreferenceFailure* failure = nullptr);

/// Stores the watermarks that come with the product, named in the user's language, and their list.
/// What is stored under the same names is replaced, and so is the list.
void CreateDefaultWatermarks(const PreferenceFolders& folders, const CFBundle& bundle);

} // namespace tarvo
