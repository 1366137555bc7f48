#include "platform/printing/PPDInput.h"

#include "platform/files/FileContents.h"
#include "platform/printing/PPDFile.h"

#include <sys/mman.h>
#include <sys/stat.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace tarvo {
namespace {

// The library's time grows with the square of the options, and of the lines.
constexpr std::size_t MostOptions = 10'000;
constexpr std::size_t MostLines = 100'000;

std::string SystemReason()
{
    return std::generic_category().message(errno);
}

std::size_t Count(std::string_view text, char letter)
{
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), letter));
}

std::size_t Count(std::string_view text, std::string_view word)
{
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(word, at)) != std::string_view::npos; ++at) {
        ++count;
    }
    return count;
}

// Looks at a file in pieces, for as a whole it would stay in memory beside what the library makes
// of it.
class PieceCheck {
public:
    // As RefusalOfPPD says, as far as this next piece of the file tells.
    std::string refusalWith(std::string_view piece)
    {
        if (bytes_ == 0 && piece.starts_with("\x1F\x8B")) {
            return "compressed; unpack it first"; // no limit would hold for what it unpacks to
        }
        bytes_ += piece.size();
        lines_ += Count(piece, '\n') + Count(piece, '\r');
        options_ +=
            Count(piece, Open) + Count(seam_.append(piece.substr(0, Open.size() - 1)), Open);
        seam_ = piece.substr(piece.size() - std::min(piece.size(), Open.size() - 1));
        if (bytes_ > PPDMaximumBytes) {
            return "larger than 8 MiB";
        }
        if (lines_ > MostLines) {
            return "more than " + std::to_string(MostLines) + " lines";
        }
        return options_ > MostOptions ? "more than " + std::to_string(MostOptions) + " options"
                                      : "";
    }

private:
    static constexpr std::string_view Open = "OpenUI";

    std::size_t bytes_ = 0;
    std::size_t lines_ = 0;
    std::size_t options_ = 0;
    std::string seam_; // the end of the piece before, where a word may begin
};

} // namespace

std::string RefusalOfPPD(const Descriptor& file)
{
    constexpr std::size_t PieceBytes = 16384;
    std::string piece(PieceBytes, '\0');
    PieceCheck check;
    for (;;) {
        const ssize_t got = read(file.number(), piece.data(), piece.size());
        if (got < 0 && errno != EINTR) {
            return SystemReason();
        }
        if (got == 0) {
            return lseek(file.number(), 0, SEEK_SET) == 0 ? "" : SystemReason();
        }
        const auto bytes = static_cast<std::size_t>(std::max<ssize_t>(got, 0));
        if (auto refusal = check.refusalWith({piece.data(), bytes}); !refusal.empty()) {
            return refusal;
        }
    }
}

Descriptor OpenPPD(const std::string& path, std::string& reason)
{
    Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (!file.valid() || fstat(file.number(), &status) != 0) {
        reason = SystemReason();
        return {};
    }
    if (!S_ISREG(status.st_mode)) {
        reason = "not a regular file";
        return {};
    }
    return file;
}

Descriptor PPDInMemory(std::string_view contents, std::string& reason)
{
    Descriptor file(memfd_create("ppd", MFD_CLOEXEC));
    if (!file.valid()) {
        reason = SystemReason();
        return {};
    }
    if (!WriteDescriptorContents(file.number(), contents, reason)) {
        return {};
    }
    if (lseek(file.number(), 0, SEEK_SET) != 0) {
        reason = SystemReason();
        return {};
    }
    return file;
}

} // namespace tarvo
