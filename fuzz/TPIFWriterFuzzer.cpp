// Settings with every key that the writer reads and values of any kind under them: it must write a
// whole document or nothing, and never crash.
#include "records/BackgroundFormsKeys.h"
#include "records/FullColorKeys.h"
#include "records/HighlightColorKeys.h"
#include "records/ImageShiftKeys.h"
#include "records/JobTypeKeys.h"
#include "records/SpecialPageKeys.h"
#include "records/StockKeys.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFWriter.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>
#include <iterator>

namespace tarvo {
namespace {

constexpr std::string_view Keys[] = {
    FullColorBlackOverprintKey,
    FullColorContrastKey,
    FullColorMagentaGreenKey,
    FullColorSaturationKey,
    FullColorTrappingSlowKey,
    FullColorYellowBlueKey,
    GraphicRenderingKey,
    GrayTextAndGraphicsProfileKey,
    HighlightColorBKey,
    HighlightColorGKey,
    HighlightColorHKey,
    HighlightColorSKey,
    HighlightColorVKey,
    TextRenderingKey,
    ExportAllKey,
    ExportCoversKey,
    ExportInsertsKey,
    ExportExceptionsKey,
    ExportOptionsKey,
    UseJobNameKey,
    SystemJobNameKey,
    SystemDuplexKey,
    JobTypeKey,
    JobLevelStockKey,
    DuplexKey,
    OutputDestinationKey,
    OutputColorKey,
    BackgroundFormsOptionsKey,
    FinishingOptionsKey,
    Staple1ValueKey,
    Staple2ValueKey,
    StapleCenterValueKey,
    FoldValueKey,
    BindValueKey,
    HolePunchValueKey,
    HolePunchOptionsKey,
    ZFoldValueKey,
    CustomFinishingKey,
    BookletFoldStapleKey,
    SlipSheetKey,
    OffsetKey,
    OffsetEnableSubsetKey,
    OffsetPagesPerSubsetKey,
    FrontCoverKey,
    BackCoverKey,
    InsertListKey,
    ExceptionListKey,
    ResolutionKey,
    HalftoneScreenKey,
    HighlightColorOptionsKey,
    JobImageShiftKey,
    FullColorOptionsKey,
    AntialiasingKey,
    LightenDarkenKey,
    TonerSaverKey,
    JobNotesJobNameKey,
    JobNotesSenderNameKey,
    JobNotesRecipientKey,
    JobNotesMessageKey,
    JobNotesSheetMessageKey,
    OPISubstitutionKey,
    OPIPrescanKey,
    OutputOrderKey,
    QuillonEmulationKey,
    RotateImageKey,
    AccountingOnKey,
    AccountingUserKey,
    AccountingAccountKey,
    StockSizeKey,
    StockWidthKey,
    StockLengthKey,
    StockTypeKey,
    StockCustomTypeKey,
    StockModulusKey,
    StockColorKey,
    StockCustomColorKey,
    StockWeightKey,
    StockPunchedKey,
    StockDescriptionKey,
    StockSidesCoatedKey,
    StockCoatingTypeKey,
    StockFinishKey,
    StockGrainKey,
    StockCustomNameKey,
    StockCustomNameOnlyKey,
    PageStockKey,
    StartPageKey,
    EndPageKey,
    InsertQuantityKey,
    SidesImagedKey,
    PageImageShiftKey,
    PageLightenDarkenKey,
    PageFullColorKey,
    PageAntialiasingKey,
    PageOutputColorKey,
    ShiftInchesKey,
    ShiftFullPrecisionKey,
    ShiftX1Key,
    ShiftY1Key,
    ShiftX2Key,
    ShiftY2Key,
    FullColorLightnessKey,
    FullColorCastKey,
    FullColorCyanRedKey,
    FullColorTrappingKey,
    FullColorTrappingFastKey,
    FullColorTRCKey,
    RGBImagesProfileKey,
    RGBTextAndGraphicsProfileKey,
    CMYKImagesProfileKey,
    CMYKTextAndGraphicsProfileKey,
    GrayImagesProfileKey,
    DestinationProfileKey,
    ImageRenderingKey,
    HighlightPrintingColorKey,
    HighlightMappingColorKey,
    HighlightMappingAlgorithmKey,
    HighlightMismatchActionKey,
    HighlightColorRGBKey,
    HighlightColorRKey,
    NewFormStringKey,
    MergeWithStringKey,
    CyclePagesKey,
    JobTypeNumberKey,
    SavedJobNameKey,
    SavedJobLocationKey,
    SaveFormatKey,
};

constexpr int DeepestValue = 4;

CFDictionary AnyDictionary(FuzzedDataProvider& data, int depth);

CFPropertyList AnyValue(FuzzedDataProvider& data, int depth)
{
    const int lastKind = depth < DeepestValue ? 8 : 6;
    switch (data.ConsumeIntegralInRange(0, lastKind)) {
    case 0:
        return data.ConsumeBool();
    case 1:
        return data.ConsumeIntegralInRange(-1, 80); // most choices
    case 2:
        return data.ConsumeIntegral<std::int64_t>();
    case 3:
        return data.ConsumeFloatingPoint<double>();
    case 4:
        return data.ConsumeRandomLengthString(300);
    case 5:
        return CFData{data.ConsumeRandomLengthString(8)};
    case 6:
        return CFDate{data.ConsumeIntegral<std::int64_t>()};
    case 7:
        return AnyDictionary(data, depth + 1);
    default: {
        CFArray array;
        for (int count = data.ConsumeIntegralInRange(0, 4); count > 0; --count) {
            array.push_back(AnyValue(data, depth + 1));
        }
        return array;
    }
    }
}

CFDictionary AnyDictionary(FuzzedDataProvider& data, int depth)
{
    CFDictionary dictionary;
    for (int count = data.ConsumeIntegralInRange(0, 12); count > 0; --count) {
        const auto index = data.ConsumeIntegralInRange<std::size_t>(0, std::size(Keys) - 1);
        dictionary.set(Keys[index], AnyValue(data, depth));
    }
    return dictionary;
}

} // namespace
} // namespace tarvo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace tarvo;
    FuzzedDataProvider data(bytes, size);
    PageFormat page = {PageOrientation{data.ConsumeIntegralInRange(0, 4)},
                       data.ConsumeFloatingPoint<float>(), data.ConsumeFloatingPoint<float>()};
    const bool hasPage = data.ConsumeBool();
    const CFDictionary options = AnyDictionary(data, 1);
    CFDictionary settings = AnyDictionary(data, 0);
    if (data.ConsumeBool()) {
        settings.set(ExportOptionsKey, options);
    }
    std::string document;
    {
        TPIFChannel channel([&document](std::string_view piece) { document += piece; });
        WriteTPIF(channel, settings, hasPage ? &page : nullptr);
    }
    if (!document.empty() && (!document.starts_with("<?xml ") || !document.ends_with("</tpif>") ||
                              document.find('\0') != std::string::npos)) {
        std::abort();
    }
    return 0;
}
