#include "DialogDriver.h"
#include "FakePlugIn.h"
#include "platform/files/FileContents.h"
#include "records/JobOptions.h"
#include "support/Entries.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

namespace tarvo {
namespace {

namespace fs = std::filesystem;

constexpr const char* Tab = "Fake Features";
constexpr const char* OurPrinter = "Tarvo_QL900";
constexpr const char* OurOtherPrinter = "Tarvo_Desk210";
constexpr const char* AnothersPrinter = "Office";
constexpr const char* Canary = "48151623-canary";

// Of the plug-in that the dialogs load.
FakePlugInState& State()
{
    static FakePlugInState* const state = [] {
        void* module = dlopen(TARVO_FAKE_PLUG_IN, RTLD_NOW | RTLD_LOCAL);
        const auto get =
            reinterpret_cast<FakePlugInStateFunction>(dlsym(module, FakePlugInStateName));
        return get();
    }();
    return *state;
}

fs::path ServerFolder()
{
    return std::getenv("CUPSD_FOLDER"); // NOLINT(concurrency-mt-unsafe)
}

std::size_t CountJobs()
{
    std::size_t count = 0;
    for (const auto& entry : fs::directory_iterator(ServerFolder() / "jobs")) {
        count += entry.path().extension() == ".options" ? 1U : 0U;
    }
    return count;
}

std::string Contents(const fs::path& path)
{
    std::string reason;
    return ReadFileContents(path.string(), std::size_t{16} * 1024 * 1024, reason).value_or("");
}

// Chooses our printer; the plug-in has its tab then, which is not shown yet.
bool ChooseOurs(const DialogDriver& driver)
{
    return driver.choose(OurPrinter) && TurnUntil([&] { return driver.tab(Tab) != nullptr; });
}

// Prints from a dialog that is answered. The jobs of the server are numbered from 1, one after the
// other.
JobOptions OptionsOfNextJob(const DialogDriver& driver)
{
    const std::size_t number = CountJobs() + 1;
    EXPECT_TRUE(driver.print());
    EXPECT_TRUE(TurnUntil([&] { return CountJobs() == number; }));
    return JobOptionsFromText(
        Contents(ServerFolder() / "jobs" / (std::to_string(number) + ".options")));
}

// Which files of a folder hold a text.
std::string FilesWith(const fs::path& folder, const std::string& text)
{
    std::string names;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file() && Contents(entry.path()).find(text) != std::string::npos) {
            names += ' ' + fs::relative(entry.path(), folder).string();
        }
    }
    return names;
}

std::size_t OpenFiles()
{
    const fs::directory_iterator files("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

class PrintDialogTest : public testing::Test {
protected:
    void SetUp() override { State() = FakePlugInState(); }
    // Whatever a test does, the plug-in gets everything back.
    void TearDown() override
    {
        const FakePlugInState& state = State();
        EXPECT_EQ(state.instances, 0);
        EXPECT_EQ(state.interfaces, 0);
        EXPECT_EQ(state.contexts, 0);
    }
};

TEST_F(PrintDialogTest, TheTabComesAndGoesWithThePrinter)
{
    DialogDriver driver;
    ASSERT_TRUE(ChooseOurs(driver));
    EXPECT_EQ(State().calls, " Prologue Initialize");
    ASSERT_TRUE(driver.choose(AnothersPrinter));
    EXPECT_EQ(driver.tab(Tab), nullptr);
    EXPECT_EQ(State().calls, " Prologue Initialize Terminate");

    ASSERT_TRUE(driver.choose(OurOtherPrinter));
    ASSERT_TRUE(driver.showTab(Tab));
    State().calls.clear();
    ASSERT_TRUE(driver.choose("Print to File"));
    EXPECT_EQ(driver.tab(Tab), nullptr);
    EXPECT_EQ(State().calls, " Close Terminate");

    ASSERT_TRUE(driver.choose(OurPrinter));
    ASSERT_TRUE(driver.showTab(Tab));
    driver.close();
    EXPECT_EQ(State().calls, " Close Terminate Prologue Initialize Open Close Terminate");
}

TEST_F(PrintDialogTest, ThePlugInLearnsOfPrinterAndPage)
{
    DialogDriver driver;
    ASSERT_TRUE(ChooseOurs(driver));
    EXPECT_EQ(State().printer.deviceUri, "file:/dev/null");
    EXPECT_EQ(State().printer.makeAndModel, "Tarvo QL900, 1.0");
    EXPECT_EQ(State().maker, "Tarvo");
    EXPECT_EQ(*State().choices.get<std::string>("Duplex"), "None");

    GtkPageSetup* setup = gtk_page_setup_new();
    GtkPaperSize* size = gtk_paper_size_new(GTK_PAPER_NAME_A4);
    gtk_page_setup_set_paper_size(setup, size);
    gtk_page_setup_set_orientation(setup, GTK_PAGE_ORIENTATION_REVERSE_LANDSCAPE);
    gtk_print_unix_dialog_set_page_setup(driver.dialog(), setup);
    gtk_paper_size_free(size);
    g_object_unref(setup);
    ASSERT_TRUE(driver.press(GTK_RESPONSE_OK));
    EXPECT_EQ(State().pageFormat.orientation, PageOrientation::ReverseLandscape);
    EXPECT_EQ(State().pageFormat.width, 842);
    EXPECT_EQ(State().pageFormat.length, 595);
    EXPECT_EQ(State().maker, "Tarvo"); // its description stays as long as the session
}

TEST_F(PrintDialogTest, APrinterThatThePlugInRefusesHasNoTab)
{
    State().refusesPrinter = true;
    DialogDriver driver;
    ASSERT_TRUE(driver.choose(OurPrinter));
    ASSERT_TRUE(TurnUntil([&] { return State().calls == " Prologue Initialize Terminate"; }));
    EXPECT_EQ(driver.tab(Tab), nullptr);
    EXPECT_TRUE(driver.press(GTK_RESPONSE_OK));
}

TEST_F(PrintDialogTest, ThePlugInCanKeepTheDialogOpen)
{
    DialogDriver driver;
    ASSERT_TRUE(ChooseOurs(driver));
    ASSERT_TRUE(driver.chooseOption("DuplexTumble"));
    State().calls.clear();
    State().refusesToPrint = true;
    EXPECT_FALSE(driver.press(GTK_RESPONSE_OK));
    EXPECT_EQ(State().calls, " print?");
    EXPECT_EQ(*State().choices.get<std::string>("Duplex"), "DuplexTumble") << "what is chosen now";
    State().refusesToPrint = false;
    EXPECT_TRUE(driver.press(GTK_RESPONSE_OK));
    EXPECT_EQ(State().calls, " print? print? Sync(false)");
    EXPECT_TRUE(driver.press(GTK_RESPONSE_CANCEL));
    EXPECT_TRUE(driver.press(GTK_RESPONSE_APPLY)); // a preview is none of its business
    EXPECT_EQ(State().calls, " print? print? Sync(false) cancel?");
}

TEST_F(PrintDialogTest, ThePlugInLearnsOfTheDialogsChoicesWhenItsTabIsShownAgain)
{
    DialogDriver driver;
    ASSERT_TRUE(driver.choose(OurPrinter));
    ASSERT_TRUE(driver.showTab(Tab));
    gtk_notebook_set_current_page(GTK_NOTEBOOK(gtk_widget_get_parent(driver.tab(Tab))), 0);
    ASSERT_TRUE(driver.chooseOption("DuplexTumble"));
    State().calls.clear();
    ASSERT_TRUE(driver.showTab(Tab));
    EXPECT_EQ(State().calls, " Sync(false) Sync(true)") << "its own choices are not lost";
    EXPECT_EQ(*State().choices.get<std::string>("Duplex"), "DuplexTumble");
}

// The ticket of a job with every kind of value, more entries than a small map, and a passcode.
CFDictionary OddTicket(bool hasPasscode)
{
    CFDictionary jobType = Entries("JobType", 6);
    if (hasPasscode) {
        jobType.set("SecurePrintPassword", Canary);
    }
    CFDictionary ticket =
        Entries("com.tarvo.print.JobType", jobType, "com.tarvo.print.JobNotesMessage",
                "K\xC3\xA4se, \"50 %\" {\\} <&>'\t\n", "com.tarvo.print.When", CFDate{1'000'000},
                "com.tarvo.print.List", CFArray{true, 2.5, UnsetValue, CFData{"\xFF"}});
    for (int number = 0; number < 40; ++number) {
        ticket.set("com.tarvo.print.Key" + std::to_string(number), std::string(500, '~'));
    }
    return ticket;
}

TEST_F(PrintDialogTest, TheTicketReachesTheDriverWithoutItsPasscode)
{
    DialogDriver driver;
    ASSERT_TRUE(ChooseOurs(driver));
    State().ticket = OddTicket(true);
    State().ppdChoices.set("Duplex", "DuplexTumble");
    ASSERT_TRUE(driver.press(GTK_RESPONSE_OK));
    const JobOptions options = OptionsOfNextJob(driver);
    std::string reason;
    EXPECT_EQ(TicketOfJobOptions(options, reason), OddTicket(false)) << reason;
    EXPECT_EQ(*options.find("Duplex"), "DuplexTumble"); // before the dialog's own choice

    const fs::path spool = ServerFolder() / "spool"; // the attributes of jobs are kept there too
    EXPECT_TRUE(TurnUntil([&] { return !FilesWith(spool, "com.tarvo.print.Ticket").empty(); }));
    EXPECT_EQ(FilesWith(ServerFolder(), Canary), "");
    EXPECT_EQ(FilesWith(g_get_home_dir(), Canary), "");

    EXPECT_EQ(OptionsOfNextJob(driver).find(TicketOptionName), nullptr) << "it is answered once";
}

TEST_F(PrintDialogTest, TheLastChoiceIsTheJobs)
{
    const CFDictionary none;
    const CFDictionary tumble = Entries("Duplex", "DuplexTumble");
    // name, choices in the panel, in the dialog, at Sync, of the job; the dialog begins with None
    const std::tuple<const char*, CFDictionary, const char*, CFDictionary, const char*> cases[] = {
        {"of the plug-in, as by an import", tumble, "",               none,   "DuplexTumble"  },
        {"of the user, later",              tumble, "DuplexNoTumble", none,   "DuplexNoTumble"},
        {"of the plug-in, at last",         none,   "DuplexNoTumble", tumble, "DuplexTumble"  },
    };
    for (const auto& [name, inPanel, inDialog, atSync, ofJob] : cases) {
        SCOPED_TRACE(name);
        State().panelChoices = inPanel;
        State().ppdChoices = atSync;
        DialogDriver driver;
        ASSERT_TRUE(driver.choose(OurPrinter));
        ASSERT_TRUE(driver.showTab(Tab));
        ASSERT_TRUE(*inDialog == '\0' || driver.chooseOption(inDialog));
        ASSERT_TRUE(driver.press(GTK_RESPONSE_OK));
        EXPECT_EQ(*OptionsOfNextJob(driver).find("Duplex"), ofJob);
    }
}

TEST_F(PrintDialogTest, AnothersPrinterGetsNoTicket)
{
    DialogDriver driver;
    ASSERT_TRUE(ChooseOurs(driver));
    ASSERT_TRUE(driver.press(GTK_RESPONSE_OK));
    ASSERT_TRUE(driver.choose(AnothersPrinter));
    ASSERT_TRUE(driver.press(GTK_RESPONSE_OK));
    EXPECT_EQ(OptionsOfNextJob(driver).find(TicketOptionName), nullptr);
}

TEST_F(PrintDialogTest, ATicketThatIsNotUsedIsNotForTheNextDialogsJob)
{
    {
        DialogDriver driver;
        ASSERT_TRUE(ChooseOurs(driver));
        ASSERT_TRUE(driver.press(GTK_RESPONSE_OK));
    }
    State().refusesPrinter = true;
    DialogDriver driver;
    ASSERT_TRUE(driver.choose(OurPrinter));
    ASSERT_TRUE(driver.press(GTK_RESPONSE_OK));
    EXPECT_EQ(OptionsOfNextJob(driver).find(TicketOptionName), nullptr);
}

TEST_F(PrintDialogTest, EachJobHasTheTicketOfItsOwnDialog)
{
    DialogDriver first;
    DialogDriver second;
    const std::pair<DialogDriver*, const char*> dialogs[] = {
        {&first,  "DuplexTumble"  },
        {&second, "DuplexNoTumble"}
    };
    for (const auto& [driver, keyword] : dialogs) {
        ASSERT_TRUE(driver->choose(OurPrinter));
        ASSERT_TRUE(driver->showTab(Tab));
        State().ppdChoices.set("Duplex", keyword);
        ASSERT_TRUE(driver->press(GTK_RESPONSE_OK));
    }
    for (const auto& [driver, keyword] : dialogs) {
        const JobOptions options = OptionsOfNextJob(*driver);
        EXPECT_EQ(*options.find("Duplex"), keyword);
        EXPECT_NE(options.find(TicketOptionName), nullptr);
    }
}

void ChangeQueues(const std::string& words)
{
    const std::string command = "lpadmin " + words + " 2> /dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0); // NOLINT(cert-env33-c,concurrency-mt-unsafe)
}

TEST_F(PrintDialogTest, AQueueMayVanishWhileTheDialogIsOpen)
{
    const fs::path description = ServerFolder() / (std::string(OurPrinter) + ".ppd");
    DialogDriver driver;
    ChangeQueues("-p Tarvo_Passing -E -v file:/dev/null -P " + description.string());
    EXPECT_TRUE(driver.choose("Tarvo_Passing") && driver.showTab(Tab));
    ChangeQueues("-x Tarvo_Passing");
    ASSERT_TRUE(TurnUntil([&] { return driver.tab(Tab) == nullptr; }));
    EXPECT_TRUE(State().calls.ends_with(" Open Close Terminate")) << State().calls;
    EXPECT_TRUE(ChooseOurs(driver)) << "the dialog goes on";
}

// What becomes of the alert that is shown.
struct AlertEnd {
    DialogDriver& driver;
    bool isAnswered; // else the application closes the print dialog
    bool isTold = false;
};

gboolean EndAlert(gpointer data)
{
    auto& end = *static_cast<AlertEnd*>(data);
    GtkWidget* front = gtk_grab_get_current();
    GtkWidget* alert = front == nullptr ? nullptr : gtk_widget_get_toplevel(front);
    if (GTK_IS_MESSAGE_DIALOG(alert)) {
        end.isTold = true;
        if (end.isAnswered) {
            gtk_dialog_response(GTK_DIALOG(alert), GTK_RESPONSE_OK);
        } else {
            end.driver.close();
        }
    }
    return G_SOURCE_CONTINUE;
}

TEST_F(PrintDialogTest, ATicketThatCannotTravelIsToldOfAndNotSent)
{
    State().ticket.set("com.tarvo.print.JobNotesMessage", std::string(80'000, 'x'));
    for (const bool isAnswered : {true, false}) {
        SCOPED_TRACE(isAnswered ? "answered" : "the dialog goes");
        DialogDriver driver;
        ASSERT_TRUE(ChooseOurs(driver));
        AlertEnd end{driver, isAnswered};
        const guint source = g_timeout_add(5, EndAlert, &end);
        EXPECT_FALSE(driver.press(GTK_RESPONSE_OK));
        EXPECT_TRUE(end.isTold);
        g_source_remove(source);
    }
}

TEST_F(PrintDialogTest, ManyDialogsLeaveNothingBehind)
{
    std::size_t files = 0;
    int dialogs = 0;
    for (int round = 0; round < TARVO_DIALOG_COUNT; ++round) {
        DialogDriver driver;
        ++dialogs;
        g_object_weak_ref(
            G_OBJECT(driver.dialog()),
            [](gpointer count, GObject*) { --*static_cast<int*>(count); }, &dialogs);
        ASSERT_TRUE(driver.showTab(Tab));
        files = round == 10 ? OpenFiles() : files;
    }
    ASSERT_TRUE(TurnUntil([&] { return dialogs == 0; }));
    EXPECT_LE(OpenFiles(), files);
}

// Keeps the print server from answering.
class StoppedServer {
public:
    StoppedServer() { kill(process_, SIGSTOP); }
    StoppedServer(const StoppedServer&) = delete;
    StoppedServer& operator=(const StoppedServer&) = delete;
    ~StoppedServer() { kill(process_, SIGCONT); }

private:
    pid_t process_ = std::atoi(std::getenv("CUPSD_PID")); // NOLINT(concurrency-mt-unsafe)
};

// Threads that the toolkit has not named, this one left out.
int CountTasks()
{
    const std::string own = Contents("/proc/self/comm");
    int count = -1;
    for (const auto& entry : fs::directory_iterator("/proc/self/task")) {
        count += Contents(entry.path() / "comm") == own ? 1 : 0;
    }
    return count;
}

// The answer of the print server finds a dialog that is destroyed but kept.
TEST_F(PrintDialogTest, ADialogDestroyedMeanwhileStaysEmpty)
{
    ASSERT_TRUE(TurnUntil([] { return CountTasks() == 0; }));
    GtkWidget* dialog = gtk_print_unix_dialog_new(nullptr, nullptr);
    g_object_ref(dialog);
    bool isGone = false;
    g_signal_connect(dialog, "notify::selected-printer",
                     G_CALLBACK(+[](GtkPrintUnixDialog* selecting, GParamSpec*, gpointer gone) {
                         if (gtk_print_unix_dialog_get_selected_printer(selecting) != nullptr) {
                             *static_cast<bool*>(gone) = true;
                             gtk_widget_destroy(GTK_WIDGET(selecting));
                         }
                     }),
                     &isGone);
    gtk_widget_show(dialog);
    ASSERT_TRUE(TurnUntil([&] { return isGone; }));
    ASSERT_TRUE(TurnUntil([] { return CountTasks() == 0; }));
    while (g_main_context_iteration(nullptr, FALSE) == TRUE) {
    }
    EXPECT_EQ(State().calls, "");
    g_object_unref(dialog);
}

TEST_F(PrintDialogTest, AServerThatHangsHoldsNobodyUp)
{
    constexpr int FewTurns = 10;
    DialogDriver driver;
    ASSERT_TRUE(driver.showTab(Tab));
    ASSERT_TRUE(driver.choose(AnothersPrinter)); // so that the dialog itself knows both
    ASSERT_TRUE(TurnUntil([] { return CountTasks() == 0; }));
    const StoppedServer stopped;
    ASSERT_TRUE(driver.choose(OurPrinter));
    int turns = 0; // while somebody waits for the server
    ASSERT_TRUE(TurnUntil([&] { return CountTasks() == 0 || ++turns == FewTurns; }));
    EXPECT_EQ(turns, FewTurns);
    EXPECT_EQ(driver.tab(Tab), nullptr);
    driver.close(); // nothing waits for the worker, which finds the dialog gone
}

} // namespace
} // namespace tarvo

int main(int count, char** words)
{
    testing::InitGoogleTest(&count, words);
    gtk_init(&count, &words);
    return RUN_ALL_TESTS();
}
