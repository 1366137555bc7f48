#pragma once

#include "tpif/TPIFChannel.h"

#include <cstdint>
#include <string_view>

namespace tarvo {

/// The XML declaration, the document type and the root's start tag.
/// @param dtdVersion  0 to 5; any other writes no document type
void WriteTPifHeader(TPIFChannel& writeData, int dtdVersion);
inline constexpr int ExportedDtdVersion = 5;

/// The group of the operation's attributes, with job name and requesting user; or, with
/// `recipientOnly`, a single job-recipient-name that holds `userName`. Both texts are escaped.
void WriteTPifOpAttrib(TPIFChannel& writeData, bool recipientOnly, std::string_view jobName,
                       std::string_view userName);

void WriteTPifJobAttribStart(TPIFChannel& writeData);
void WriteTPifJobAttribEnd(TPIFChannel& writeData);

/// The root's end tag, without a line feed after it.
void WriteTPifTrailer(TPIFChannel& writeData);

enum class TPIFSpecialPages { PageOverrides = 0, InsertSheets = 1 };

/// The start and end tag of the set that holds exception pages or inserts.
void WriteTPifSpecialPagesStart(TPIFChannel& writeData, TPIFSpecialPages kind);
void WriteTPifSpecialPagesEnd(TPIFChannel& writeData, TPIFSpecialPages kind);

struct TPIFResolution {
    std::int32_t crossFeed;
    std::int32_t feedDirection;
    std::int32_t units; // 3: dots per inch
};

void WriteTPifResolution(TPIFChannel& writeData, const TPIFResolution& resolution);

} // namespace tarvo
