#include "cli/ExportPlan.h"

#include "cli/OptionTable.h"

#include <sys/stat.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <utility>

namespace tarvo {
namespace {

using FileIdentity = std::pair<dev_t, ino_t>;

// The regular file behind a name or, for "-", behind standard input.
std::optional<FileIdentity> IdentityOf(const std::string& file)
{
    struct stat status = {};
    const int result = file == "-" ? fstat(STDIN_FILENO, &status) : stat(file.c_str(), &status);
    if (result != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return FileIdentity(status.st_dev, status.st_ino);
}

std::string DocumentPath(const std::string& directory, const std::string& ticket)
{
    const std::string stem =
        ticket == "-" ? "stdin" : std::filesystem::path(ticket).stem().string();
    return (std::filesystem::path(directory) / (stem + ".xml")).lexically_normal().string();
}

// Why the options do not go with so many tickets; empty when they do.
std::string WrongOptions(const Arguments& arguments, const std::vector<std::string>& tickets)
{
    const bool toDirectory = arguments.has(OutputDirectoryOption);
    if (tickets.empty()) {
        return "no ticket is named";
    }
    if (std::count(tickets.begin(), tickets.end(), "-") > 1) {
        return "standard input can be read once only";
    }
    if (toDirectory && arguments.has(OutputOption)) {
        return std::string(OutputOption) + " and " + OutputDirectoryOption + " exclude one another";
    }
    if (tickets.size() > 1 && !toDirectory) {
        return "several tickets need " + std::string(OutputDirectoryOption);
    }
    return "";
}

// Why two of the files may not be one; empty when none are.
std::string WrongFiles(const std::vector<ExportStep>& steps)
{
    std::set<FileIdentity> inputs;
    for (const ExportStep& step : steps) {
        if (const auto identity = IdentityOf(step.input)) {
            inputs.insert(*identity);
        }
    }
    std::set<std::string> outputs;
    std::set<FileIdentity> presentOutputs; // one file may have two names
    for (const ExportStep& step : steps) {
        if (step.output == "-") {
            continue;
        }
        const auto identity = IdentityOf(step.output);
        if (identity && inputs.contains(*identity)) {
            return step.output + " is a ticket to export and cannot be the document";
        }
        std::error_code ignored; // a name that cannot be resolved fails when it is written
        const auto resolved = std::filesystem::weakly_canonical(step.output, ignored);
        const bool fresh =
            outputs.insert(resolved.empty() ? step.output : resolved.string()).second &&
            (!identity || presentOutputs.insert(*identity).second);
        if (!fresh) {
            return "two tickets would be written to " + step.output;
        }
    }
    return "";
}

} // namespace

std::optional<std::vector<ExportStep>> PlanExport(const Arguments& arguments, std::string& reason)
{
    const auto& tickets = arguments.values(TicketArguments);
    reason = WrongOptions(arguments, tickets);
    if (!reason.empty()) {
        return std::nullopt;
    }
    std::vector<ExportStep> steps;
    for (const std::string& ticket : tickets) {
        std::string output = "-";
        if (arguments.has(OutputDirectoryOption)) {
            output = DocumentPath(arguments.values(OutputDirectoryOption).front(), ticket);
        } else if (arguments.has(OutputOption)) {
            output = arguments.values(OutputOption).front();
        }
        steps.push_back({ticket, output});
    }
    reason = WrongFiles(steps);
    return reason.empty() ? std::optional(std::move(steps)) : std::nullopt;
}

} // namespace tarvo
