#include "cli/PPDOutline.h"

#include "platform/printing/PPDStatements.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <tuple>
#include <utility>

namespace tarvo {
namespace {

constexpr std::string_view DefaultPrefix = "Default";
constexpr std::string_view PlainConstraintKeyword = "UIConstraints";
constexpr std::string_view NonUIConstraintKeyword = "NonUIConstraints";
constexpr std::string_view CustomSizesKeyword = "CustomPageSize";
constexpr std::string_view CustomSizesLimitsKeyword = "ParamCustomPageSize";

using Lines = OrderedMap<std::size_t>;

enum BlockLevel : std::size_t { GroupLevel, SubGroupLevel, OptionLevel, LevelCount };

struct BlockRow {
    std::string_view keyword; // "" ends the table
    BlockLevel level;
    bool opens;
};

constexpr BlockRow BlockMap[] = {
    {"OpenUI",        OptionLevel,   true },
    {"CloseUI",       OptionLevel,   false},
    {"JCLOpenUI",     OptionLevel,   true },
    {"JCLCloseUI",    OptionLevel,   false},
    {"OpenGroup",     GroupLevel,    true },
    {"CloseGroup",    GroupLevel,    false},
    {"OpenSubGroup",  SubGroupLevel, true },
    {"CloseSubGroup", SubGroupLevel, false},
    {"",              GroupLevel,    false},
};

const BlockRow* BlockOf(std::string_view keyword)
{
    for (const auto* row = BlockMap; !row->keyword.empty(); ++row) {
        if (row->keyword == keyword) {
            return row;
        }
    }
    return nullptr;
}

// "*OpenUI *Jog/Offset: PickOne" opens "Jog", "*OpenGroup: Paper/Paper" opens "Paper".
std::string_view NameOf(const PPDStatement& open)
{
    std::string_view name = open.option.empty() ? open.value : open.option;
    name.remove_prefix(name.starts_with('*') ? 1 : 0);
    return name.substr(0, name.find('/'));
}

std::string ClosingOf(std::string_view opening)
{
    std::string close(opening);
    return close.replace(close.find("Open"), 4, "Close");
}

// "the *OpenUI of "Jog""
std::string BlockText(std::string_view keyword, std::string_view name)
{
    return "the *" + std::string(keyword) + " of " + QuotedName(name);
}

std::string_view WithoutQuotes(std::string_view value)
{
    value.remove_prefix(value.starts_with('"') ? 1 : 0);
    value.remove_suffix(value.ends_with('"') ? 1 : 0);
    return value;
}

// Takes the next of some numbers that blanks part; nullopt when there is none.
std::optional<float> TakeNumber(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    float number = 0;
    const auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return status == std::errc() ? std::optional(number) : std::nullopt;
}

// The value of a parameter of custom sizes, such as "1 points 432 936".
bool IsLimitsValue(std::string_view value)
{
    const std::size_t type = value.find_first_of("abcdefghijklmnopqrstuvwxyz");
    value.remove_prefix(std::min(value.find_first_of(" \t", type), value.size()));
    const auto minimum = TakeNumber(value);
    const auto maximum = TakeNumber(value);
    return minimum && maximum && IsPaperRange(*minimum, *maximum);
}

std::size_t LastLineOf(std::string_view contents)
{
    std::size_t line = 1;
    for (std::size_t at = 0; at < contents.size(); ++at) {
        const bool isPairsFirst = contents.substr(at, 2) == "\r\n";
        if ((contents[at] == '\n' || contents[at] == '\r') && !isPairsFirst) {
            ++line;
        }
    }
    return line;
}

// The statements of a file one after the other, with what is open around them.
class OutlineWalk {
public:
    void visit(const PPDStatement& statement);
    // What opens at that level, or is in such a thing, must be closed by now.
    void requireClosed(BlockLevel outermost);

    // Once all statements have been visited.
    void finish(std::string_view contents);

    Lines options;  // where each is opened first
    Lines defaults; // the last of each
    std::size_t badLimits = 0;
    std::size_t customSizes = 0;
    std::vector<PPDOutline::Constraint> constraints;
    std::vector<PPDRemark> faults;

private:
    struct Block {
        std::string_view keyword; // "" when it is closed
        std::string_view name;
        std::size_t line = 0;
    };
    struct Choice {
        std::string_view keyword;
        std::size_t line;
    };

    void add(std::size_t line, std::string text)
    {
        faults.push_back({line, true, std::move(text)});
    }
    void visitOpening(const BlockRow& row, const PPDStatement& statement);
    void visitClosing(const BlockRow& row, const PPDStatement& statement);
    void visitDefault(const PPDStatement& statement);
    void visitConstraint(const PPDStatement& statement);
    void visitCustomSizes(const PPDStatement& statement);
    void endChoices();

    bool isQuoteOpen_ = false;
    std::array<Block, LevelCount> open_;
    std::vector<Choice> choices_; // of the open option
    OrderedMap<std::string_view> defaultChoices_;
    Lines contraryDefaults_; // the last of several for an option that differ
};

void OutlineWalk::visit(const PPDStatement& statement)
{
    if (statement.isQuoteOpen) {
        isQuoteOpen_ = true;
        add(statement.line, "the quote of " + QuotedName(statement.keyword) + " is never closed");
    }
    if (const BlockRow* row = BlockOf(statement.keyword)) {
        row->opens ? visitOpening(*row, statement) : visitClosing(*row, statement);
    } else if (statement.keyword == open_[OptionLevel].name && !statement.option.empty()) {
        choices_.push_back({statement.option, statement.line});
    } else if (statement.keyword.starts_with(DefaultPrefix)) {
        visitDefault(statement);
    } else if (statement.keyword.ends_with(PlainConstraintKeyword) ||
               statement.keyword == PPDConstraintKeyword) {
        visitConstraint(statement);
    } else if (statement.keyword.ends_with(CustomSizesKeyword)) {
        visitCustomSizes(statement);
    }
}

// Whatever is open within a block must be closed before it begins or ends.
void OutlineWalk::visitOpening(const BlockRow& row, const PPDStatement& statement)
{
    requireClosed(row.level);
    Block& block = open_[row.level];
    block = {row.keyword, NameOf(statement), statement.line};
    if (row.level != OptionLevel) {
        return;
    }
    if (!options.insert(block.name, statement.line)) {
        add(statement.line, QuotedName(block.name) + " is there again");
    }
    if (statement.value.empty()) {
        add(statement.line, BlockText(row.keyword, block.name) + " says no type");
    }
}

void OutlineWalk::visitClosing(const BlockRow& row, const PPDStatement& statement)
{
    Block& block = open_[row.level];
    const std::string closing = BlockText(row.keyword, NameOf(statement));
    if (block.keyword.empty()) {
        add(statement.line, closing + " closes nothing");
    } else if (ClosingOf(block.keyword) != row.keyword || block.name != NameOf(statement)) {
        add(statement.line, closing + " does not match " + BlockText(block.keyword, block.name));
    }
    block.keyword = {};
    requireClosed(row.level);
}

void OutlineWalk::visitDefault(const PPDStatement& statement)
{
    const std::string_view option = statement.keyword.substr(DefaultPrefix.size());
    const std::string_view* former = defaultChoices_.find(option);
    if (former != nullptr && *former != statement.value) {
        contraryDefaults_.set(option, statement.line);
    }
    defaultChoices_.set(option, statement.value);
    defaults.set(option, statement.line);
}

void OutlineWalk::requireClosed(BlockLevel outermost)
{
    endChoices();
    for (std::size_t level = outermost; level < LevelCount; ++level) {
        const Block block = std::exchange(open_[level], {});
        if (!block.keyword.empty()) {
            add(block.line,
                BlockText(block.keyword, block.name) + " has no *" + ClosingOf(block.keyword));
        }
    }
}

void OutlineWalk::visitConstraint(const PPDStatement& statement)
{
    if (auto sides = PPDConstraintOf(WithoutQuotes(statement.value))) {
        const bool isNonUI = statement.keyword == NonUIConstraintKeyword;
        constraints.push_back({statement.line, std::move(*sides), isNonUI});
    } else {
        const bool isLeftOut = statement.keyword == PPDConstraintKeyword;
        add(statement.line, isLeftOut ? "a constraint that does not name two options is left out"
                                      : "a constraint does not name two options");
    }
}

void OutlineWalk::visitCustomSizes(const PPDStatement& statement)
{
    const bool isLength = statement.option == "Width" || statement.option == "Height";
    if (statement.keyword == CustomSizesKeyword) {
        customSizes = customSizes == 0 ? statement.line : customSizes;
    } else if (statement.keyword == CustomSizesLimitsKeyword && isLength && badLimits == 0 &&
               !IsLimitsValue(statement.value)) {
        badLimits = statement.line;
    }
}

void OutlineWalk::finish(std::string_view contents)
{
    requireClosed(GroupLevel);
    for (const auto& [option, line] : contraryDefaults_) {
        if (options.contains(option)) {
            add(line, QuotedName(option) + " has another default already; this one counts");
        }
    }
    if (!contents.empty() && contents.back() != '\n' && contents.back() != '\r' && !isQuoteOpen_) {
        add(LastLineOf(contents), "the file ends within this line");
    }
}

// Names each choice that came more than once, by the line of its second.
void OutlineWalk::endChoices()
{
    std::sort(choices_.begin(), choices_.end(), [](const Choice& one, const Choice& other) {
        return std::tie(one.keyword, one.line) < std::tie(other.keyword, other.line);
    });
    for (std::size_t index = 1; index < choices_.size(); ++index) {
        const auto& choice = choices_[index];
        const bool isRepeated = choice.keyword == choices_[index - 1].keyword;
        if (isRepeated && (index == 1 || choice.keyword != choices_[index - 2].keyword)) {
            add(choice.line, QuotedName(open_[OptionLevel].name) + " has the choice " +
                                 QuotedName(choice.keyword) + " again");
        }
    }
    choices_.clear();
}

} // namespace

std::string QuotedName(std::string_view name)
{
    return std::string("\"").append(name).append("\"");
}

PPDOutline::PPDOutline(std::string_view contents)
{
    OutlineWalk walk;
    PPDStatements statements(contents);
    while (const auto statement = statements.next()) {
        walk.visit(*statement);
    }
    walk.finish(contents);
    options_ = std::move(walk.options);
    defaults_ = std::move(walk.defaults);
    customSizes_ = walk.badLimits == 0 ? walk.customSizes : walk.badLimits;
    constraints_ = std::move(walk.constraints);
    faults_ = std::move(walk.faults);
}

} // namespace tarvo
