#include "ImportSteps.h"

#include <algorithm>
#include <set>

namespace tarvo {
namespace {

// The numbers of the elements that hold no others.
class Leaves : public XmlEvents {
public:
    std::string startElement(const XmlElement&) override
    {
        last_ = ++count_;
        return "";
    }
    std::string endElement() override
    {
        if (last_ != 0) {
            numbers.insert(last_);
        }
        last_ = 0;
        return "";
    }
    void characters(std::string_view) override {}

    std::set<std::size_t> numbers;

private:
    std::size_t count_ = 0;
    std::size_t last_ = 0; // 0: an element has ended since
};

// The value of a key as an observer is told it, "List[2]/Stock/Weight"; null when there is none.
const CFPropertyList* ValueOf(const CFDictionary& dictionary, std::string_view key)
{
    const std::size_t end = key.find_first_of("/[");
    const CFPropertyList* value = dictionary.find(key.substr(0, end));
    if (value == nullptr || end == std::string_view::npos) {
        return value;
    }
    std::size_t next = end + 1;
    if (key[end] == '[') {
        const auto* list = value->get<CFArray>();
        const std::size_t index = std::stoul(std::string(key.substr(next)));
        if (list == nullptr || index >= list->size()) {
            return nullptr;
        }
        value = &(*list)[index];
        next = key.find('/', next) + 1;
    }
    const auto* inside = value->get<CFDictionary>();
    return inside == nullptr ? nullptr : ValueOf(*inside, key.substr(next));
}

struct Taken {
    std::string key;
    CFPropertyList value;
};

} // namespace

std::string FaultOfSteps(const TPIFImportFeatures& features, std::string_view xml)
{
    std::set<std::size_t> told;
    std::vector<Taken> taken;
    const TPIFImportObserver observer = [&](const TPIFImportStep& step) {
        told.insert(step.element);
        if (step.value != nullptr) {
            taken.push_back({std::string(step.key), *step.value});
        }
    };
    CFDictionary result;
    ParseError error;
    Leaves leaves;
    if (TPIFImportDocument(features, XmlSourceOf(xml), result, error, &observer) != StatusOk ||
        !ReadXml(XmlSourceOf(xml), TPIFImportLimits, leaves, error)) {
        return error.reason;
    }
    if (!std::includes(told.begin(), told.end(), leaves.numbers.begin(), leaves.numbers.end())) {
        return "not told of an element that holds no others";
    }
    for (const Taken& each : taken) {
        const CFPropertyList* stored = ValueOf(result, each.key);
        if (stored == nullptr || !(*stored == each.value)) {
            return each.key + " is told to be taken, and is not stored so";
        }
    }
    return "";
}

} // namespace tarvo
