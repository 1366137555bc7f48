#include "printer/PPDKeywordInfo.h"

#include "printer/PPDKeywordMaps.h"
#include "printer/PrinterDescription.h"

#include <algorithm>
#include <limits>

namespace tarvo {
namespace {

constexpr std::int32_t NoTicketValue = -1;
constexpr std::size_t MostCounted = std::numeric_limits<std::int16_t>::max();
constexpr PPDSizeLimits UsualLimits = {432, 432, 864, 864};

bool IsPicked(const PPDOption& option)
{
    return option.type == PPDUIType::PickOne && !option.choices.empty();
}

PPDKeywordInfos ChoicesOf(const PPDOption& option)
{
    PPDKeywordInfos infos;
    infos.reserve(option.choices.size());
    for (const PPDChoice& choice : option.choices) {
        infos.push_back({option.keyword, choice.keyword, choice.text, choice.isMarked,
                         choice.keyword == option.defaultChoice, false});
    }
    return infos;
}

} // namespace

std::optional<PPDKeywordInfos> PPDCopyOptionsForMainKeyword(const PPDFile& ppd,
                                                            std::string_view mainKeyword)
{
    const PPDOption* option = ppd.option(mainKeyword);
    return option == nullptr || !IsPicked(*option) ? std::nullopt
                                                   : std::optional(ChoicesOf(*option));
}

PPDUIDictionary::PPDUIDictionary(const PPDFile& ppd)
{
    for (const PPDOption* option : ppd.options()) {
        if (IsPicked(*option)) {
            options_.insert(option->keyword, option);
        }
    }
}

std::optional<PPDKeywordInfos> PPDUIDictionary::copyOptions(std::string_view mainKeyword) const
{
    const auto* option = options_.find(mainKeyword);
    return option == nullptr ? std::nullopt : std::optional(ChoicesOf(**option));
}

const PPDUIDictionary* PPDGetGlobalUIDictionary()
{
    const auto* printer = PrinterDescription::Current();
    return printer == nullptr ? nullptr : printer->uiDictionary();
}

std::string GetPPDOptionAliasForTicketValue(std::string_view mainKeyword, std::int32_t value)
{
    const char* keyword =
        GetPPDOptionKeywordForTicketValue(GetPPDOptionMapForMainKeyword(mainKeyword), value);
    const PPDUIDictionary* dictionary = PPDGetGlobalUIDictionary();
    if (keyword == nullptr || dictionary == nullptr) {
        return "";
    }
    const auto options = dictionary->copyOptions(mainKeyword);
    if (!options) {
        return "";
    }
    const std::int32_t index = FindPPDKeyPairsMatch(*options, mainKeyword, keyword);
    return index < 0 ? "" : (*options)[static_cast<std::size_t>(index)].text;
}

std::int32_t FindPPDKeyPairsMatch(const PPDKeywordInfos& options, std::string_view mainKeyword,
                                  std::string_view optionKeyword)
{
    const auto found =
        std::find_if(options.begin(), options.end(), [&](const PPDKeywordInfo& info) {
            return info.mainKeyword == mainKeyword && info.optionKeyword == optionKeyword;
        });
    return found == options.end() ? -1 : static_cast<std::int32_t>(found - options.begin());
}

OSStatus PPDSetMainKeyword(PMTicket* ticket, std::string_view key, std::string_view value)
{
    if (ticket == nullptr) {
        return StatusBadArgument;
    }
    ticket->ppdDictionary().set(key, value);
    return StatusOk;
}

OSStatus PPDGetMainKeywordValue(const PMTicket* ticket, std::string_view key, std::string* value)
{
    if (value == nullptr) {
        return StatusBadArgument;
    }
    value->clear();
    const auto* keyword =
        ticket == nullptr ? nullptr : ticket->ppdDictionary().get<std::string>(key);
    if (keyword == nullptr) {
        return StatusBadArgument;
    }
    *value = *keyword;
    return StatusOk;
}

OSStatus PPDGetMainKeywordValueIndex(const PMTicket* ticket, std::string_view key,
                                     const PPDKeywordInfos& options, std::int32_t* index)
{
    if (index == nullptr) {
        return StatusBadArgument;
    }
    std::string keyword;
    *index = PPDGetMainKeywordValue(ticket, key, &keyword) == StatusOk
                 ? FindPPDKeyPairsMatch(options, key, keyword)
                 : -1;
    return StatusOk;
}

OSStatus PPDSetMainKeywordIndex(PMTicket* ticket, const PPDKeywordInfos& options,
                                std::int32_t index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= options.size()) {
        return StatusBadArgument;
    }
    const PPDKeywordInfo& info = options[static_cast<std::size_t>(index)];
    return PPDSetMainKeyword(ticket, info.mainKeyword, info.optionKeyword);
}

std::int16_t PopulateMenuFromPPDOptions(Menu& menu, const PPDKeywordInfos& options)
{
    menu.clear();
    const PPDKeywordMap* map = nullptr; // of the first choice whose main keyword has one
    for (const PPDKeywordInfo& info : options) {
        map = map == nullptr ? GetPPDOptionMapForMainKeyword(info.mainKeyword) : map;
        const std::int32_t value = map == nullptr
                                       ? NoTicketValue
                                       : GetTicketValueForPPDOptionKeyword(map, info.optionKeyword);
        menu.push_back({info.text, value, 0, true, {}});
    }
    return static_cast<std::int16_t>(std::min(menu.size(), MostCounted));
}

bool GetMediaLimits(const PMPrintSession* session, PPDSizeLimits& limits)
{
    limits = UsualLimits;
    if (session == nullptr || !session->currentPrinter) {
        return false;
    }
    ParseError ignored; // the usual limits serve whatever the reason
    const auto ppd = PPDFile::Open(session->currentPrinter->ppdPath, ignored);
    if (!ppd || !ppd->customSizes()) {
        return false;
    }
    limits = *ppd->customSizes();
    return true;
}

} // namespace tarvo
