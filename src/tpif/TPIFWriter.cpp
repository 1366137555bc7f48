#include "tpif/TPIFWriter.h"

#include "settings/TicketKeys.h"
#include "tpif/TPIFBackgroundForms.h"
#include "tpif/TPIFColor.h"
#include "tpif/TPIFCommands.h"
#include "tpif/TPIFDocument.h"
#include "tpif/TPIFElement.h"
#include "tpif/TPIFFinishing.h"
#include "tpif/TPIFImageShift.h"
#include "tpif/TPIFJob.h"
#include "tpif/TPIFMedia.h"
#include "tpif/TPIFSpecialPages.h"

namespace tarvo {
namespace {

// Which parts of a job an export takes. A part counts when its flag is there, whatever its value.
class ExportOptions {
public:
    ExportOptions(const CFDictionary& flags, const CFDictionary& settings)
        : all_(flags.contains(ExportAllKey)),
          covers_(flags.contains(ExportCoversKey)),
          inserts_(flags.contains(ExportInsertsKey)),
          exceptions_(flags.contains(ExportExceptionsKey)),
          settings_(settings)
    {
    }

    bool takeAll() const { return all_; }
    bool takeCovers() const { return all_ || covers_; }
    bool takeInserts() const { return all_ || inserts_; }
    bool takeExceptions() const { return all_ || exceptions_; }

    /// Whether there is anything to write: of a partial export, whether one of its parts is there.
    bool makeDocument() const
    {
        return all_ ||
               (covers_ && (has<CFDictionary>(FrontCoverKey) || has<CFDictionary>(BackCoverKey))) ||
               (inserts_ && has<CFArray>(InsertListKey)) ||
               (exceptions_ && has<CFArray>(ExceptionListKey));
    }

private:
    template <typename Type>
    bool has(std::string_view key) const
    {
        return settings_.get<Type>(key) != nullptr;
    }

    bool all_;
    bool covers_;
    bool inserts_;
    bool exceptions_;
    const CFDictionary& settings_;
};

// Inserting and pre-scanning count from 2 in the ticket, from 0 in the commands.
void WriteFromTwo(TPIFChannel& writeData, const CFDictionary& settings, std::string_view key,
                  std::int32_t command)
{
    const auto value = settings.int32(key);
    if (value && *value >= 2) { // no word stands for less
        WriteTPifCommands(writeData, command, *value - 2);
    }
}

void WriteStored(TPIFChannel& writeData, const CFDictionary& settings, std::string_view key,
                 std::int32_t command)
{
    if (const auto value = settings.int32(key)) {
        WriteTPifCommands(writeData, command, *value);
    }
}

void WriteTonerSaver(TPIFChannel& writeData, const CFDictionary& settings)
{
    if (settings.contains(TonerSaverKey)) {
        WriteTPifCommands(writeData, TPIFCommand::TonerSaver,
                          settings.isTrue(TonerSaverKey) ? 1 : 0);
    }
}

// Not rotated 1, rotated 2; the command has 1 and 0.
void WriteRotation(TPIFChannel& writeData, const CFDictionary& settings)
{
    const auto rotation = settings.int32(RotateImageKey);
    if (rotation == 1 || rotation == 2) {
        WriteTPifCommands(writeData, TPIFCommand::PageRotation, *rotation == 1 ? 1 : 0);
    }
}

void WriteSpecialPages(TPIFChannel& writeData, const CFDictionary& settings,
                       const ExportOptions& options, const PageFormat* pageFormat)
{
    if (options.takeCovers()) {
        WriteTPIFFrontCover(writeData, settings, pageFormat);
        WriteTPIFBackCover(writeData, settings, pageFormat);
    }
    if (options.takeInserts()) {
        WriteTPIFInserts(writeData, settings, pageFormat);
    }
    if (options.takeExceptions()) {
        WriteTPIFExceptions(writeData, settings, pageFormat);
    }
}

void WriteColorOptions(TPIFChannel& writeData, const CFDictionary& settings)
{
    // Twice on purpose: a driver's ticket may hold the options themselves, the panels' ticket holds
    // them in a dictionary.
    WriteTPIFHighlightColor(writeData, settings);
    if (const auto* shift = settings.get<CFDictionary>(JobImageShiftKey)) {
        WriteTPifImageShift(writeData, AttributeIndent, FillImageShift(*shift));
    }
    if (const auto* highlight = settings.get<CFDictionary>(HighlightColorOptionsKey)) {
        WriteTPIFHighlightColor(writeData, *highlight);
    }
    if (const auto* color = settings.get<CFDictionary>(FullColorOptionsKey)) {
        WriteTPifFullColor(writeData, FillFullColorOptions(*color));
    }
}

void WriteSimpleOptions(TPIFChannel& writeData, const CFDictionary& settings)
{
    WriteFromTwo(writeData, settings, OPISubstitutionKey, TPIFCommand::OPIImageInsertion);
    WriteFromTwo(writeData, settings, OPIPrescanKey, TPIFCommand::OPIPreScan);
    WriteStored(writeData, settings, AntialiasingKey, TPIFCommand::AntiAliasing);
    if (const auto screen = settings.int32(HalftoneScreenKey)) {
        WriteTPifHalfTone(writeData, *screen);
    }
    WriteStored(writeData, settings, LightenDarkenKey, TPIFCommand::LightenDarken);
    WriteTonerSaver(writeData, settings);
    WriteStored(writeData, settings, OutputOrderKey, TPIFCommand::PageDelivery);
    WriteStored(writeData, settings, QuillonEmulationKey, TPIFCommand::DarknessMode);
    WriteRotation(writeData, settings);
    WriteStored(writeData, settings, OutputColorKey, TPIFCommand::ColorEffects);
}

} // namespace

bool IsExportedKey(std::string_view key)
{
    return key.starts_with("com.tarvo");
}

CFDictionary WholeJobExport()
{
    CFDictionary options;
    options.set(ExportAllKey, true);
    return options;
}

std::string TPIFDocumentOf(CFDictionary settings)
{
    settings.set(ExportOptionsKey, WholeJobExport());
    std::string document;
    TPIFChannel channel([&document](std::string_view piece) { document += piece; }, true);
    WriteTPIF(channel, settings, nullptr);
    channel.flush();
    return document;
}

// The front end wants the elements in this order.
void WriteTPIF(TPIFChannel& writeData, const CFDictionary& settings, const PageFormat* pageFormat)
{
    const auto* flags = settings.get<CFDictionary>(ExportOptionsKey);
    if (flags == nullptr) {
        return;
    }
    const ExportOptions options(*flags, settings);
    if (!options.makeDocument()) {
        return;
    }
    WriteTPifHeader(writeData, ExportedDtdVersion);
    if (options.takeAll()) {
        WriteTPIFJobNameAndUser(writeData, settings);
    }
    WriteTPifJobAttribStart(writeData);
    if (options.takeAll()) {
        WriteTPIFJobLevelStock(writeData, settings, pageFormat);
    }
    WriteSpecialPages(writeData, settings, options, pageFormat);
    if (options.takeAll()) {
        WriteTPIFFinishing(writeData, settings);
        WriteTPIFJobNotes(writeData, settings);
        WriteTPIFJobType(writeData, settings);
        WriteTPIFDuplex(writeData, settings);
        WriteTPIFOutputDestination(writeData, settings);
        WriteTPIFResolution(writeData, settings);
        WriteColorOptions(writeData, settings);
        WriteSimpleOptions(writeData, settings);
        WriteTPIFBackgroundForms(writeData, settings);
        WriteTPIFAccounting(writeData, settings);
    }
    WriteTPifJobAttribEnd(writeData);
    WriteTPifTrailer(writeData);
}

} // namespace tarvo
