#include "cli/PPDOutline.h"

#include "platform/printing/PPDFile.h"
#include "platform/printing/PPDStatements.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace tarvo {
namespace {

constexpr std::string_view DefaultPrefix = "Default";
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

// The statements of a file one after the other, with what is open around them.
class OutlineWalk {
public:
    void visit(const PPDStatement& statement);
    // What opens at that level, or is in such a thing, must be closed by now.
    void requireClosed(BlockLevel outermost);

    Lines options; // where each is opened first
    Lines defaults;
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
    void visitBlock(const BlockRow& row, const PPDStatement& statement);
    void visitConstraint(const PPDStatement& statement);
    void endChoices();

    std::array<Block, LevelCount> open_;
    std::vector<Choice> choices_; // of the open option
};

void OutlineWalk::visit(const PPDStatement& statement)
{
    if (statement.isQuoteOpen) {
        add(statement.line, "the quote of " + QuotedName(statement.keyword) + " is never closed");
    }
    if (const BlockRow* row = BlockOf(statement.keyword)) {
        visitBlock(*row, statement);
    } else if (statement.keyword == open_[OptionLevel].name && !statement.option.empty()) {
        choices_.push_back({statement.option, statement.line});
    } else if (statement.keyword.starts_with(DefaultPrefix)) {
        defaults.insert(statement.keyword.substr(DefaultPrefix.size()), statement.line);
    } else if (statement.keyword == PPDConstraintKeyword) {
        visitConstraint(statement);
    }
}

// Whatever is open within a block must be closed before it begins or ends.
void OutlineWalk::visitBlock(const BlockRow& row, const PPDStatement& statement)
{
    Block& block = open_[row.level];
    if (!row.opens) {
        block.keyword = {};
    }
    requireClosed(row.level);
    if (!row.opens) {
        return;
    }
    block = {row.keyword, NameOf(statement), statement.line};
    if (row.level == OptionLevel && !options.insert(block.name, statement.line)) {
        add(statement.line, QuotedName(block.name) + " is there again");
    }
}

void OutlineWalk::requireClosed(BlockLevel outermost)
{
    endChoices();
    for (std::size_t level = outermost; level < LevelCount; ++level) {
        const Block block = std::exchange(open_[level], {});
        if (!block.keyword.empty()) {
            std::string close(block.keyword);
            close.replace(close.find("Open"), 4, "Close");
            std::string text = "the *";
            text.append(block.keyword).append(" of ").append(QuotedName(block.name));
            add(block.line, text.append(" has no *").append(close));
        }
    }
}

void OutlineWalk::visitConstraint(const PPDStatement& statement)
{
    std::string_view value = statement.value;
    value.remove_prefix(value.starts_with('"') ? 1 : 0);
    value.remove_suffix(value.ends_with('"') ? 1 : 0);
    if (!PPDConstraintOf(value)) {
        add(statement.line, "a constraint that does not name two options is left out");
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
    walk.requireClosed(GroupLevel);
    options_ = std::move(walk.options);
    defaults_ = std::move(walk.defaults);
    faults_ = std::move(walk.faults);
}

} // namespace tarvo
