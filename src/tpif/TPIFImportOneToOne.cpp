#include "tpif/TPIFImportOneToOne.h"

#include "records/SpecialPageKeys.h"
#include "settings/TicketKeys.h"

namespace tarvo {
namespace {

// A feature, the ticket's entry and an exception page's; "" where there is none.
struct OneToOneRow {
    std::string_view feature;
    std::string_view key;
    std::string_view pageKey;
};

constexpr OneToOneRow OneToOneFeatures[] = {
    {"Sides",             DuplexKey,                 SidesImagedKey       },
    {"OutputDestination", OutputDestinationKey,      ""                   },
    {"ColorEffects",      OutputColorKey,            PageOutputColorKey   },
    {"SlipSheets",        SlipSheetKey,              ""                   },
    {"LightenDarken",     LightenDarkenKey,          PageLightenDarkenKey },
    {"HalftoneScreen",    HalftoneScreenKey,         PageHalftoneScreenKey},
    {"AntiAliasing",      AntialiasingKey,           PageAntialiasingKey  },
    {"PageRotation",      RotateImageKey,            ""                   },
    {"PageDelivery",      OutputOrderKey,            ""                   },
    {"OPIImageInsertion", OPISubstitutionKey,        ""                   },
    {"OPIPreScan",        OPIPrescanKey,             ""                   },
    {"DarknessMode",      QuillonEmulationKey,       ""                   },
    {"AccountingData",    JobNotesAdditionalInfoKey, ""                   },
    {"JobMessage",        JobNotesMessageKey,        ""                   },
    {"Recipient",         JobNotesRecipientKey,      ""                   },
    {"SheetMessage",      JobNotesSheetMessageKey,   ""                   },
};

constexpr OneToOneRow OperationFeatures[] = {
    {"JobName",    JobNotesJobNameKey,    ""},
    {"SenderName", JobNotesSenderNameKey, ""},
};

} // namespace

bool TPIFImportFeatureOneToOne(const TPIFFeatureReader& feature, const TPIFImportGroup& group,
                               TPIFImportTarget& target, std::string_view key)
{
    const auto value = feature.value(group);
    if (!value) {
        return false;
    }
    const TPIFImportNode* node = feature.node(group);
    if (value->kind == TPIFImportSyntax::Name && value->name.empty()) {
        group.tell(TPIFImportOutcome::Ignored, *node, "empty");
        return false;
    }
    target.set(key, value->asTicketValue(), {node});
    return true;
}

TPIFOneToOneImport::TPIFOneToOneImport(const TPIFImportFeatures& features)
{
    for (const auto& row : OneToOneFeatures) {
        job_.push_back({&features.named(row.feature), row.key});
        if (!row.pageKey.empty()) {
            page_.push_back({&features.named(row.feature), row.pageKey});
        }
    }
    for (const auto& row : OperationFeatures) {
        operation_.push_back({&features.named(row.feature), row.key});
    }
}

void TPIFOneToOneImport::readJob(const TPIFImportGroup& group, CFDictionary& result) const
{
    Read(job_, group, result);
}

void TPIFOneToOneImport::readOperation(const TPIFImportGroup& group, CFDictionary& result) const
{
    Read(operation_, group, result);
}

void TPIFOneToOneImport::readPage(const TPIFImportGroup& group, CFDictionary& page) const
{
    Read(page_, group, page);
}

void TPIFOneToOneImport::Read(const std::vector<Step>& steps, const TPIFImportGroup& group,
                              CFDictionary& dictionary)
{
    TPIFImportTarget target(dictionary, group);
    for (const Step& step : steps) {
        TPIFImportFeatureOneToOne(*step.feature, group, target, step.key);
    }
}

} // namespace tarvo
