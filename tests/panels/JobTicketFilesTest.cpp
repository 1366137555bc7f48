#include "panels/advanced/JobTicketFiles.h"

#include "PanelFixture.h"
#include "panels/toolkit/DesktopServices.h"
#include "panels/toolkit/Help.h"
#include "platform/files/FileContents.h"
#include "prefs/FailingCall.h"
#include "support/Entries.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <fstream>

namespace tarvo {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::size_t Largest = 1 << 20;

class JobTicketFiles : public PanelFixture {
protected:
    JobTicketFiles() { EXPECT_NE(mkdtemp(folder_.data()), nullptr); }
    ~JobTicketFiles() override { fs::remove_all(folder_); }

    std::string path(const std::string& name) const { return folder_ + "/" + name; }
    std::string contents(const std::string& name) const
    {
        std::string reason;
        return ReadFileContents(path(name), Largest, reason).value_or("(" + reason + ")");
    }
    std::string write(const std::string& name, const std::string& text) const
    {
        std::ofstream(path(name)) << text;
        return path(name);
    }
    // Fills the ticket as the shell's sync does.
    void exportAll() { ticket_->setItem("T", ExportOptionsKey, Entries("TPIFOptionAll", true)); }

    std::string folder_ = testing::TempDir() + "tarvo-files-XXXXXX";
};

TEST_F(JobTicketFiles, ExportTakesOurEntriesAlone)
{
    exportAll();
    ticket_->setItem("x", JobNotesJobNameKey, "Spring");
    ticket_->setItem("x", JobNotesSenderNameKey, "Ada");
    ticket_->setItem("x", SystemJobNameKey, "Untitled");
    EXPECT_EQ(TPIFExportToFileAtPath(path("job.xml")), StatusOk);
    EXPECT_EQ(syncs_, "to ");
    const std::string document = contents("job.xml");
    EXPECT_THAT(document, StartsWith("<?xml"));
    EXPECT_THAT(document, HasSubstr("Spring"));
    EXPECT_EQ(document.find("Untitled"), std::string::npos);
}

TEST_F(JobTicketFiles, ExportIsSilentAndLeavesWhatItCannotReplace)
{
    exportAll();
    const std::string former = write("job.xml", "former");
    syncStatus_ = -30879;
    EXPECT_EQ(TPIFExportToFileAtPath(former), -30879);
    EXPECT_EQ(contents("job.xml"), "former");
    syncStatus_ = StatusOk;
    EXPECT_EQ(TPIFExportToFileAtPath(path("none/job.xml")), StatusOk);
    EXPECT_FALSE(fs::exists(path("none")));
    PMPrintSession withoutTicket;
    ThePanelEnvironment().session = &withoutTicket;
    EXPECT_EQ(TPIFExportToFileAtPath(former), StatusOk);
    EXPECT_EQ(contents("job.xml"), "") << "a job without a ticket has no settings";
}

TEST_F(JobTicketFiles, ExportToAFullDiskIsSilentAndLeavesTheFileThatWasThere)
{
    exportAll();
    const std::string former = write("job.xml", "former");
    {
        const FailingCall full("write", ENOSPC, 1);
        EXPECT_EQ(TPIFExportToFileAtPath(former), StatusOk);
        EXPECT_EQ(TPIFExportToFileAtPath(path("new.xml")), StatusOk);
    }
    EXPECT_EQ(contents("job.xml"), "former");
    const fs::directory_iterator files(folder_);
    EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "nothing half is left";
}

TEST_F(JobTicketFiles, ExportTakesPathsOfBoundedLength)
{
    const std::string folder = "/" + std::string(1023, 'a');
    EXPECT_TRUE(IsExportPath("/" + std::string(1019, 'a') + "/b.x"));
    EXPECT_FALSE(IsExportPath("/" + std::string(1020, 'a') + "/b.x"));
    EXPECT_FALSE(IsExportPath(folder + "aa/b"));
    EXPECT_FALSE(IsExportPath(""));
}

std::string Document(const std::string& attributes)
{
    return "<tpif><job-template-attributes>" + attributes + "</job-template-attributes></tpif>";
}

constexpr const char* TwoSided = R"(<sides syntax="keyword">two-sided-long-edge</sides>)";
constexpr const char* Rotated = R"(<page-rotation syntax="keyword">rotate-180</page-rotation>)";

TEST_F(JobTicketFiles, ImportReplacesWhatTheDocumentsNameAndShowsIt)
{
    ticket_->setItem("x", DuplexKey, 1);
    ticket_->setItem("x", EmitTPIFKey, 0);
    const auto outcome = ImportIntoJobTicket({write("a.xml", Document(TwoSided)),
                                              write("bad.xml", "<tpif>\n<a></b></tpif>"),
                                              write("b.xml", Document(Rotated)), path("none.xml")});
    EXPECT_EQ(syncs_, "to from ") << "else the panels' old values would win at the next sync";
    EXPECT_EQ(ticket_->item(DuplexKey)->value, CFPropertyList(2));
    EXPECT_EQ(ticket_->item(RotateImageKey)->value, CFPropertyList(2));
    EXPECT_EQ(ticket_->item(EmitTPIFKey)->value, CFPropertyList(0));
    EXPECT_EQ(outcome.settings, 2U);
    const std::string text = ImportSummaryText(*bundle_, outcome);
    EXPECT_THAT(text, StartsWith("“a.xml” has been imported.\n“bad.xml” cannot be read"));
    EXPECT_THAT(text, HasSubstr("\n    2: ")) << "where the fault is";
    EXPECT_THAT(text, HasSubstr("“none.xml” cannot be read"));
    EXPECT_THAT(text, testing::EndsWith("\nSettings taken over: 2"));
}

// Its user cancels what asks for a file; notes the links that are opened.
class Desktop {
public:
    Desktop() : former_(TheDesktopServices())
    {
        TheDesktopServices().chooseFileToSave = [](auto&&...) { return std::nullopt; };
        TheDesktopServices().chooseFilesToOpen = [](auto&&...) {
            return std::vector<std::string>();
        };
        TheDesktopServices().openURI = [this](Gtk::Window*, const std::string& uri) {
            opened += uri;
            return status;
        };
    }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    ~Desktop() { TheDesktopServices() = former_; }

    std::string opened;
    int status = 0;

private:
    DesktopServices former_;
};

TEST_F(JobTicketFiles, NothingHappensWhenTheUserCancels)
{
    const Desktop desktop;
    EXPECT_EQ(RunModalTPIFExportDialog(), StatusOk);
    EXPECT_EQ(RunModalTPIFImportDialog(), StatusOk);
    EXPECT_EQ(syncs_, "");
}

TEST_F(JobTicketFiles, HelpIsOpenedAtItsPlace)
{
    Desktop desktop;
    EXPECT_EQ(DisplayHelp(bundle_.get(), nullptr, nullptr, nullptr), StatusOk);
    EXPECT_THAT(desktop.opened, StartsWith("file:///"));
    EXPECT_THAT(desktop.opened, testing::EndsWith("/en.lproj/help/index.html"));
    desktop.opened = "";
    EXPECT_EQ(DisplayHelp(bundle_.get(), nullptr, "index.html", "advanced"), StatusOk);
    EXPECT_THAT(desktop.opened, testing::EndsWith("/index.html#advanced"));
    EXPECT_EQ(DisplayHelp(bundle_.get(), nullptr, "none.html", nullptr), -43);
    desktop.status = 4;
    EXPECT_EQ(DisplayHelp(bundle_.get(), nullptr, nullptr, nullptr), 4);
    EXPECT_EQ(DisplayHelp(nullptr, nullptr, nullptr, nullptr), -50);

    const BundleCopy copy;
    fs::remove_all(copy.resource("en.lproj/help"));
    EXPECT_EQ(RegisterMyHelpBook(nullptr), StatusOk);
    EXPECT_EQ(RegisterMyHelpBook(bundle_.get()), StatusOk);
    const CFBundle withoutHelp = copy.bundle();
    EXPECT_EQ(RegisterMyHelpBook(&withoutHelp), -43);
    fs::remove(copy.folder() + "/Contents/Info.plist");
    EXPECT_EQ(DisplayHelp(&withoutHelp, nullptr, nullptr, nullptr), -50);
}

} // namespace
} // namespace tarvo
