#include "stocklibrary/PrinterMedia.h"

#include "platform/printing/IppMessage.h"
#include "records/StockSizes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarvo {
namespace {

constexpr std::uint16_t GetPrinterAttributes = 0x000B;
constexpr std::int32_t RequestIdentifier = 1;

constexpr std::size_t MostMedia = 50'000;
constexpr std::size_t MostTextBytes = std::size_t{12} * 1024 * 1024;

// A printer's word, in lower case, and the ticket value that it stands for.
struct MediaWord {
    std::string_view word;
    std::int32_t value;
};

constexpr MediaWord ColorWords[] = {
    {"white",     1 },
    {"blue",      2 },
    {"yellow",    3 },
    {"green",     4 },
    {"pink",      5 },
    {"no-color",  6 },
    {"buff",      7 },
    {"goldenrod", 8 },
    {"red",       9 },
    {"ivory",     11},
    {"gray",      12},
    {"orange",    13},
    {"other",     14},
    {"custom1",   15},
    {"custom2",   16},
    {"custom3",   17},
    {"custom4",   18},
    {"custom5",   19},
    {"custom6",   20},
    {"custom7",   21},
};

constexpr MediaWord TypeWords[] = {
    {"stationery",    1 },
    {"transparency",  2 },
    {"tab-stock",     24},
    {"pre-cut-tabs",  4 },
    {"full-cut-tabs", 5 },
    {"labels",        9 },
    {"envelope",      8 },
    {"other",         22},
    {"bond",          13},
    {"custom1",       15},
    {"custom2",       16},
    {"custom3",       17},
    {"custom4",       18},
    {"custom5",       19},
    {"custom6",       20},
    {"custom7",       21},
};

constexpr MediaWord PrePrintedWords[] = {
    {"pre-printed", 3 },
    {"letter-head", 14},
};

constexpr MediaWord RecycledWords[] = {
    {"standard", 10},
    {"none",     10},
};

constexpr MediaWord CoatingWords[] = {
    {"glossy",     1},
    {"high-gloss", 2},
    {"semi-gloss", 3},
    {"satin",      4},
    {"matte",      5},
};

constexpr std::string_view Uncoated = "none";

constexpr std::int32_t EnvelopeStockType = 8;
constexpr std::int32_t SixInchSize = 6; // on an envelope it is a size of its own
constexpr std::int32_t SixInchEnvelopeSize = 73;

char LowerLetter(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool IsWord(std::string_view text, std::string_view word)
{
    return std::equal(text.begin(), text.end(), word.begin(), word.end(),
                      [](char letter, char lower) { return LowerLetter(letter) == lower; });
}

template <std::size_t Count>
std::optional<std::int32_t> ValueOfWord(const MediaWord (&words)[Count],
                                        std::optional<std::string_view> text)
{
    for (const MediaWord& row : words) {
        if (text && IsWord(*text, row.word)) {
            return row.value;
        }
    }
    return std::nullopt;
}

std::int32_t PunchedOfHoleCount(std::int32_t holes)
{
    constexpr std::int32_t NotPunched = 1;
    constexpr std::int32_t Punched = 2;
    if (holes == 0) {
        return NotPunched;
    }
    return holes >= 2 && holes <= 4 ? Punched : UnsetValue;
}

void SetColor(Stock& stock, PrinterMedium& medium)
{
    if (!medium.color) {
        return;
    }
    stock.setColor(convertTPIFColorToIndex(*medium.color));
    if (stock.color() == CustomStockColor) {
        stock.setCustomColor(std::move(*medium.color));
    }
}

void SetType(Stock& stock, PrinterMedium& medium)
{
    if (!medium.type) {
        return;
    }
    stock.setType(convertTPIFTypeToIndex(*medium.type, medium.prePrinted, medium.recycled,
                                         medium.orderCount));
    if (stock.type() == CustomStockType) {
        stock.setCustomType(std::move(*medium.type));
    } else if (stock.type() == PrecutTabStockType || stock.type() == OrderedStockType) {
        stock.setModulus(medium.orderCount.value_or(UnsetValue));
    }
}

void SetSize(Stock& stock, const PrinterMedium& medium)
{
    if (!medium.width || !medium.length) {
        return;
    }
    const std::int32_t size = GetSizeForStockDimensions(*medium.width, *medium.length);
    const bool isEnvelope = stock.type() == EnvelopeStockType;
    stock.setSize(isEnvelope && size == SixInchSize ? SixInchEnvelopeSize : size);
}

void SetCoating(Stock& stock, const PrinterMedium& medium)
{
    std::int32_t sidesCoated = UnsetValue;
    std::int32_t coatingType = UnsetValue;
    convertTPIFSidesCoatedAndCoatingType(medium.frontCoating, medium.backCoating, sidesCoated,
                                         coatingType);
    stock.setSidesCoated(sidesCoated);
    stock.setCoatingType(coatingType);
}

// Where the members of a medium go.
template <typename Value>
struct MemberRow {
    std::string_view name;
    std::optional<Value> PrinterMedium::*place;
};

constexpr MemberRow<std::string> TextMembers[] = {
    {"media-key",           &PrinterMedium::key         },
    {"media-description",   &PrinterMedium::description },
    {"media-color",         &PrinterMedium::color       },
    {"media-type",          &PrinterMedium::type        },
    {"media-pre-printed",   &PrinterMedium::prePrinted  },
    {"media-recycled",      &PrinterMedium::recycled    },
    {"media-front-coating", &PrinterMedium::frontCoating},
    {"media-back-coating",  &PrinterMedium::backCoating },
    {"media-info",          &PrinterMedium::info        },
};

constexpr MemberRow<std::int32_t> NumberMembers[] = {
    {"media-hole-count",    &PrinterMedium::holeCount },
    {"media-order-count",   &PrinterMedium::orderCount},
    {"media-weight-metric", &PrinterMedium::weight    },
};

constexpr std::string_view SizeMember = "media-size";
constexpr MemberRow<std::int32_t> SizeMembers[] = {
    {"x-dimension", &PrinterMedium::width },
    {"y-dimension", &PrinterMedium::length},
};

template <typename Value, std::size_t Count>
const MemberRow<Value>* RowOfMember(const MemberRow<Value> (&rows)[Count], std::string_view name)
{
    const auto* row = std::find_if(std::begin(rows), std::end(rows),
                                   [name](const auto& member) { return member.name == name; });
    return row == std::end(rows) ? nullptr : row;
}

// Builds the media of a reply that is known to be well-formed and hands them on one by one.
template <typename Take>
class MediaReader : public IppCollectionReader {
public:
    explicit MediaReader(Take take) : take_(std::move(take)) {}

    void beginCollection(std::size_t depth, std::string_view name) override
    {
        if (depth == 1) {
            medium_ = PrinterMedium();
        } else if (depth == 2) {
            isInSize_ = name == SizeMember;
        }
    }

    void member(std::size_t depth, std::string_view name, IppTag tag,
                std::string_view value) override
    {
        isKept_ = false;
        if (depth == 2 && isInSize_) {
            keepNumber(RowOfMember(SizeMembers, name), tag, value);
        } else if (depth == 1) {
            keepNumber(RowOfMember(NumberMembers, name), tag, value);
            keepText(RowOfMember(TextMembers, name), tag, value);
        }
    }
    /// Whether the medium has the member that was told last.
    bool isKept() const { return isKept_; }

    void endCollection(std::size_t depth) override
    {
        if (depth == 1 && ++count_ <= MostMedia && textBytes_ <= MostTextBytes) {
            take_(std::move(medium_));
        }
    }

    /// Empty when everything was handed on.
    std::string refusal() const
    {
        if (count_ > MostMedia) {
            return "the printer reports more than " + std::to_string(MostMedia) + " media";
        }
        if (textBytes_ > MostTextBytes) {
            return "the texts of the printer's media are longer than " +
                   std::to_string(MostTextBytes / 1024) + " KiB";
        }
        return "";
    }

private:
    void keepNumber(const MemberRow<std::int32_t>* row, IppTag tag, std::string_view value)
    {
        const auto number = row == nullptr ? std::nullopt : IppInteger(tag, value);
        if (number && number != UnsetValue && !(medium_.*(row->place))) {
            medium_.*(row->place) = number;
            isKept_ = true;
        }
    }

    void keepText(const MemberRow<std::string>* row, IppTag tag, std::string_view value)
    {
        if (row != nullptr && !(medium_.*(row->place))) {
            medium_.*(row->place) = IppText(tag, value);
            isKept_ = (medium_.*(row->place)).has_value();
            textBytes_ += value.size();
        }
    }

    Take take_;
    PrinterMedium medium_;
    bool isInSize_ = false;
    bool isKept_ = false;
    std::size_t count_ = 0;
    std::size_t textBytes_ = 0;
};

// Writes down every member beside what MediaReader takes of it.
class MemberReader : public IppCollectionReader {
public:
    explicit MemberReader(const std::function<void(ReportedMedium)>& take)
        : media_(Finish{*this}), take_(take)
    {
    }

    void beginCollection(std::size_t depth, std::string_view name) override
    {
        if (depth == 1) {
            report_ = ReportedMedium();
        }
        prefixes_.resize(depth);
        prefixes_.back() = depth == 1 ? "" : prefixes_[depth - 2] + PathPiece(name) + '.';
        media_.beginCollection(depth, name);
    }

    void member(std::size_t depth, std::string_view name, IppTag tag,
                std::string_view value) override
    {
        constexpr std::size_t MostMembers = 100; // media of real printers have some 30
        media_.member(depth, name, tag, value);
        if (report_.members.size() == MostMembers) {
            ++report_.furtherMembers;
            return;
        }
        const std::string path = prefixes_[depth - 1] + PathPiece(name);
        report_.members.push_back({path, IppValueText(tag, value), media_.isKept()});
    }

    void endCollection(std::size_t depth) override { media_.endCollection(depth); }

    std::string refusal() const { return media_.refusal(); }

private:
    static std::string PathPiece(std::string_view name)
    {
        return IppText(IppTag::Text, name).value_or("");
    }

    struct Finish {
        MemberReader& reader;
        void operator()(PrinterMedium medium) const
        {
            reader.report_.medium = std::move(medium);
            reader.take_(std::move(reader.report_));
        }
    };

    MediaReader<Finish> media_;
    const std::function<void(ReportedMedium)>& take_;
    ReportedMedium report_;
    std::vector<std::string> prefixes_; // of members at each depth
};

// @return why the reply is refused; "" when the reader has handed on every medium
template <typename Reader, typename Take>
std::string ReadMedia(std::string_view reply, const Take& take)
{
    std::string refusal = ReadIppReply(reply, RequestIdentifier, nullptr);
    if (refusal.empty()) {
        Reader reader(take);
        ReadIppReply(reply, RequestIdentifier, &reader);
        refusal = reader.refusal();
    }
    return refusal;
}

} // namespace

std::optional<std::vector<Stock>> StocksOfReply(std::string_view reply, std::string& reason)
{
    std::vector<Stock> stocks;
    const auto take = [&](PrinterMedium medium) {
        stocks.push_back(StockOfMedium(std::move(medium)));
    };
    reason = ReadMedia<MediaReader<decltype(take)>>(reply, take);
    return reason.empty() ? std::optional(std::move(stocks)) : std::nullopt;
}

std::string TellPrinterMedia(std::string_view reply,
                             const std::function<void(ReportedMedium)>& take)
{
    return ReadMedia<MemberReader>(reply, take);
}

std::string MediaRequest(std::string_view uri)
{
    IppRequest request(GetPrinterAttributes, RequestIdentifier);
    request.add(IppTag::Charset, "attributes-charset", "utf-8");
    request.add(IppTag::NaturalLanguage, "attributes-natural-language", "en");
    request.add(IppTag::Uri, "printer-uri", uri);
    request.add(IppTag::MimeMediaType, "document-format", "application/octet-stream");
    request.add(IppTag::Keyword, "requested-attributes", "media-col-database");
    return std::move(request).bytes();
}

Stock StockOfMedium(PrinterMedium medium)
{
    Stock stock;
    if (medium.key) {
        stock.setCustomName(std::move(*medium.key));
    }
    if (medium.description) {
        stock.setDescription(std::move(*medium.description));
    }
    SetColor(stock, medium); // before the type: a transparency is clear whatever its colour
    SetType(stock, medium);
    SetCoating(stock, medium);
    if (medium.info) {
        stock.setComment(std::move(*medium.info));
    }
    if (medium.holeCount) {
        stock.setPunched(PunchedOfHoleCount(*medium.holeCount));
    }
    if (medium.weight.value_or(0) != 0) {
        stock.setWeight(*medium.weight);
    }
    SetSize(stock, medium);
    return stock;
}

std::int32_t convertTPIFColorToIndex(std::string_view color)
{
    return ValueOfWord(ColorWords, color).value_or(CustomStockColor);
}

std::int32_t convertTPIFTypeToIndex(std::string_view type,
                                    const std::optional<std::string>& prePrinted,
                                    const std::optional<std::string>& recycled,
                                    const std::optional<std::int32_t>& orderCount)
{
    if (const auto value = ValueOfWord(TypeWords, type)) {
        return *value;
    }
    if (const auto value = ValueOfWord(PrePrintedWords, prePrinted)) {
        return *value;
    }
    if (const auto value = ValueOfWord(RecycledWords, recycled)) {
        return *value;
    }
    return orderCount ? OrderedStockType : CustomStockType;
}

std::int32_t convertTPIFCoatingTypeToIndex(std::string_view coating)
{
    return ValueOfWord(CoatingWords, coating).value_or(UnsetValue);
}

void convertTPIFSidesCoatedAndCoatingType(const std::optional<std::string>& front,
                                          const std::optional<std::string>& back,
                                          std::int32_t& sidesCoated, std::int32_t& coatingType)
{
    constexpr std::int32_t NoSide = 1;
    constexpr std::int32_t OneSide = 2;
    constexpr std::int32_t BothSides = 3;
    const bool isFrontCoated = front && !IsWord(*front, Uncoated);
    const bool isBackCoated = back && !IsWord(*back, Uncoated);
    if (isFrontCoated || isBackCoated) {
        sidesCoated = isFrontCoated && isBackCoated ? BothSides : OneSide;
        coatingType = convertTPIFCoatingTypeToIndex(isFrontCoated ? *front : *back);
    } else if (front && back) {
        sidesCoated = NoSide;
        coatingType = UnsetValue;
    }
}

} // namespace tarvo
