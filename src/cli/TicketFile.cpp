#include "cli/TicketFile.h"

#include "cli/Input.h"
#include "cli/Messages.h"
#include "platform/cf/PropertyListReader.h"
#include "platform/cf/PropertyListWriter.h"
#include "platform/files/FileContents.h"

namespace tarvo {

std::optional<CFDictionary> ReadTicket(const std::string& input, ParseError& error)
{
    error = ParseError();
    const auto contents = ReadInput(input, PropertyListLimits.bytes, error.reason);
    if (!contents) {
        return std::nullopt;
    }
    return ReadPropertyListDictionary(*contents, error);
}

bool WriteOutput(const std::string& output, std::string_view text)
{
    if (output == "-") {
        return PrintResult(text) == ExitStatus::Done;
    }
    std::string reason;
    if (!ReplaceFileContents(output, text, reason)) {
        PrintFileMessage(output, 0, "cannot write: " + reason);
        return false;
    }
    return true;
}

bool WriteTicket(const std::string& output, CFDictionary ticket)
{
    ParseError error;
    const CFPropertyList root = std::move(ticket);
    const auto discard = [](std::string_view) { return true; };
    if (!WritePropertyList(root, discard, error)) { // before a part of it is written
        PrintFileMessage(OutputName(output), 0, "cannot write: " + error.reason);
        return false;
    }
    const FileContentsWriter writer = [&](const FilePut& put) {
        return WritePropertyList(root, put, error);
    };
    if (!ReplaceFileContents(output == "-" ? "/dev/stdout" : output, writer, error.reason)) {
        PrintFileMessage(OutputName(output), 0, "cannot write: " + error.reason);
        return false;
    }
    return true;
}

} // namespace tarvo
