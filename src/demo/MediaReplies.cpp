#include "demo/MediaReplies.h"

#include <cups/ipp.h>

#include <algorithm>
#include <charconv>
#include <memory>

namespace tarvo {
namespace {

struct IppDeleter {
    void operator()(ipp_t* ipp) const { ippDelete(ipp); }
};
using Ipp = std::unique_ptr<ipp_t, IppDeleter>;

ssize_t TakeBytes(void* context, ipp_uchar_t* buffer, std::size_t length)
{
    auto& rest = *static_cast<std::string_view*>(context);
    const std::size_t taken = rest.copy(reinterpret_cast<char*>(buffer), length);
    rest.remove_prefix(taken);
    return static_cast<ssize_t>(taken);
}

ssize_t AppendBytes(void* context, ipp_uchar_t* buffer, std::size_t length)
{
    static_cast<std::string*>(context)->append(reinterpret_cast<const char*>(buffer), length);
    return static_cast<ssize_t>(length);
}

int NumberOf(std::string_view text)
{
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

Ipp SizeOf(std::string_view text)
{
    constexpr std::string_view Times = " x ";
    const std::size_t middle = std::min(text.find(Times), text.size());
    const std::size_t second = std::min(middle + Times.size(), text.size());
    Ipp size(ippNew());
    ippAddInteger(size.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, "x-dimension",
                  NumberOf(text.substr(0, middle)));
    ippAddInteger(size.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, "y-dimension",
                  NumberOf(text.substr(second)));
    return size;
}

ipp_tag_t TagOf(const std::string& member, const std::string& value)
{
    if (member.ends_with("-count") || member.ends_with("-metric")) {
        return IPP_TAG_INTEGER;
    }
    if (member == "media-description" || member == "media-info") {
        return IPP_TAG_TEXT;
    }
    const bool isKeyword = std::all_of(value.begin(), value.end(), [](char letter) {
        return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9') ||
               letter == '-' || letter == '_' || letter == '.';
    });
    return isKeyword ? IPP_TAG_KEYWORD : IPP_TAG_NAME;
}

// @param number  behind the key of a repeated medium; 0 for the first
Ipp CollectionOf(const DemoMedium& medium, std::size_t number)
{
    Ipp collection(ippNew());
    for (const auto& [member, value] : medium) {
        const ipp_tag_t tag = TagOf(member, value);
        if (member == "media-size") {
            ippAddCollection(collection.get(), IPP_TAG_ZERO, member.c_str(), SizeOf(value).get());
        } else if (tag == IPP_TAG_INTEGER) {
            ippAddInteger(collection.get(), IPP_TAG_ZERO, tag, member.c_str(), NumberOf(value));
        } else {
            const std::string text =
                member == "media-key" && number > 0 ? value + " " + std::to_string(number) : value;
            ippAddString(collection.get(), IPP_TAG_ZERO, tag, member.c_str(), nullptr,
                         text.c_str());
        }
    }
    return collection;
}

void AddMedia(ipp_t* reply, const std::vector<DemoMedium>& media, std::size_t repeat)
{
    std::vector<Ipp> owners;
    std::vector<const ipp_t*> values;
    for (std::size_t number = 0; number < repeat; ++number) {
        for (const DemoMedium& medium : media) {
            owners.push_back(CollectionOf(medium, number));
            values.push_back(owners.back().get());
        }
    }
    if (!values.empty()) {
        ippAddCollections(reply, IPP_TAG_PRINTER, "media-col-database",
                          static_cast<int>(values.size()), values.data());
    }
}

} // namespace

std::optional<std::string> MediaReplyTo(std::string_view request,
                                        const std::vector<DemoMedium>& media, std::size_t repeat)
{
    const Ipp asked(ippNew());
    if (ippReadIO(&request, TakeBytes, 1, nullptr, asked.get()) != IPP_STATE_DATA) {
        return std::nullopt;
    }
    const Ipp reply(ippNewResponse(asked.get()));
    if (ippGetOperation(asked.get()) == IPP_OP_GET_PRINTER_ATTRIBUTES) {
        AddMedia(reply.get(), media, repeat);
    } else {
        ippSetStatusCode(reply.get(), IPP_STATUS_ERROR_OPERATION_NOT_SUPPORTED);
    }
    std::string bytes;
    ippSetState(reply.get(), IPP_STATE_IDLE);
    ippWriteIO(&bytes, AppendBytes, 1, nullptr, reply.get());
    return bytes;
}

} // namespace tarvo
