#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tarvo {

/// Where the chunks of one document go, in document order. Each export has a channel of its own.
class TPIFChannel {
public:
    using WriteFunction = std::function<void(std::string_view)>;

    /// @param write  takes the text in pieces, most of some 64 KiB, the last one when the channel
    /// ends
    /// @param isQuiet  the writers' diagnostics are left out
    explicit TPIFChannel(WriteFunction write, bool isQuiet = false);
    TPIFChannel(const TPIFChannel&) = delete;
    TPIFChannel& operator=(const TPIFChannel&) = delete;
    ~TPIFChannel();

    void write(std::string_view text)
    {
        if (text.size() >= PieceSize) { // large as it is: no copy
            flush();
            write_(text);
            return;
        }
        pending_ += text;
        if (pending_.size() >= PieceSize) {
            flush();
        }
    }

    /// Hands on what is pending; the owner of a write function that throws calls it before the end.
    void flush();

    bool isQuiet() const { return isQuiet_; }

private:
    static constexpr std::size_t PieceSize = std::size_t{64} * 1024;

    WriteFunction write_;
    bool isQuiet_;
    std::string pending_;
};

/// Puts a text out; a text that holds a NUL character ends there.
void DevWriteTpif(TPIFChannel& writeData, std::string_view text);

/// Puts a diagnostic on standard error, as std::printf would, unless the channel is quiet.
__attribute__((format(printf, 2, 3))) void DevDiagnose(const TPIFChannel& writeData,
                                                       const char* format, ...);

} // namespace tarvo
