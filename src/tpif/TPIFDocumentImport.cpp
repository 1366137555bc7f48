#include "tpif/TPIFDocumentImport.h"

#include "records/SpecialPageKeys.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFImport.h"
#include "tpif/TPIFImportJob.h"

namespace tarvo {
namespace {

using Scope = TPIFImportScope;

constexpr const char* NobodyAsks = "nothing asks for it";
constexpr const char* EarlierCounts = "an earlier one counts";
constexpr const char* HoldsNothing = "it holds nothing";

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
    document.around = &paths_.root(Scope::Document);
    open_.push_back(document);
    shown_.emplace_back();
}

std::string TPIFDocumentImport::startElement(const XmlElement& start)
{
    open_.back().hasElements = true;
    if (observer_ != nullptr) {
        show(start);
    }
    OpenElement& element = open_.emplace_back();
    element.number = ++elements_;
    const char* whyIgnored = startMember(element, start);
    if (observer_ != nullptr && shown_.back().whyIgnored == nullptr) {
        shown_.back().whyIgnored = whyIgnored;
    }
    return "";
}

void TPIFDocumentImport::show(const XmlElement& start)
{
    shown_.push_back({start.line(), path_.size(), shown_.back().whyIgnored});
    path_.append(".").append(start.name());
    ignored_.clear();
}

const char* TPIFDocumentImport::startMember(OpenElement& element, const XmlElement& start)
{
    const OpenElement& parent = open_[open_.size() - 2];
    const Place* place =
        parent.around == nullptr ? nullptr : paths_.find(*parent.around, start.name());
    if (place == nullptr) {
        if (element.number == 1) {
            remark_ = {start.line(), "no document to import: the root element is \"" +
                                         std::string(start.name()) + '"'};
        }
        return NobodyAsks;
    }
    if ((place->repeats || place->opens) && !isFirst(*place, parent)) {
        return EarlierCounts;
    }
    element.place = element.around = place;
    element.group = parent.group;
    if (place->opens) {
        openGroup(element);
        return nullptr;
    }
    return place->slot ? startNode(element, start) : nullptr;
}

// Of a set or a group only the first counts, and where they repeat, its siblings.
bool TPIFDocumentImport::isFirst(const Place& place, const OpenElement& parent)
{
    auto& first = firstParents_[place.index];
    const bool isFirst = !first;
    if (isFirst) {
        first = parent.number;
    }
    return isFirst || (place.repeats && first == parent.number);
}

const char* TPIFDocumentImport::startNode(OpenElement& element, const XmlElement& start)
{
    const Place& place = *element.place;
    if (!place.repeats && element.group->node(place.slot) != nullptr) {
        return EarlierCounts;
    }
    element.node = place.repeats ? &member_ : &element.group->add(*place.slot);
    TPIFImportNode& node = *element.node;
    if (place.repeats) {
        node = TPIFImportNode();
    }
    node.syntax = TPIFImportGetNodeSyntax(start.attribute("syntax"));
    if (observer_ != nullptr) {
        node.element = element.number;
        node.line = start.line();
        node.path = path_;
    }
    if (place.wantsText) {
        texts_.push_back(&node);
    }
    return nullptr;
}

void TPIFDocumentImport::openGroup(OpenElement& element)
{
    const Scope scope = *element.place->opens;
    element.around = &paths_.root(scope);
    element.group = scope == Scope::Job ? &job_ : &inner_;
    element.opensGroup = true;
    element.group->clear(observer_ == nullptr ? "" : keysOf(*element.place));
}

// The keys before those of the group's entries.
std::string TPIFDocumentImport::keysOf(const Place& place) const
{
    switch (*place.opens) {
    case Scope::Cover:
        return std::string(features_.named("FrontCover").slot() == place.slot ? FrontCoverKey
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
        if (element.place->wantsText) {
            texts_.pop_back();
        }
        if (element.node == &member_) {
            endMember(element);
        }
    } else if (element.opensGroup) {
        tellEmptyGroup(element);
        endGroup(element);
    } else if (observer_ != nullptr && !element.hasElements) {
        tellIgnored(element);
    }
    if (observer_ != nullptr) {
        path_.resize(shown_.back().pathLength);
        shown_.pop_back();
        ignored_.clear();
    }
    return pages_.count() * TPIFImportPageMemory > TPIFImportPagesMemory + 2 * bytes_
               ? "too many inserts and exception pages for so short a document"
               : "";
}

void TPIFDocumentImport::endMember(const OpenElement& element)
{
    if (features_.named("Finishings").slot() == element.place->slot) {
        finishing_.add(*element.group, member_);
    } else {
        offset_.add(*element.group, member_);
    }
}

void TPIFDocumentImport::endGroup(const OpenElement& element)
{
    const TPIFImportGroup& group = *element.group;
    switch (*element.place->opens) {
    case Scope::Job:
        endJob(group);
        break;
    case Scope::Operation:
        oneToOne_.readOperation(group, result_);
        break;
    case Scope::Cover:
        if (features_.named("FrontCover").slot() == element.place->slot) {
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
    group.tellRest("nothing is made of it");
}

void TPIFDocumentImport::endJob(const TPIFImportGroup& group)
{
    if (CFDictionary stock = TPIFStockReader(features_).read(group, JobLevelStockKey);
        !stock.empty()) {
        result_.set(JobLevelStockKey, std::move(stock));
    }
    finishing_.store(result_);
    ComputeFinishingOptionKey(result_);
    finishing_.tell(group, result_);
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
    const ShownElement& shown = shown_.back();
    const char* reason = shown.whyIgnored != nullptr ? shown.whyIgnored : HoldsNothing;
    (*observer_)({TPIFImportOutcome::Ignored, path_, element.number, shown.line, ignored_, "",
                  nullptr, reason});
}

// A cover, an insert or a page without anything is one all the same.
void TPIFDocumentImport::tellEmptyGroup(const OpenElement& element)
{
    if (observer_ == nullptr || element.hasElements) {
        return;
    }
    TPIFImportNode node;
    node.element = element.number;
    node.line = shown_.back().line;
    node.path = path_;
    node.text = ignored_;
    switch (*element.place->opens) {
    case Scope::Cover:
        element.group->tellTaken(node, StartPageKey, 0);
        break;
    case Scope::Insert:
    case Scope::Page:
        element.group->tellTaken(node, StartPageKey, 1);
        break;
    default:
        element.group->tellIgnored(&node, HoldsNothing);
    }
}

CFDictionary TPIFDocumentImport::takeResult() &&
{
    std::move(pages_).store(job_, result_);
    return std::move(result_);
}

} // namespace tarvo
