#include "printer/FinishingOffers.h"

#include <algorithm>
#include <iterator>

namespace tarvo {
namespace {

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
    {0,  "PrinterDefault",     0,  nullptr,        nullptr               },
    {1,  "None",               0,  nullptr,        nullptr               },
    {4,  "1 Staple...",        5,  "1StapleTL",    nullptr               },
    {4,  "1 Staple...",        6,  "1StapleBL",    nullptr               },
    {4,  "1 Staple...",        7,  "1StapleTR",    nullptr               },
    {4,  "1 Staple...",        8,  "1StapleBR",    nullptr               },
    {9,  "2 Staples...",       10, "2StaplesL",    nullptr               },
    {9,  "2 Staples...",       11, "2StaplesT",    nullptr               },
    {9,  "2 Staples...",       12, "2StaplesB",    nullptr               },
    {9,  "2 Staples...",       13, "2StaplesR",    nullptr               },
    {14, "Bind...",            15, "BindLeft",     nullptr               },
    {14, "Bind...",            16, "BindRight",    nullptr               },
    {22, "CustomFinishing...", 0,  "Custom",       nullptr               },
    {3,  "SignatureBooklet",   0,  "SBM",          nullptr               },
    {24, "Booklet...",         7,  nullptr,        "BookletFoldOpt"      },
    {24, "Booklet...",         8,  nullptr,        "BookletFoldStapleOpt"},
    {18, "Fold...",            19, nullptr,        "CTriFoldOpt"         },
    {18, "Fold...",            20, nullptr,        "ZTriFoldOpt"         },
    {30, "Hole Punch...",      3,  nullptr,        "2HolePunch"          },
    {30, "Hole Punch...",      3,  nullptr,        "HolePunch"           },
    {30, "Hole Punch...",      4,  nullptr,        "3HolePunch"          },
    {30, "Hole Punch...",      4,  nullptr,        "HolePunch"           },
    {30, "Hole Punch...",      5,  nullptr,        "4HolePunch"          },
    {30, "Hole Punch...",      5,  nullptr,        "HolePunch"           },
    {36, "Z-Fold...",          38, nullptr,        "ZTriFoldOpt"         },
    {36, "Z-Fold...",          39, nullptr,        "ZTriFoldOpt"         },
    {40, "Advanced Fold...",   41, nullptr,        "BookletFoldOpt"      },
    {40, "Advanced Fold...",   42, nullptr,        "BookletFoldOpt"      },
    {40, "Advanced Fold...",   43, nullptr,        "BookletFoldOpt"      },
    {40, "Advanced Fold...",   44, nullptr,        "BookletFoldOpt"      },
    {40, "Advanced Fold...",   45, nullptr,        "CTriFoldOpt"         },
    {40, "Advanced Fold...",   46, nullptr,        "CTriFoldOpt"         },
    {40, "Advanced Fold...",   47, nullptr,        "ZTriFoldOpt"         },
    {40, "Advanced Fold...",   48, nullptr,        "ZTriFoldOpt"         },
    {25, "Center Staple...",   26, "CenterStaple", nullptr               },
};

// Families that can be combined, and the combinations.
constexpr std::int32_t StapleOptions[] = {4, 9, 25};
constexpr std::int32_t HolePunchOption = 30;
constexpr std::int32_t ZFoldOption = 36;
constexpr const char* MultipleKey = "Multiple Finishing...";
constexpr std::int32_t MultipleOption = 49;
constexpr std::int32_t StaplesAndHoles = 49;
constexpr std::int32_t AllThree = 50;
constexpr std::int32_t StaplesAndZFold = 51;
constexpr std::int32_t HolesAndZFold = 52;

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
    const bool staples =
        std::any_of(std::begin(StapleOptions), std::end(StapleOptions),
                    [&offers](std::int32_t option) { return Offers(offers, option); });
    const bool holes = Offers(offers, HolePunchOption);
    const bool zFold = Offers(offers, ZFoldOption);
    FinishingOffer multiple = {MultipleOption, MultipleKey, {}};
    const auto add = [&multiple](bool offered, std::int32_t option) {
        if (offered) {
            multiple.choices.push_back(option);
        }
    };
    add(staples && holes, StaplesAndHoles);
    add(staples && holes && zFold, AllThree);
    add(staples && zFold, StaplesAndZFold);
    add(holes && zFold, HolesAndZFold);
    if (!multiple.choices.empty()) {
        offers.push_back(std::move(multiple));
    }
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

} // namespace tarvo
