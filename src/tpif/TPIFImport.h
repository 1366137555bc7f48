#pragma once

#include "platform/printing/PMPrintSession.h"
#include "platform/printing/PMStatus.h"
#include "platform/xml/XmlEvents.h"
#include "tpif/TPIFImportFeatures.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tarvo {

/// A document that cannot be parsed; nothing of it is imported.
inline constexpr OSStatus StatusUnreadableDocument = -208;

/// Bounds of a document. Its elements have an attribute each, so their number is not bounded.
inline constexpr XmlLimits TPIFImportLimits = {
    .attributesInAll = static_cast<std::size_t>(-1),
};
/// An insert or exception page takes at least that much memory, in bytes, though it may say nothing
/// and be a few bytes of text.
inline constexpr std::size_t TPIFImportPageMemory = 400;
/// What all of them may take, in bytes: an amount for any document and twice its text. One that
/// says which pages it is for is so long a text that the latter alone is enough.
inline constexpr std::size_t TPIFImportPagesMemory = std::size_t{32} * 1024 * 1024;

/// Imports one document: ticket entries by their keys, each replacing the one of a former document
/// under the same key. Elements that nothing asks for, and values that their features do not take,
/// are left out without a word. One page of the document is in memory at a time, whatever its size.
/// @param error     why the document is unreadable; beside StatusOk, why there is nothing to
/// import: a root of another kind; else empty
/// @param observer  told of each element; null when nobody wants to know. Of an unreadable document
/// it has been told those before the fault.
/// @return StatusOk, also for a document without anything to import; StatusUnreadableDocument with
/// the result as it was
OSStatus TPIFImportDocument(const TPIFImportFeatures& features, const XmlSource& source,
                            CFDictionary& result, ParseError& error,
                            const TPIFImportObserver* observer = nullptr);

/// The same for a regular file.
OSStatus TPIFImportFileAtPath(const TPIFImportFeatures& features, const std::string& path,
                              CFDictionary& result, ParseError& error,
                              const TPIFImportObserver* observer = nullptr);

/// Writes the entries of a result into the session's job ticket, each replacing a present one
/// whole, and makes the two-sided mode of the print dialog match. Does nothing without a session, a
/// job ticket, a result or entries.
/// @return the first status of the ticket that is not StatusOk; the other entries are written
OSStatus TPIFImportMergeIntoJobTicket(PMPrintSession* session, const CFDictionary* result);

/// The print dialog's own two-sided mode that goes with a result; nullopt when the result has none.
std::optional<std::int32_t> SystemDuplexOf(const CFDictionary& result);

struct TPIFUnreadableFile {
    std::string path;
    ParseError error;
};

/// Imports the files in their order and merges the result; the unreadable ones are left out.
/// @param unreadable  filled with those; may be null
OSStatus TPIFImportFiles(const TPIFImportFeatures& features, std::span<const std::string> paths,
                         PMPrintSession* session,
                         std::vector<TPIFUnreadableFile>* unreadable = nullptr);

} // namespace tarvo
