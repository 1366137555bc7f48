#include "cli/CheckCommand.h"

#include "cli/CheckReport.h"
#include "cli/DocumentCheck.h"
#include "cli/Input.h"
#include "cli/Messages.h"
#include "cli/OptionTable.h"
#include "cli/ProgramBundle.h"
#include "cli/TicketCheck.h"

#include <algorithm>

namespace tarvo {
namespace {

// Reads no further than the root element.
class RootElement : public XmlEvents {
public:
    std::string startElement(const XmlElement& element) override
    {
        name = element.name();
        line = element.line();
        return "read";
    }
    std::string endElement() override { return ""; }
    void characters(std::string_view) override {}

    std::string name; // "" before any
    std::size_t line = 0;
};

void CheckTicket(CheckedFile& file, const std::string& xml)
{
    file.kind = "ticket";
    ParseError error;
    PropertyListPlace place;
    const auto ticket = ReadPropertyListDictionary(xml, error, &place);
    if (!ticket) {
        file.error = std::move(error);
        return;
    }
    const TicketPlace whole(*ticket, &place);
    CheckTicketEntries(whole, file.findings);
    CheckTicketContradictions(whole, file.findings);
    file.findings.sort();
}

// Makes what documents need when the first one comes.
class FileCheck {
public:
    CheckedFile check(const std::string& input)
    {
        CheckedFile file;
        file.file = InputName(input);
        std::string reason;
        const auto xml = ReadInput(input, TPIFImportLimits.bytes, reason);
        if (xml) {
            check(file, *xml);
        } else {
            file.error = ParseError{0, std::move(reason)};
        }
        return file;
    }

private:
    void check(CheckedFile& file, const std::string& xml)
    {
        RootElement root;
        ParseError error;
        static_cast<void>(ReadXml(XmlSourceOf(xml), TPIFImportLimits, root, error));
        if (root.name.empty()) {
            file.error = std::move(error);
        } else if (root.name == "plist") {
            CheckTicket(file, xml);
        } else if (root.name == "tpif") {
            checkDocument(file, xml);
        } else {
            file.error = ParseError{root.line, "neither a ticket nor a document: the root element "
                                               "is \"" +
                                                   root.name + '"'};
        }
    }

    void checkDocument(CheckedFile& file, const std::string& xml)
    {
        file.kind = "document";
        const TPIFImportFeatures* known = features();
        if (known == nullptr) {
            file.error = ParseError{0, "no device profile tells what a document may say"};
            return;
        }
        file.error = CheckDocument(*known, xml, file.findings);
        file.findings.sort();
    }

    // Null, with a message printed, when the program lacks the device profile.
    const TPIFImportFeatures* features()
    {
        if (!features_) {
            const auto bundle = OpenProgramBundle({});
            database_ = bundle ? ReadFeatureDatabase(*bundle) : std::nullopt;
            if (!database_) {
                return nullptr;
            }
            features_.emplace(*database_);
        }
        return &*features_;
    }

    // Made for the first document.
    std::optional<FeatureDatabase> database_;
    std::optional<TPIFImportFeatures> features_;
};

ExitStatus StatusOf(const std::vector<CheckedFile>& files)
{
    const auto unreadable = std::count_if(files.begin(), files.end(),
                                          [](const auto& file) { return file.error.has_value(); });
    const bool isFound = std::any_of(
        files.begin(), files.end(), [](const auto& file) { return !file.findings.list().empty(); });
    return unreadable == std::ssize(files) ? ExitStatus::Failed
           : unreadable != 0 || isFound    ? ExitStatus::LeftOut
                                           : ExitStatus::Done;
}

} // namespace

ExitStatus RunCheck(const Arguments& arguments)
{
    const auto& inputs = arguments.values(CheckedArguments);
    if (inputs.empty()) {
        return PrintWrongUse("no file is named");
    }
    if (std::count(inputs.begin(), inputs.end(), "-") > 1) {
        return PrintWrongUse("standard input can be read once only");
    }
    FileCheck check;
    std::vector<CheckedFile> files;
    ProgressLine progress(inputs.size());
    for (const std::string& input : inputs) {
        progress.show(files.size() + 1);
        files.push_back(check.check(input));
    }
    progress.clear();
    for (const CheckedFile& file : files) {
        if (file.error) {
            PrintFileMessage(file.file, file.error->line, file.error->reason);
        }
    }
    const std::string text = arguments.has(JsonOption) ? CheckJson(files) : CheckText(files);
    return PrintResult(text) == ExitStatus::Done ? StatusOf(files) : ExitStatus::Failed;
}

} // namespace tarvo
