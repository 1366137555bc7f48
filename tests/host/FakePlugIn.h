#pragma once

#include "platform/printing/PMPrintSession.h"

#include <string>

namespace tarvo {

/// What the plug-in of the tests has seen, and what it shall do. It is a module like the real one.
struct FakePlugInState {
    // The operations in their order, " " before each.
    std::string calls;
    // Living objects.
    int instances = 0;
    int interfaces = 0;
    int contexts = 0;
    // The last session as Initialize, Sync and the question about a button found it.
    PMPrinter printer;
    std::string maker; // of the description that the printer information ticket names
    PageFormat pageFormat;
    CFDictionary choices;
    // What to do.
    std::uint32_t version = 0x00010000;
    std::int32_t versionStatus = 0;
    bool refusesPrinter = false;
    bool refusesToPrint = false;
    CFDictionary ticket; // written by Sync
    CFDictionary ppdChoices;
    CFDictionary panelChoices; // made by Open
};

/// Of the module that exports it under this name.
using FakePlugInStateFunction = FakePlugInState* (*)();
inline constexpr const char* FakePlugInStateName = "FakePlugInGetState";

} // namespace tarvo
