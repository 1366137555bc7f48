#include "tpif/TPIFImportGroup.h"

namespace tarvo {
namespace {

struct SyntaxRow {
    std::string_view name;
    TPIFImportSyntax syntax;
};

constexpr SyntaxRow Syntaxes[] = {
    {"keyword",       TPIFImportSyntax::Keyword},
    {"integer",       TPIFImportSyntax::Number },
    {"name",          TPIFImportSyntax::Name   },
    {"enum",          TPIFImportSyntax::Keyword},
    {"mimeMediaType", TPIFImportSyntax::Keyword},
    {"uri",           TPIFImportSyntax::Name   },
    {"text",          TPIFImportSyntax::Name   },
};

} // namespace

TPIFImportSyntax TPIFImportGetNodeSyntax(std::optional<std::string_view> syntaxAttribute)
{
    for (const SyntaxRow& row : Syntaxes) {
        if (syntaxAttribute == row.name) {
            return row.syntax;
        }
    }
    return TPIFImportSyntax::Unknown;
}

TPIFImportNode& TPIFImportGroup::add(std::size_t slot)
{
    filled_.push_back(slot);
    nodes_[slot].isPresent = true;
    return nodes_[slot];
}

void TPIFImportGroup::clear(std::string_view keys)
{
    for (const std::size_t slot : filled_) {
        TPIFImportNode& node = nodes_[slot];
        node.isPresent = node.hasElements = node.isTold = false;
        node.text.clear();
    }
    filled_.clear();
    keys_ = keys;
}

void TPIFImportGroup::tellTaken(const TPIFImportNode& node, std::string_view key,
                                const CFPropertyList& value) const
{
    if (observer_ != nullptr) {
        node.isTold = true;
        const std::string whole = keys_ + std::string(key);
        (*observer_)({TPIFImportOutcome::Taken, node.path, node.element, node.line, node.text,
                      whole, &value, ""});
    }
}

void TPIFImportGroup::tell(TPIFImportOutcome outcome, const TPIFImportNode& node,
                           std::string_view reason) const
{
    if (observer_ != nullptr && !node.isTold) {
        node.isTold = true;
        (*observer_)({outcome, node.path, node.element, node.line, node.text, "", nullptr, reason});
    }
}

void TPIFImportGroup::tellIgnored(const TPIFImportNode* node, std::string_view reason) const
{
    if (node != nullptr && !node->hasElements) {
        tell(TPIFImportOutcome::Ignored, *node, reason);
    }
}

void TPIFImportGroup::tellRest(std::string_view reason) const
{
    for (const std::size_t slot : filled_) {
        tellIgnored(&nodes_[slot], reason);
    }
}

void TPIFImportTarget::set(std::string_view key, CFPropertyList value,
                           std::initializer_list<const TPIFImportNode*> nodes)
{
    if (group_.isObserved()) {
        const std::string whole = std::string(key_) + (key_.empty() ? "" : "/") + std::string(key);
        for (const TPIFImportNode* node : nodes) {
            if (node != nullptr) {
                group_.tellTaken(*node, whole, value);
            }
        }
    }
    dictionary_.set(key, std::move(value));
}

} // namespace tarvo
