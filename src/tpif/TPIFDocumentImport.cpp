#include "tpif/TPIFDocumentImport.h"

#include "settings/TicketKeys.h"
#include "tpif/TPIFImport.h"
#include "tpif/TPIFImportJob.h"

namespace tarvo {
namespace {

using Scope = TPIFImportScope;

constexpr const char* NobodyAsks = "nothing asks for it";
constexpr const char* EarlierCounts = "an earlier one counts";

} // namespace

TPIFDocumentImport::TPIFDocumentImport(const TPIFImportFeatures& features,
                                       const TPIFImportObserver* observer)
    : features_(features),
      paths_(features.paths()),
      observer_(observer),
      job_(paths_.slotCount(), observer),
      inner_(paths_.slotCount(), observer),
      finishing_(features),
      offset_(features),
      pages_(features),
      oneToOne_(features),
      fullColor_(features),
      firstParents_(paths_.placeCount())
{
    OpenElement document;
    document.around = TPIFImportPaths::root(Scope::Document);
    document.number = ++elements_;
    open_.push_back(document);
}

std::string TPIFDocumentImport::startElement(const XmlElement& start)
{
    OpenElement& parent = open_.back();
    parent.hasElements = true;
    OpenElement element;
    element.number = ++elements_;
    if (observer_ != nullptr) {
        element.line = start.line();
        element.pathLength = path_.size();
        element.whyIgnored = parent.whyIgnored;
        path_.append(".").append(start.name());
        ignored_.clear();
    }
    const auto place =
        parent.around ? paths_.find(*parent.around, start.name()) : std::optional<std::size_t>();
    if (!place) {
        element.whyIgnored = element.whyIgnored != nullptr ? element.whyIgnored : NobodyAsks;
    } else if (!isWanted(*place, parent)) {
        element.whyIgnored = EarlierCounts;
    } else {
        element.place = place;
        enter(element, parent, start);
    }
    open_.push_back(element);
    if (pages_.count() > TPIFImportMaximumPages) {
        return "more than " + std::to_string(TPIFImportMaximumPages) +
               " inserts and exception pages";
    }
    return "";
}

// Of a set or a group only the first counts, and where they repeat, its siblings.
bool TPIFDocumentImport::isWanted(std::size_t place, const OpenElement& parent)
{
    const auto& wanted = paths_.place(place);
    if (!wanted.repeats && !wanted.opens) {
        return true;
    }
    std::size_t& first = firstParents_[place];
    const bool isFirst = first == 0;
    if (isFirst) {
        first = parent.number;
    }
    return isFirst || (wanted.repeats && first == parent.number);
}

void TPIFDocumentImport::enter(OpenElement& element, const OpenElement& parent,
                               const XmlElement& start)
{
    const auto& place = paths_.place(*element.place);
    element.around = element.place;
    element.group = parent.group;
    if (place.opens) {
        open(element);
        return;
    }
    if (!place.slot) {
        return;
    }
    if (!place.repeats && element.group->node(place.slot) != nullptr) {
        element.whyIgnored = EarlierCounts;
        return;
    }
    element.node = place.repeats ? &member_ : &element.group->add(*place.slot);
    TPIFImportNode& node = *element.node;
    if (place.repeats) {
        node = TPIFImportNode();
    }
    node.syntax = TPIFImportGetNodeSyntax(start.attribute("syntax"));
    if (observer_ != nullptr) {
        node.line = start.line();
        node.path = path_;
    }
    if (place.wantsText) {
        texts_.push_back(&node);
    }
}

void TPIFDocumentImport::open(OpenElement& element)
{
    const Scope scope = *paths_.place(*element.place).opens;
    element.around = TPIFImportPaths::root(scope);
    element.group = scope == Scope::Job ? &job_ : &inner_;
    element.opensGroup = true;
    element.group->clear(observer_ == nullptr ? "" : keysOf(*element.place));
}

// The keys before those of the group's entries.
std::string TPIFDocumentImport::keysOf(std::size_t place) const
{
    switch (*paths_.place(place).opens) {
    case Scope::Cover:
        return std::string(isSlotOf(features_.named("FrontCover"), place) ? FrontCoverKey
                                                                          : BackCoverKey) +
               "/";
    case Scope::Insert:
        return pages_.nextInsertKeys();
    case Scope::Page:
        return pages_.nextPageKeys();
    default:
        return "";
    }
}

bool TPIFDocumentImport::isSlotOf(const TPIFFeatureReader& feature, std::size_t place) const
{
    return feature.slot() == paths_.place(place).slot;
}

void TPIFDocumentImport::characters(std::string_view text)
{
    for (TPIFImportNode* node : texts_) {
        node->text += text;
    }
    if (observer_ != nullptr && open_.back().node == nullptr) {
        ignored_ += text;
    }
}

std::string TPIFDocumentImport::endElement()
{
    const OpenElement element = open_.back();
    open_.pop_back();
    if (element.node != nullptr) {
        element.node->hasElements = element.hasElements;
        if (paths_.place(*element.place).wantsText) {
            texts_.pop_back();
        }
        if (element.node == &member_) {
            endMember(element);
        }
    } else if (element.opensGroup) {
        endGroup(element);
    } else if (observer_ != nullptr && !element.hasElements) {
        tellIgnored(element);
    }
    if (observer_ != nullptr) {
        path_.resize(element.pathLength);
        ignored_.clear();
    }
    return "";
}

void TPIFDocumentImport::endMember(const OpenElement& element)
{
    if (isSlotOf(features_.named("Finishings"), *element.place)) {
        finishing_.add(*element.group, member_);
    } else {
        offset_.add(*element.group, member_);
    }
}

void TPIFDocumentImport::endGroup(const OpenElement& element)
{
    const TPIFImportGroup& group = *element.group;
    switch (*paths_.place(*element.place).opens) {
    case Scope::Job:
        endJob(group);
        break;
    case Scope::Operation:
        oneToOne_.readOperation(group, result_);
        break;
    case Scope::Cover:
        if (isSlotOf(features_.named("FrontCover"), *element.place)) {
            pages_.addFrontCover(group);
        } else {
            pages_.addBackCover(group);
        }
        break;
    case Scope::Insert:
        pages_.addInsert(group);
        break;
    case Scope::Page:
        pages_.addPage(group);
        break;
    case Scope::Document:
        break;
    }
    group.tellRest();
}

void TPIFDocumentImport::endJob(const TPIFImportGroup& group)
{
    if (CFDictionary stock = TPIFStockReader(features_).read(group, JobLevelStockKey);
        !stock.empty()) {
        result_.set(JobLevelStockKey, std::move(stock));
    }
    finishing_.store(result_);
    ComputeFinishingOptionKey(result_);
    offset_.store(group, result_);
    oneToOne_.readJob(group, result_);
    ImportJobType(features_, group, result_);
    ImportResolution(features_, group, result_);
    ImportImageShift(features_.named("ImageShift"), group, result_, JobImageShiftKey);
    if (CFDictionary highlight = ReadHighlightColor(features_, group); !highlight.empty()) {
        result_.set(HighlightColorOptionsKey, std::move(highlight));
    }
    if (CFDictionary color = fullColor_.read(group, FullColorOptionsKey); !color.empty()) {
        result_.set(FullColorOptionsKey, std::move(color));
    }
    ImportBackgroundForms(features_, group, result_);
}

void TPIFDocumentImport::tellIgnored(const OpenElement& element)
{
    const char* reason = element.whyIgnored != nullptr ? element.whyIgnored : "it holds nothing";
    (*observer_)({TPIFImportOutcome::Ignored, path_, element.line, ignored_, "", nullptr, reason});
}

CFDictionary TPIFDocumentImport::takeResult() &&
{
    std::move(pages_).store(result_);
    return std::move(result_);
}

} // namespace tarvo
