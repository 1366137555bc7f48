// Reads property lists and writes them again, many in one run. Each document comes on standard
// input, and each answer goes to standard output, as "KIND LENGTH" on a line and the bytes behind
// it; the kind is "xml", or "error" for the reason of a document that was refused.
#include "platform/cf/PropertyListReader.h"
#include "platform/cf/PropertyListWriter.h"
#include "platform/files/FileContents.h"

#include <unistd.h>

#include <charconv>
#include <cstdio>

namespace tarvo {
namespace {

void AddAnswer(std::string& answers, std::string_view kind, std::string_view bytes)
{
    answers.append(kind).append(" ").append(std::to_string(bytes.size())).append("\n");
    answers.append(bytes);
}

void AddEcho(std::string& answers, std::string_view xml)
{
    ParseError error;
    const auto value = ReadPropertyList(xml, error);
    const auto written = value ? WritePropertyList(*value, error) : std::nullopt;
    AddAnswer(answers, written ? "xml" : "error", written ? *written : error.reason);
}

// Takes the next document from the stream; nullopt when the stream is not of the form.
std::optional<std::string_view> TakeDocument(std::string_view& stream)
{
    constexpr std::string_view Kind = "xml ";
    const std::size_t line = stream.find('\n');
    if (!stream.starts_with(Kind) || line == std::string_view::npos) {
        return std::nullopt;
    }
    std::size_t length = 0;
    std::from_chars(stream.data() + Kind.size(), stream.data() + line, length);
    const std::string_view document = stream.substr(line + 1, length);
    stream.remove_prefix(line + 1 + document.size());
    return document.size() == length ? std::optional(document) : std::nullopt;
}

int EchoAll()
{
    constexpr std::size_t LargestStream = 256 * 1024 * 1024;
    std::string reason;
    const auto input = ReadDescriptorContents(STDIN_FILENO, LargestStream, reason);
    if (!input) {
        std::fprintf(stderr, "standard input: %s\n", reason.c_str());
        return 1;
    }
    std::string answers;
    for (std::string_view stream = *input; !stream.empty();) {
        const auto document = TakeDocument(stream);
        if (!document) {
            std::fputs("standard input: not \"xml LENGTH\" and so many bytes\n", stderr);
            return 1;
        }
        AddEcho(answers, *document);
    }
    return WriteDescriptorContents(STDOUT_FILENO, answers, reason) ? 0 : 1;
}

} // namespace
} // namespace tarvo

int main()
{
    return tarvo::EchoAll();
}
