// Any bytes as a document: refused, or read into entries that a job ticket can hold and an export
// can write; and what came out must come out again when that export is imported.
#include "ImportSteps.h"
#include "platform/cf/PropertyListWriter.h"
#include "printer/FeatureDatabase.h"
#include "tpif/DeviceProfile.h"
#include "tpif/TPIFImport.h"
#include "tpif/TPIFWriter.h"

#include <cstdlib>

namespace tarvo {
namespace {

void Expect(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

// A second reading, piece by piece and watched, must give the same.
void ReadAgain(const TPIFImportFeatures& features, std::string_view xml, const CFDictionary& first,
               OSStatus status)
{
    const TPIFImportObserver observer = [](const TPIFImportStep& step) {
        Expect(step.path.starts_with('.') && step.line > 0);
        Expect((step.value != nullptr) == (step.outcome == TPIFImportOutcome::Taken));
        Expect(step.reason.empty() == (step.outcome == TPIFImportOutcome::Taken));
    };
    const XmlSource slow = [source = XmlSourceOf(xml)](char* bytes, std::size_t size,
                                                       std::string& reason) {
        return source(bytes, std::min<std::size_t>(size, 7), reason);
    };
    CFDictionary again;
    ParseError error;
    Expect(TPIFImportDocument(features, slow, again, error, &observer) == status);
    Expect(again == first);
}

} // namespace
} // namespace tarvo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace tarvo;
    static const TPIFImportFeatures features = TPIFImportFeatures(FeatureDatabase(DeviceProfile()));
    const std::string_view xml(reinterpret_cast<const char*>(bytes), size);
    CFDictionary result;
    ParseError error;
    const OSStatus status = TPIFImportDocument(features, XmlSourceOf(xml), result, error);
    ReadAgain(features, xml, result, status);
    if (status != StatusOk) {
        Expect(!error.reason.empty() && result.empty());
        return 0;
    }
    Expect(FaultOfSteps(features, xml).empty());
    Expect(WritePropertyList(result, error).has_value());
    const std::string document = TPIFDocumentOf(result);
    CFDictionary again;
    Expect(TPIFImportDocument(features, XmlSourceOf(document), again, error) == StatusOk);
    Expect(TPIFDocumentOf(again) == document);
    return 0;
}
