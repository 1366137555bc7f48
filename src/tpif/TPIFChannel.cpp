#include "tpif/TPIFChannel.h"

#include <cstdarg>
#include <cstdio>
#include <utility>

namespace tarvo {

TPIFChannel::TPIFChannel(WriteFunction write, bool isQuiet)
    : write_(std::move(write)), isQuiet_(isQuiet)
{
    pending_.reserve(PieceSize + PieceSize / 4);
}

TPIFChannel::~TPIFChannel()
{
    try {
        flush();
    } catch (...) { // a destructor cannot tell; who needs to know calls flush()
        pending_.clear();
    }
}

void TPIFChannel::flush()
{
    if (!pending_.empty()) {
        write_(pending_);
        pending_.clear();
    }
}

void DevWriteTpif(TPIFChannel& writeData, std::string_view text)
{
    writeData.write(text.substr(0, text.find('\0')));
}

void DevDiagnose(const TPIFChannel& writeData, const char* format, ...)
{
    if (writeData.isQuiet()) {
        return;
    }
    std::va_list values;
    va_start(values, format);
    std::vfprintf(stderr, format, values);
    va_end(values);
}

} // namespace tarvo
