#include "stocklibrary/StockColumnTexts.h"

#include "platform/bundle/CFBundle.h"
#include "printer/PPDKeywordInfo.h"
#include "records/StockSummary.h"
#include "settings/StockMaps.h"
#include "stocklibrary/StockLibrary.h"
#include "stocklibrary/StockLibraryView.h"

namespace tarvo {
namespace {

std::string Word(const CFBundle& bundle, const SettingMap* map, std::int32_t value)
{
    const char* key = value == UnsetValue ? nullptr : LocalizedKeyForTicketValue(map, value);
    return key == nullptr ? "" : bundle.localizedString(key);
}

std::string Number(std::int32_t value)
{
    return value == UnsetValue ? "" : std::to_string(value);
}

// A paper of a printer has a custom name alone.
std::string NameText(const CFBundle& /*bundle*/, const StockLibrary& paper)
{
    return paper.name().empty() ? paper.stock().customName() : paper.name();
}

// A printer's envelopes have a size without a word.
std::string SizeText(const CFBundle& bundle, const StockLibrary& paper)
{
    const char* key =
        LocalizedKeyForPaperSizeTicketValue(CompleteStockSizeMap, paper.stock().size());
    return key == nullptr ? "" : StockSizeText(bundle, paper.stock());
}

std::string ColorText(const CFBundle& bundle, const StockLibrary& paper)
{
    const Stock& stock = paper.stock();
    return stock.color() == CustomStockColor ? stock.customColor()
                                             : Word(bundle, CompleteStockColorMap, stock.color());
}

// Its own name, the word of the menus, or what the printer calls it.
std::string TypeText(const CFBundle& bundle, const StockLibrary& paper)
{
    const Stock& stock = paper.stock();
    const bool isNamed = stock.type() == CustomStockType || stock.type() == OrderedStockType;
    if (isNamed && !stock.customType().empty()) {
        return stock.customType();
    }
    const std::string word = Word(bundle, CompleteStockTypeMap, stock.type());
    return word.empty() && stock.type() != UnsetValue
               ? GetPPDOptionAliasForTicketValue("MediaType", stock.type())
               : word;
}

std::string ModulusText(const CFBundle& /*bundle*/, const StockLibrary& paper)
{
    return Number(paper.stock().modulus());
}

std::string PunchedText(const CFBundle& bundle, const StockLibrary& paper)
{
    return Word(bundle, StockPunchedMap, paper.stock().punched());
}

std::string WeightText(const CFBundle& bundle, const StockLibrary& paper)
{
    const std::string number = Number(paper.stock().weight());
    return number.empty() ? "" : number + ' ' + bundle.localizedString("StockWeightUnit");
}

std::string DescriptionText(const CFBundle& /*bundle*/, const StockLibrary& paper)
{
    return paper.stock().description();
}

std::string SidesText(const CFBundle& bundle, const StockLibrary& paper)
{
    return Word(bundle, SidesCoatedMap, paper.stock().sidesCoated());
}

std::string CoatingText(const CFBundle& bundle, const StockLibrary& paper)
{
    const bool isCoated = paper.stock().sidesCoated() >= CoatedInFront;
    return isCoated ? Word(bundle, CoatingTypeMap, paper.stock().coatingType()) : "";
}

std::string FinishText(const CFBundle& bundle, const StockLibrary& paper)
{
    return Word(bundle, FinishMap, paper.stock().finish());
}

std::string GrainText(const CFBundle& bundle, const StockLibrary& paper)
{
    return Word(bundle, GrainMap, paper.stock().grain());
}

std::string CommentText(const CFBundle& /*bundle*/, const StockLibrary& paper)
{
    return paper.stock().comment();
}

// In the order of StockColumns.
struct ColumnRow {
    const char* key;
    std::string (*text)(const CFBundle& bundle, const StockLibrary& paper);
};

constexpr ColumnRow ColumnMap[] = {
    {"StockName",        NameText       },
    {"StockSize",        SizeText       },
    {"StockColor",       ColorText      },
    {"StockType",        TypeText       },
    {"StockModulus",     ModulusText    },
    {"StockPunched",     PunchedText    },
    {"StockWeight",      WeightText     },
    {"StockDescription", DescriptionText},
    {"StockSidesCoated", SidesText      },
    {"StockCoating",     CoatingText    },
    {"StockFinish",      FinishText     },
    {"StockGrain",       GrainText      },
    {"StockComment",     CommentText    },
};
static_assert(std::size(ColumnMap) == StockColumns.size());

} // namespace

const char* StockColumnKey(std::size_t column)
{
    return ColumnMap[column].key;
}

std::string StockColumnText(const CFBundle& bundle, const StockLibrary& paper, std::size_t column)
{
    return ColumnMap[column].text(bundle, paper);
}

} // namespace tarvo
