#include "panels/paper/PrinterChoices.h"

#include "panels/paper/PaperOutputSettings.h"
#include "printer/PPDKeywordMaps.h"
#include "settings/FinishingMaps.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr const char* StapleMainKeyword = "TRStaple";
constexpr const char* OffsetMainKeyword = "Jog";

// Values of OffsetMap; a printer's description knows no subsets.
constexpr PPDKeywordMap JogMap[] = {
    {"None",     2},
    {"EndOfSet", 3},
    {"EndOfSet", 4},
    {"EndOfSet", 5},
    {nullptr,    0},
};

// Positions of FinishingMaps.h that a main keyword has. No description has a centre staple.
constexpr PPDKeywordMap StapleMap[] = {
    {"1StapleTL", 5 },
    {"1StapleBL", 6 },
    {"1StapleTR", 7 },
    {"1StapleBR", 8 },
    {"2StaplesL", 10},
    {"2StaplesT", 11},
    {"2StaplesB", 12},
    {"2StaplesR", 13},
    {nullptr,     0 },
};
constexpr PPDKeywordMap FoldMap[] = {
    {"CTriFoldOpt",    19},
    {"ZTriFoldOpt",    20},
    {"ZTriFoldOpt",    38},
    {"ZTriFoldOpt",    39},
    {"BookletFoldOpt", 41},
    {"BookletFoldOpt", 42},
    {"BookletFoldOpt", 43},
    {"BookletFoldOpt", 44},
    {"CTriFoldOpt",    45},
    {"CTriFoldOpt",    46},
    {"ZTriFoldOpt",    47},
    {"ZTriFoldOpt",    48},
    {nullptr,          0 },
};

bool SwitchesOn(const std::string& choice)
{
    return choice != "None" && choice != "Off" && choice != "False";
}

// Null when nothing is marked.
const std::string* MarkedChoice(const PPDOption& option)
{
    const auto marked = std::find_if(option.choices.begin(), option.choices.end(),
                                     [](const PPDChoice& choice) { return choice.isMarked; });
    return marked == option.choices.end() ? nullptr : &marked->keyword;
}

class ChoiceList {
public:
    void add(PaperControl control, const char* option, const char* choice)
    {
        if (choice != nullptr) {
            choices_.push_back({control, option, choice});
        }
    }
    void add(PaperControl control, const char* option, const PPDKeywordMap* map, std::int32_t value)
    {
        add(control, option, value == 0 ? nullptr : GetPPDOptionKeywordForTicketValue(map, value));
    }
    std::vector<PrinterChoice> take() && { return std::move(choices_); }

private:
    std::vector<PrinterChoice> choices_;
};

// Holes and a booklet's folding have the numbers of TRFoldOptionsMap.
void AddFinishing(const FinishingChoice& given, ChoiceList& list)
{
    constexpr auto Control = PaperControl::Finishing;
    const FinishingChoice choice = WithoutUnusedPositions(given);
    if (choice.option == FinishingFamily::None) {
        list.add(Control, StapleMainKeyword, "None");
        list.add(Control, FoldMainKeyword, "None");
        return;
    }
    list.add(Control, StapleMainKeyword, StapleMap, choice.oneStaple);
    list.add(Control, StapleMainKeyword, StapleMap, choice.twoStaples);
    list.add(Control, FoldMainKeyword, FoldMap, choice.fold);
    list.add(Control, FoldMainKeyword, FoldMap, choice.zFold);
    if (IsPunched(choice)) {
        list.add(Control, FoldMainKeyword, TRFoldOptionsMap, choice.holes);
    }
    if (FoldsBooklet(given)) {
        list.add(Control, FoldMainKeyword, TRFoldOptionsMap, given.bookletFold);
    }
}

} // namespace

std::vector<PrinterChoice> PrinterChoicesOf(const PaperOutputSettings& settings)
{
    ChoiceList list;
    const Stock& stock = settings.stock;
    list.add(PaperControl::Stock, "PageSize", PageSizeMap, stock.size());
    list.add(PaperControl::Stock, "PageRegion", PageSizeMap, stock.size());
    list.add(PaperControl::Stock, "MediaType", MediaTypeMap, stock.type());
    list.add(PaperControl::Stock, "MediaColor", MediaColorMap, stock.color());
    list.add(PaperControl::Sides, DuplexMainKeyword, PPDDuplexMap, settings.sides);
    AddFinishing(settings.finishing, list);
    list.add(PaperControl::Offset, OffsetMainKeyword, JogMap, settings.finishing.offset);
    list.add(PaperControl::Destination, OutputBinMainKeyword, OutputDestinationBinMap,
             settings.outputDestination);
    return std::move(list).take();
}

PrinterChoices::PrinterChoices(const PaperOutputSettings& settings, const PPDFile& ppd,
                               const CFDictionary& dialog)
{
    for (PrinterChoice& choice : PrinterChoicesOf(settings)) {
        if (ppd.option(choice.option) == nullptr) {
            continue;
        }
        auto* present = choices_.find(choice.option);
        if (present == nullptr) {
            choices_.set(choice.option, {choice});
        } else {
            present->push_back(choice);
        }
    }
    for (const PPDOption* option : ppd.options()) {
        if (choices_.contains(option->keyword)) {
            continue;
        }
        const auto* own = dialog.get<std::string>(option->keyword);
        const auto* choice = own == nullptr ? MarkedChoice(*option) : own;
        if (choice != nullptr) {
            choices_.set(option->keyword, {
                                              {std::nullopt, option->keyword, *choice}
            });
        }
    }
}

const PrinterChoice* PrinterChoices::inForce(std::string_view option, std::string_view choice) const
{
    const auto* all = choices_.find(option);
    if (all == nullptr) {
        return nullptr;
    }
    const auto found = std::find_if(all->begin(), all->end(), [choice](const auto& entry) {
        return choice.empty() ? SwitchesOn(entry.choice) : entry.choice == choice;
    });
    return found == all->end() ? nullptr : &*found;
}

} // namespace tarvo
