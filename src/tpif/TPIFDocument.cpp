#include "tpif/TPIFDocument.h"

#include "tpif/TPIFElement.h"

#include <string>

namespace tarvo {
namespace {

std::string_view NameOf(TPIFSpecialPages kind)
{
    return kind == TPIFSpecialPages::PageOverrides ? "page-overrides" : "insert-sheet";
}

} // namespace

void WriteTPifHeader(TPIFChannel& writeData, int dtdVersion)
{
    DevWriteTpif(writeData, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    if (dtdVersion >= 0 && dtdVersion <= 5) {
        DevWriteTpif(writeData, "<!DOCTYPE tpif SYSTEM \"tpif-v0202" + std::to_string(dtdVersion) +
                                    ".dtd\">\n");
    }
    DevWriteTpif(writeData, "<tpif version=\"1.0\" xml:lang=\"en-US\" cpss-version=\"2.01\">\n");
}

void WriteTPifOpAttrib(TPIFChannel& writeData, bool recipientOnly, std::string_view jobName,
                       std::string_view userName)
{
    if (recipientOnly) {
        WriteTPIFElement(writeData, AttributeIndent, "job-recipient-name", TPIFSyntax::Name,
                         userName);
        return;
    }
    DevWriteTpif(writeData, "\t<tpif-operation-attributes>\n");
    WriteTPIFElement(writeData, AttributeIndent, "job-name", TPIFSyntax::Name, jobName);
    WriteTPIFElement(writeData, AttributeIndent, "requesting-user-name", TPIFSyntax::Name,
                     userName);
    DevWriteTpif(writeData, "\t</tpif-operation-attributes>\n");
}

void WriteTPifJobAttribStart(TPIFChannel& writeData)
{
    DevWriteTpif(writeData, "\t<job-template-attributes>\n");
}

void WriteTPifJobAttribEnd(TPIFChannel& writeData)
{
    DevWriteTpif(writeData, "\t</job-template-attributes>\n");
}

void WriteTPifTrailer(TPIFChannel& writeData)
{
    DevWriteTpif(writeData, "</tpif>");
}

void WriteTPifSpecialPagesStart(TPIFChannel& writeData, TPIFSpecialPages kind)
{
    DevWriteTpif(writeData, "\t\t<" + std::string(NameOf(kind)) + " syntax=\"1setOf\">\n");
}

void WriteTPifSpecialPagesEnd(TPIFChannel& writeData, TPIFSpecialPages kind)
{
    DevWriteTpif(writeData, "\t\t</" + std::string(NameOf(kind)) + ">\n");
}

void WriteTPifResolution(TPIFChannel& writeData, const TPIFResolution& resolution)
{
    const TPIFBlock block(writeData, AttributeIndent, "printer-resolution", TPIFSyntax::Resolution);
    WriteTPIFElement(writeData, MemberIndent, "cross-feed", resolution.crossFeed);
    WriteTPIFElement(writeData, MemberIndent, "feed-direction", resolution.feedDirection);
    WriteTPIFElement(writeData, MemberIndent, "units", resolution.units);
}

} // namespace tarvo
