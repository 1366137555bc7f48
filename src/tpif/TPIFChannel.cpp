#include "tpif/TPIFChannel.h"

#include <utility>

namespace tarvo {

TPIFChannel::TPIFChannel(WriteFunction write) : write_(std::move(write))
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

} // namespace tarvo
