#include "printer/FinishingOffers.h"

#include "settings/CombinedFinishing.h"
#include "settings/FinishingMaps.h"

#include <algorithm>
#include <iterator>

namespace tarvo {
namespace {

namespace Family = FinishingFamily;

// What one choice of a family needs: an installed feature, or an option of the PPD's
// FoldMainKeyword that TRFoldOptionsMap has; neither is always there. Choice 0 is the family
// itself. Families and choices are numbered as in the tables of FinishingMaps.h; only the printer's
// default is stored as 0 here.
struct OfferRow {
    std::int32_t option;
    const char* key;
    std::int32_t choice;
    const char* feature;
    const char* foldOption;
};

// A plain "HolePunch" offers every number of holes. No table of features has a centre staple.
constexpr OfferRow OfferMap[] = {
    {Family::PrinterDefault,   "PrinterDefault",     0,  nullptr,        nullptr               },
    {Family::None,             "None",               0,  nullptr,        nullptr               },
    {Family::OneStaple,        "1 Staple...",        5,  "1StapleTL",    nullptr               },
    {Family::OneStaple,        "1 Staple...",        6,  "1StapleBL",    nullptr               },
    {Family::OneStaple,        "1 Staple...",        7,  "1StapleTR",    nullptr               },
    {Family::OneStaple,        "1 Staple...",        8,  "1StapleBR",    nullptr               },
    {Family::TwoStaples,       "2 Staples...",       10, "2StaplesL",    nullptr               },
    {Family::TwoStaples,       "2 Staples...",       11, "2StaplesT",    nullptr               },
    {Family::TwoStaples,       "2 Staples...",       12, "2StaplesB",    nullptr               },
    {Family::TwoStaples,       "2 Staples...",       13, "2StaplesR",    nullptr               },
    {Family::Bind,             "Bind...",            15, "BindLeft",     nullptr               },
    {Family::Bind,             "Bind...",            16, "BindRight",    nullptr               },
    {Family::Custom,           "CustomFinishing...", 0,  "Custom",       nullptr               },
    {Family::SignatureBooklet, "SignatureBooklet",   0,  "SBM",          nullptr               },
    {Family::Booklet,          "Booklet...",         7,  nullptr,        "BookletFoldOpt"      },
    {Family::Booklet,          "Booklet...",         8,  nullptr,        "BookletFoldStapleOpt"},
    {Family::Fold,             "Fold...",            19, nullptr,        "CTriFoldOpt"         },
    {Family::Fold,             "Fold...",            20, nullptr,        "ZTriFoldOpt"         },
    {Family::HolePunch,        "Hole Punch...",      3,  nullptr,        "2HolePunch"          },
    {Family::HolePunch,        "Hole Punch...",      3,  nullptr,        "HolePunch"           },
    {Family::HolePunch,        "Hole Punch...",      4,  nullptr,        "3HolePunch"          },
    {Family::HolePunch,        "Hole Punch...",      4,  nullptr,        "HolePunch"           },
    {Family::HolePunch,        "Hole Punch...",      5,  nullptr,        "4HolePunch"          },
    {Family::HolePunch,        "Hole Punch...",      5,  nullptr,        "HolePunch"           },
    {Family::ZFold,            "Z-Fold...",          38, nullptr,        "ZTriFoldOpt"         },
    {Family::ZFold,            "Z-Fold...",          39, nullptr,        "ZTriFoldOpt"         },
    {Family::AdvancedFold,     "Advanced Fold...",   41, nullptr,        "BookletFoldOpt"      },
    {Family::AdvancedFold,     "Advanced Fold...",   42, nullptr,        "BookletFoldOpt"      },
    {Family::AdvancedFold,     "Advanced Fold...",   43, nullptr,        "BookletFoldOpt"      },
    {Family::AdvancedFold,     "Advanced Fold...",   44, nullptr,        "BookletFoldOpt"      },
    {Family::AdvancedFold,     "Advanced Fold...",   45, nullptr,        "CTriFoldOpt"         },
    {Family::AdvancedFold,     "Advanced Fold...",   46, nullptr,        "CTriFoldOpt"         },
    {Family::AdvancedFold,     "Advanced Fold...",   47, nullptr,        "ZTriFoldOpt"         },
    {Family::AdvancedFold,     "Advanced Fold...",   48, nullptr,        "ZTriFoldOpt"         },
    {Family::CenterStaple,     "Center Staple...",   26, "CenterStaple", nullptr               },
    {Family::CenterStaple,     "Center Staple...",   27, "CenterStaple", nullptr               },
    {Family::CenterStaple,     "Center Staple...",   28, "CenterStaple", nullptr               },
    {Family::CenterStaple,     "Center Staple...",   29, "CenterStaple", nullptr               },
};

constexpr const char* MultipleKey = "Multiple Finishing...";
constexpr std::int32_t MultipleOption = Family::StaplesAndHoles; // of the menu's item

bool IsOffered(const OfferRow& row, const InstallableOptions& installed,
               const PPDKeywordInfos& foldOptions)
{
    const bool hasFeature =
        row.feature == nullptr || installed.qualifyingRow(row.feature) != nullptr;
    const bool hasOption =
        row.foldOption == nullptr ||
        std::any_of(foldOptions.begin(), foldOptions.end(), [&row](const PPDKeywordInfo& info) {
            return info.optionKeyword == row.foldOption;
        });
    return hasFeature && hasOption;
}

void AddChoice(std::vector<FinishingOffer>& offers, const OfferRow& row)
{
    if (offers.empty() || offers.back().option != row.option) {
        offers.push_back({row.option, row.key, {}});
    }
    auto& choices = offers.back().choices;
    if (row.choice != 0 && std::find(choices.begin(), choices.end(), row.choice) == choices.end()) {
        choices.push_back(row.choice);
    }
}

bool Offers(const std::vector<FinishingOffer>& offers, std::int32_t option)
{
    return std::any_of(offers.begin(), offers.end(),
                       [option](const FinishingOffer& offer) { return offer.option == option; });
}

// The combinations of two or three families that are offered.
void AddMultiple(std::vector<FinishingOffer>& offers)
{
    const bool hasStaples =
        std::any_of(std::begin(StapleFamilies), std::end(StapleFamilies),
                    [&offers](std::int32_t option) { return Offers(offers, option); });
    FinishingOffer multiple = {MultipleOption, MultipleKey,
                               FinishingsOfParts({hasStaples, Offers(offers, Family::HolePunch),
                                                  Offers(offers, Family::ZFold)})};
    if (!multiple.choices.empty()) {
        offers.push_back(std::move(multiple));
    }
}

// Where the menu has the family of an option.
const OfferRow* RowOf(std::int32_t option)
{
    return std::find_if(std::begin(OfferMap), std::end(OfferMap),
                        [option](const OfferRow& row) { return row.option == option; });
}

} // namespace

std::vector<FinishingOffer> FinishingOffers(const InstallableOptions& installed,
                                            const PPDKeywordInfos& foldOptions)
{
    std::vector<FinishingOffer> offers;
    for (const OfferRow& row : OfferMap) {
        if (IsOffered(row, installed, foldOptions)) {
            AddChoice(offers, row);
        }
    }
    AddMultiple(offers);
    return offers;
}

std::vector<FinishingOffer> WithFinishingFamily(std::vector<FinishingOffer> offers,
                                                std::int32_t option)
{
    const bool isCombined = PartsOfFinishing(option).has_value();
    const std::int32_t family = isCombined ? MultipleOption : option;
    const auto* row = RowOf(family);
    const bool isFamily = isCombined || row != std::end(OfferMap);
    if (isFamily && !Offers(offers, family)) {
        const auto behind =
            std::find_if(offers.begin(), offers.end(),
                         [row](const FinishingOffer& offer) { return RowOf(offer.option) > row; });
        offers.insert(behind, {family, isCombined ? MultipleKey : row->key, {}});
    }
    return offers;
}

} // namespace tarvo
