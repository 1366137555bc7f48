#pragma once

#include <memory>
#include <optional>
#include <string>

using GdkPixbuf = struct _GdkPixbuf;       // NOLINT(bugprone-reserved-identifier): GDK's
using GtkPageSetup = struct _GtkPageSetup; // NOLINT(bugprone-reserved-identifier): GTK's

namespace tarvo {

/// A file of this program's own, gone with this object.
class TemporaryFile {
public:
    /// @return nullopt with `reason` filled
    static std::optional<TemporaryFile> Create(std::string& reason);
    TemporaryFile(TemporaryFile&& other) noexcept { path_.swap(other.path_); }
    TemporaryFile& operator=(TemporaryFile&& other) noexcept
    {
        path_.swap(other.path_);
        return *this;
    }
    ~TemporaryFile();

    const std::string& path() const { return path_; }

private:
    explicit TemporaryFile(std::string path) : path_(std::move(path)) {}

    std::string path_; // "" when there is none
};

struct PixbufDeleter {
    void operator()(GdkPixbuf* picture) const;
};

/// A file to print.
class Document {
public:
    /// Reads a picture, or looks whether the file is a PDF document.
    /// @param file  "-" is standard input
    /// @return nullopt with `reason` filled
    static std::optional<Document> Open(const std::string& file, std::string& reason);

    /// For people.
    const std::string& title() const { return title_; }

    /// Makes a PDF document of a picture, fitted to the page; there is one of anything else.
    /// @return the file, which lasts as long as this; nullopt with `reason` filled
    std::optional<std::string> pdf(GtkPageSetup* setup, std::string& reason);

private:
    std::string title_;
    std::string path_;
    std::optional<TemporaryFile> copy_;                 // of standard input
    std::optional<TemporaryFile> page_;                 // with the picture
    std::unique_ptr<GdkPixbuf, PixbufDeleter> picture_; // null: it is a PDF document
};

} // namespace tarvo
