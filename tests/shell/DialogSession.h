#pragma once

#include "../platform/PPDTexts.h"
#include "platform/printing/PMPrintSession.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace tarvo {

/// A print session as the dialog's side makes it: a job ticket, and the printer's description in a
/// file of its own.
class DialogSession {
public:
    explicit DialogSession(const std::string& manufacturer = "Tarvo")
    {
        EXPECT_NE(mkdtemp(folder_.data()), nullptr);
        const std::string path = folder_ + "/printer.ppd";
        std::ofstream(path) << "*PPD-Adobe: \"4.3\"\n*Manufacturer: \"" << manufacturer
                            << "\"\n*NickName: \"Tarvo Test\"\n"
                            << PickOne("Option1", "DFA", {"DFA"});
        session.addTicket(JobTicketName);
        session.addTicket(PrinterInfoTicketName).setItem("host", PPDPathKey, path);
    }
    DialogSession(const DialogSession&) = delete;
    DialogSession& operator=(const DialogSession&) = delete;
    ~DialogSession() { std::filesystem::remove_all(folder_); }

    PMTicket& ticket() const { return *session.ticket(JobTicketName); }

    PMPrintSession session;

private:
    std::string folder_ = testing::TempDir() + "tarvo-session-XXXXXX";
};

} // namespace tarvo
