// Exports generated tickets, imports the documents and exports them again: what can come back must,
// and the second document must be the first, byte for byte, unless the first has what cannot. The
// number of tickets is an argument.
#include "TicketGenerator.h"
#include "platform/bundle/CFBundle.h"
#include "platform/cf/PropertyListWriter.h"
#include "printer/FeatureDatabase.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFImport.h"
#include "tpif/TPIFWriter.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace tarvo {
namespace {

constexpr std::uint64_t UsualCount = 20'000;

std::string Exported(const CFDictionary& ticket, const std::optional<PageFormat>& page)
{
    std::string document;
    TPIFChannel channel([&document](std::string_view piece) { document += piece; }, true);
    WriteTPIF(channel, ticket, page ? &*page : nullptr);
    channel.flush();
    return document;
}

std::string ExportedAgain(CFDictionary imported, const GeneratedTicket& generated)
{
    imported.set(ExportOptionsKey, *generated.ticket.find(ExportOptionsKey));
    return Exported(imported, generated.page);
}

// What is wrong with the round trip of a ticket; empty when nothing is.
std::string Fault(const TPIFImportFeatures& features, GeneratedTicket& generated,
                  std::size_t& unreadable)
{
    const std::string document = Exported(generated.ticket, generated.page);
    CFDictionary result;
    ParseError error;
    if (TPIFImportDocument(features, XmlSourceOf(document), result, error) != StatusOk) {
        ++unreadable;
        // A punch position beside no staple and no fold repeats the start tag.
        return generated.isWildFinishing ? "" : "unreadable: " + error.reason;
    }
    const std::string second = ExportedAgain(result, generated);
    if (!generated.isLossy && second != document) {
        return "the second document differs";
    }
    CFDictionary again;
    TPIFImportDocument(features, XmlSourceOf(second), again, error);
    if (ExportedAgain(again, generated) != second) {
        return "the third document differs from the second";
    }
    if (generated.isWildFinishing) {
        result.removeKeys(IsFinishingKey);
        generated.expected.removeKeys(IsFinishingKey);
    }
    return result == generated.expected ? "" : "the import differs";
}

void Show(const char* name, const CFDictionary& dictionary)
{
    ParseError error;
    std::printf("%s:\n%s\n", name, WritePropertyList(dictionary, error).value_or("").c_str());
}

int Run(std::uint64_t count)
{
    const CFBundle bundle(TARVO_BINARY_DIR "/TarvoFeatures.plugin", {});
    const FeatureDatabase database(bundle.propertyList(DeviceProfileName).value_or(CFDictionary()));
    const TPIFImportFeatures features(database);
    std::size_t unreadable = 0;
    std::size_t lossless = 0;
    for (std::uint64_t seed = 0; seed < count; ++seed) {
        GeneratedTicket generated = GenerateTicket(seed);
        lossless += generated.isLossy ? 0 : 1;
        const std::string fault = Fault(features, generated, unreadable);
        if (!fault.empty()) {
            std::printf("seed %llu: %s\n", static_cast<unsigned long long>(seed), fault.c_str());
            Show("ticket", generated.ticket);
            Show("expected", generated.expected);
            CFDictionary result;
            ParseError error;
            TPIFImportDocument(features, XmlSourceOf(Exported(generated.ticket, generated.page)),
                               result, error);
            Show("imported", result);
            std::printf("first:\n%s\nsecond:\n%s\n",
                        Exported(generated.ticket, generated.page).c_str(),
                        ExportedAgain(result, generated).c_str());
            return EXIT_FAILURE;
        }
    }
    std::printf("%llu tickets: %zu without loss, %zu unreadable when exported\n",
                static_cast<unsigned long long>(count), lossless, unreadable);
    return lossless * 4 > count && unreadable * 50 < count ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace
} // namespace tarvo

int main(int count, char** words)
{
    const std::uint64_t tickets =
        count > 1 ? std::strtoull(words[1], nullptr, 10) : tarvo::UsualCount;
    return tarvo::Run(tickets);
}
