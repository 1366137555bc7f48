#include "cli/BashCompletion.h"
#include "cli/ManualPage.h"

#include <cstdio>
#include <fstream>

// Build step: writes the manual page and the bash completion into the two files that it is given.
int main(int count, char** words)
{
    if (count != 3) {
        std::fputs("usage: tarvo-ticket-docs MANUAL COMPLETION\n", stderr);
        return 2;
    }
    std::ofstream manual(words[1]);
    manual << tarvo::ManualPage(TARVO_VERSION) << std::flush;
    std::ofstream completion(words[2]);
    completion << tarvo::BashCompletion() << std::flush;
    return manual && completion ? 0 : 1;
}
