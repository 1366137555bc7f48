// Any property list as the ticket of every record and as a job ticket: what a record writes, it
// reads back as the same record, everything can be told in words, and what is wrong with its line.
#include "cli/TicketCheck.h"
#include "cli/TicketReport.h"
#include "platform/bundle/CFBundle.h"
#include "platform/cf/PropertyListReader.h"
#include "platform/printing/PMTicket.h"
#include "prefs/PreferenceFiles.h"
#include "records/BackgroundFormsOptions.h"
#include "records/FullColorOptions.h"
#include "records/HighlightColorOptions.h"
#include "records/Stock.h"
#include "records/TicketSpecialPages.h"

#include <cstdint>
#include <cstdlib>

namespace tarvo {
namespace {

void Expect(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

// Not a number equals nothing, itself neither; a record may keep one as it came.
void ExpectEqual(const CFPropertyList& value, const CFPropertyList& other)
{
    Expect(value == other || !(value == value));
}

// The first reading may drop what is not the record's, and what is no whole unit of a dialog.
template <typename Record>
void ReadAs(const CFDictionary& ticket)
{
    const Record record((Record(ticket).asTicket()));
    ExpectEqual(Record(record.asTicket()).asTicket(), record.asTicket());
}

void ReadAsBackgroundForms(const CFDictionary& ticket)
{
    const PreferenceFolders nowhere = {"/nowhere", {"/nowhere"}};
    const BackgroundFormsOptions forms(BackgroundFormsOptions(ticket, nowhere).asTicket(), nowhere);
    Expect(BackgroundFormsOptions(forms.asTicket(), nowhere) == forms);
}

// A component below 0 moves with each reading: no dialog makes one.
void ReadAsHighlightColor(const CFDictionary& ticket)
{
    HighlightColorOptions options;
    ColorSetupHLCSetOptionsFromTicket(options, ticket);
    HighlightColorOptions again;
    ColorSetupHLCSetOptionsFromTicket(again, ColorSetupHLCCreateTicketFromOptions(options));
    const bool isColor = options.red >= 0 && options.green >= 0 && options.blue >= 0;
    Expect(!isColor || again == options);
}

void ReadAsAny(const CFDictionary& ticket)
{
    ReadAs<FullColorOptions>(ticket);
    ReadAsBackgroundForms(ticket);
    ReadAsHighlightColor(ticket);
    ReadAs<Stock>(ticket);
    ReadAs<Cover>(ticket);
    ReadAs<Insert>(ticket);
    ReadAs<ExceptionPage>(ticket);
}

// Every dictionary at any depth, so that a small input reaches the small records too.
void ReadAll(const CFPropertyList& value)
{
    if (const auto* array = value.get<CFArray>()) {
        for (const CFPropertyList& entry : *array) {
            ReadAll(entry);
        }
    } else if (const auto* dictionary = value.get<CFDictionary>()) {
        ReadAsAny(*dictionary);
        for (const auto& entry : *dictionary) {
            ReadAll(entry.value);
        }
    }
}

void ExpectInOrder(const TicketSpecialPages& pages)
{
    for (std::int32_t index = 1; index < pages.inserts.count(); ++index) {
        Expect(pages.inserts.pageAtIndex(index - 1)->startPage() <=
               pages.inserts.pageAtIndex(index)->startPage());
    }
    for (std::int32_t index = 0; index < pages.exceptions.count(); ++index) {
        const auto* before = pages.exceptions.pageAtIndex(index - 1);
        const auto* page = pages.exceptions.pageAtIndex(index);
        Expect(page->startPage() <= page->endPage());
        Expect(before == nullptr || before->endPage() < page->startPage());
    }
}

void ReadAsJob(const CFDictionary& values)
{
    PMTicket ticket(values, SpecialPagesClient);
    for (int round = 0; round < 2; ++round) {
        const TicketSpecialPages pages = ReadSpecialPages(ticket);
        ExpectInOrder(pages);
        Expect(WriteSpecialPages(ticket, pages) == StatusOk);
        const TicketSpecialPages again = ReadSpecialPages(ticket);
        Expect(again.frontCover == pages.frontCover && again.backCover == pages.backCover);
        Expect(again.inserts.count() == pages.inserts.count());
        Expect(again.exceptions.count() == pages.exceptions.count());
    }
}

void TellInWords(const CFDictionary& ticket)
{
    constexpr std::int32_t Pages = 100;
    static const CFBundle bundle("/nowhere", {});
    const TicketReport report = DescribeTicket(ticket, bundle, Pages);
    Expect(report.plan && report.plan->sheetCount > 0);
    Expect(!TicketText(report, bundle).empty() && !TicketJson(report).empty());
}

void Check(const CFDictionary& ticket, const PropertyListPlace& place)
{
    Findings findings;
    CheckTicketEntries(TicketPlace(ticket, &place), findings);
    CheckTicketContradictions(TicketPlace(ticket, &place), findings);
    for (const Finding& finding : findings.list()) {
        Expect(finding.line > 0 && !finding.reason.empty());
    }
}

} // namespace
} // namespace tarvo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    tarvo::ParseError error;
    tarvo::PropertyListPlace place;
    const auto ticket = tarvo::ReadPropertyListDictionary(
        {reinterpret_cast<const char*>(bytes), size}, error, &place);
    if (ticket) {
        tarvo::ReadAll(*ticket);
        tarvo::ReadAsJob(*ticket);
        tarvo::TellInWords(*ticket);
        tarvo::Check(*ticket, place);
    }
    return 0;
}
