// An application that exits while its print dialog is open, with the plug-in at work in it.
#include "DialogDriver.h"

#include <cstdio>
#include <memory>

int main(int count, char** words)
{
    gtk_init(&count, &words);
    static tarvo::DialogDriver* const driver = std::make_unique<tarvo::DialogDriver>().release();
    const bool isShown = driver->choose("Tarvo_QL900") && driver->showTab("Tarvo Features");
    static_cast<void>(std::puts(isShown ? "the tab is shown" : "there is no tab"));
    return isShown ? 0 : 1;
}
