#include "tpif/TPIFBackgroundForms.h"

#include "records/BackgroundFormsKeys.h"
#include "records/JobTypeKeys.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFElement.h"
#include "tpif/TPIFImageShift.h"
#include "tpif/XmlEntities.h"

namespace tarvo {
namespace {

constexpr std::size_t LongestFormName = 255;                          // bytes
constexpr std::string_view FormLocation = "/opt/TRVnps/resources/bf"; // on the printer's front end

struct BGFormsData {
    std::string newName;      // escaped; "" saves no form
    std::string existingName; // escaped; "" merges with no form
    std::int32_t cycleStart = 0;
    ImageShiftData shift; // side 1 alone counts
};

std::string FormName(const CFDictionary& dictionary, std::string_view key)
{
    return std::string(PrefixOfEscaped(EscapedTPIFText(dictionary, key), LongestFormName));
}

BGFormsData FillBGFormsData(const CFDictionary& options)
{
    BGFormsData forms;
    forms.newName = FormName(options, NewFormStringKey);
    forms.existingName = FormName(options, MergeWithStringKey);
    forms.cycleStart = options.int32(CyclePagesKey).value_or(0);
    forms.shift = FillImageShift(options);
    return forms;
}

void WriteFormSave(TPIFChannel& writeData, const BGFormsData& forms)
{
    const TPIFBlock save(writeData, AttributeIndent, "form-save", TPIFSyntax::Collection);
    WriteTPIFElement(writeData, MemberIndent, "form-save-disposition", TPIFSyntax::Keyword,
                     "save-only");
    const TPIFBlock info(writeData, MemberIndent, "form-save-info", TPIFSyntax::OneSetOf);
    const TPIFBlock value(writeData, MemberIndent + 1, "value", TPIFSyntax::Collection);
    constexpr int Indent = MemberIndent + 2;
    WriteTPIFElement(writeData, Indent, "form-save-location", TPIFSyntax::Uri, FormLocation);
    WriteTPIFElement(writeData, Indent, "form-save-name", TPIFSyntax::Name, forms.newName);
    WriteTPIFElement(writeData, Indent, "form-save-format", TPIFSyntax::MimeMediaType,
                     "application/X-single-page-tiff");
}

void WriteFormMerge(TPIFChannel& writeData, const BGFormsData& forms)
{
    const TPIFBlock set(writeData, AttributeIndent, "forms-col", TPIFSyntax::OneSetOf);
    const TPIFBlock value(writeData, MemberIndent, "value", TPIFSyntax::Collection);
    constexpr int Indent = MemberIndent + 1;
    WriteTPIFElement(writeData, Indent, "form-name", TPIFSyntax::Name, forms.existingName);
    WriteTPIFElement(writeData, Indent, "form-cycle-start", forms.cycleStart);
    WriteTPIFElement(writeData, Indent, "forms-x-image-shift", forms.shift.x1);
    WriteTPIFElement(writeData, Indent, "forms-y-image-shift", forms.shift.y1);
}

} // namespace

void WriteTPIFBackgroundForms(TPIFChannel& writeData, const CFDictionary& settings)
{
    DevDiagnose(writeData, "DEBUG: ******* WriteTPIFBackgroundForms\n"
                           "DEBUG: ******* WriteTPIFBackgroundForms: valid ticket\n");
    const auto* options = settings.get<CFDictionary>(BackgroundFormsOptionsKey);
    if (options == nullptr) {
        return;
    }
    DevDiagnose(writeData, "DEBUG: ******* WriteTPIFBackgroundForms: valid bg options ticket\n");
    BGFormsData forms = FillBGFormsData(*options);
    if (const auto* jobType = settings.get<CFDictionary>(JobTypeKey)) {
        const std::int32_t number = jobType->int32(JobTypeNumberKey).value_or(0);
        DevDiagnose(writeData, "DEBUG: ******** jobType = %ld\n", static_cast<long>(number));
        if (static_cast<JobType>(number) == JobType::BackgroundForms && forms.newName.empty()) {
            forms.newName = FormName(settings, SystemJobNameKey);
        }
    }
    if (!forms.newName.empty()) {
        WriteFormSave(writeData, forms);
    }
    if (!forms.existingName.empty()) {
        WriteFormMerge(writeData, forms);
    }
}

} // namespace tarvo
