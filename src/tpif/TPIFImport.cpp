#include "tpif/TPIFImport.h"

#include "platform/files/FileContents.h"
#include "printer/PPDKeywordMaps.h"
#include "settings/TicketAccess.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFDocumentImport.h"

namespace tarvo {
namespace {

// The PPD's word for a two-sided mode; null when it has none.
const char* DuplexKeywordOf(std::int32_t duplex)
{
    return GetPPDOptionKeywordForTicketValue(PPDDuplexMap, duplex);
}

} // namespace

OSStatus TPIFImportDocument(const TPIFImportFeatures& features, const XmlSource& source,
                            CFDictionary& result, ParseError& error,
                            const TPIFImportObserver* observer)
{
    TPIFDocumentImport document(features, observer);
    const XmlSource counted = [&](char* bytes, std::size_t size, std::string& reason) {
        const auto count = source(bytes, size, reason);
        document.take(count.value_or(0));
        return count;
    };
    if (!ReadXml(counted, TPIFImportLimits, document, error)) {
        return StatusUnreadableDocument;
    }
    error = document.remark();
    for (auto& entry : std::move(document).takeResult().takeEntries()) {
        result.set(entry.key, std::move(entry.value));
    }
    return StatusOk;
}

OSStatus TPIFImportFileAtPath(const TPIFImportFeatures& features, const std::string& path,
                              CFDictionary& result, ParseError& error,
                              const TPIFImportObserver* observer)
{
    std::string reason;
    auto file = FileReader::Open(path, TPIFImportLimits.bytes, reason);
    if (!file) {
        error = ParseError{0, "cannot read: " + reason};
        return StatusUnreadableDocument;
    }
    const XmlSource source = [&file](char* bytes, std::size_t size, std::string& why) {
        return file->read(bytes, size, why);
    };
    return TPIFImportDocument(features, source, result, error, observer);
}

OSStatus TPIFImportMergeIntoJobTicket(PMPrintSession* session, const CFDictionary* result)
{
    PMTicket* ticket = nullptr;
    if (session == nullptr || result == nullptr || result->empty()) {
        return StatusOk;
    }
    GetTicketFromSession(session, JobTicketName, &ticket);
    if (ticket == nullptr) {
        return StatusOk;
    }
    OSStatus status = StatusOk;
    const auto note = [&status](OSStatus next) { status = status == StatusOk ? next : status; };
    for (const auto& [key, value] : *result) {
        note(ticket->setItem(ImportClient, key, value));
    }
    if (const auto duplex = SystemDuplexOf(*result)) {
        ticket->ppdDictionary().set(DuplexMainKeyword, DuplexKeywordOf(*duplex));
        note(ticket->setItem(PanelClient, SystemDuplexKey, *duplex));
    }
    return status;
}

std::optional<std::int32_t> SystemDuplexOf(const CFDictionary& result)
{
    const auto duplex = result.int32(DuplexKey);
    return duplex && DuplexKeywordOf(*duplex) != nullptr ? duplex : std::nullopt;
}

OSStatus TPIFImportFiles(const TPIFImportFeatures& features, std::span<const std::string> paths,
                         PMPrintSession* session, std::vector<TPIFUnreadableFile>* unreadable)
{
    CFDictionary result;
    for (const std::string& path : paths) {
        ParseError error;
        if (TPIFImportFileAtPath(features, path, result, error) != StatusOk &&
            unreadable != nullptr) {
            unreadable->push_back({path, std::move(error)});
        }
    }
    return TPIFImportMergeIntoJobTicket(session, &result);
}

} // namespace tarvo
