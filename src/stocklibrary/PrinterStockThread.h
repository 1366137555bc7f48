#pragma once

#include "platform/events/WindowEvents.h"
#include "platform/printing/PMStatus.h"
#include "platform/printing/PrinterExchange.h"
#include "records/Stock.h"
#include "settings/SettingMap.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

class StockLibraryList;

// The worker that asks a network printer for its stocks, and the main thread's side of it. They
// talk through two message ports, and the worker's results come to a window as events, inside modal
// dialogs too. Everything here is called in the main thread, and none of it waits.

/// How far the retrieval is.
enum class PrinterStockStatus : std::int32_t {
    Failed = 1,     // the printer cannot be reached
    InProgress = 2, // the worker was asked
    Complete = 3,   // PrinterStocks() is the newest list
    NoThread = 4,
};

// What the main thread may tell the worker; further data are a window's number or nothing.
inline constexpr std::int32_t RetrieveStocksMessage = 200;
inline constexpr std::int32_t EndThreadMessage = 201;
inline constexpr std::int32_t AnswerLaterMessage = 205; // comes back as complete after 2 s
inline constexpr std::int32_t PollStatusMessage = 206;  // comes back as failed or complete
inline constexpr std::int32_t WakeUpLaterMessage = 208; // comes back as a status event after 1 s

/// Events of this class tell a window of the worker.
inline constexpr std::uint32_t PrinterStockEventClass = FourCharCode("TPDE");
inline constexpr std::uint32_t RetrievalFinishedEvent = FourCharCode("TbdC"); // see the status
inline constexpr std::uint32_t StatusPolledEvent = FourCharCode("TBpC");      // or woken up

/// Starts the worker, which retrieves the stocks at once. There is one for the process: another
/// window's, which hears no more of it, is asked to end.
/// The stocks of the printer before stay when the host is the same, else they go and the status is
/// NoThread.
/// @param bundleIdentifier  stands in the name of the main thread's port
/// @param host              the authority of the device URI, see AuthorityOfDeviceURI
/// @param window            takes the events of messages that name no window
/// @return StatusOk or StatusNoTask
OSStatus MySpawnThread(std::string_view bundleIdentifier, std::string host, WindowID window,
                       const ExchangeLimits& limits = {});

/// Asks the worker to end that was started for the window, if it is still there; it is gone within
/// a second, whatever the printer does. What it was asked for last counts as never asked.
/// @return StatusOk
OSStatus MyRemoveThread(WindowID window);

/// Sends the worker one of the messages above; nothing happens before it has announced itself.
/// @return StatusOk
OSStatus SendMessageToThread(std::int32_t message, std::string_view data);

/// Whether the worker is there that was started for the window.
bool HasPrinterStockThread(WindowID window);

/// Asks the printer again; the status is InProgress until the window's RetrievalFinishedEvent. The
/// first retrieval of a worker that has not announced itself yet is for this window then. Nothing
/// without a worker, or while it is asking.
void RetrievePrinterStocksFor(WindowID window);

/// The data that name a window in a message.
std::string WindowData(WindowID window);

PrinterStockStatus CurrentPrinterStockStatus();

/// The printer that status, stocks and cause are of, as MySpawnThread was told.
const std::string& PrinterStockHost();

/// The stocks that a printer reported last; null as long as none has answered. A retrieval without
/// an answer leaves them as they are.
std::shared_ptr<const std::vector<Stock>> PrinterStocks();

/// The same as MakePrinterStockLibraryList gives them, made by the worker.
std::shared_ptr<StockLibraryList> PrinterStockList();

/// Why the last retrieval brought no list, for people; "" when it did.
const std::string& PrinterStocksCause();

} // namespace tarvo
