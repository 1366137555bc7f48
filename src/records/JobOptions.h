#pragma once

#include "platform/cf/CFPropertyList.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

class PMTicket;

struct JobOption {
    std::string name;
    std::string value;
};

/// The options of a print job: what the driver is handed as one text, the filter's fifth argument.
/// Names that differ in upper and lower case alone are the same.
class JobOptions {
public:
    /// Replaces the value of an option that is there. An empty name sets nothing.
    void set(std::string_view name, std::string value);
    /// @return the value, borrowed until the next change; null when the option is absent
    const std::string* find(std::string_view name) const;

    std::size_t size() const { return options_.size(); }
    /// Entries {key: the name in lower case, value: JobOption} in the order in which they came.
    auto begin() const { return options_.begin(); }
    auto end() const { return options_.end(); }

private:
    OrderedMap<JobOption> options_;
};

/// The option that holds the ticket: an XML property list of the job ticket's entries, in base64
/// with "-" and "_" for "+" and "/", in pieces between commas.
inline constexpr std::string_view TicketOptionName = "com.tarvo.print.Ticket";
// A print server of another make may refuse names above 255 bytes, which each piece counts as.
inline constexpr std::size_t TicketPieceBytes = 250;
// All options together are one argument of a program, which ends at 128 KiB. The rest is for the
// dialog's own, such as the number of copies.
inline constexpr std::size_t TicketOptionMaximumBytes = std::size_t{96} * 1024;
inline constexpr std::size_t JobOptionsMaximumBytes = std::size_t{124} * 1024;

/// Why a ticket cannot travel with a job.
enum class JobOptionsFault { None, TooLarge, NotWritable };

/// What the job of a ticket carries: the choices of the ticket's PPD dictionary as options of their
/// own, and the ticket's entries as TicketOptionName. Every user of the print server can read them,
/// so passcodes are left out.
/// @param fault  why there are none: above the limits, or an entry is no text that a property list
///               can hold
std::optional<JobOptions> JobOptionsOf(const PMTicket& ticket, JobOptionsFault& fault);

/// Takes the options of a job apart, as the printing system's own cupsParseOptions does, in time in
/// proportion to their length.
/// @param text  up to the first NUL
JobOptions JobOptionsFromText(std::string_view text);

/// The ticket's entries that the job carries.
/// @return nullopt with `reason` filled when it carries none, or what it carries is damaged or
/// larger than a job's ticket can be
std::optional<CFDictionary> TicketOfJobOptions(const JobOptions& options, std::string& reason);

} // namespace tarvo
