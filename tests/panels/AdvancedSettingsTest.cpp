#include "panels/advanced/AdvancedSettings.h"

#include "support/Entries.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarvo {
namespace {

constexpr const char* LayoutOrder = "com.tarvo.print.AdvancedBookletLayoutOrderStr";
constexpr const char* Rotation = "com.tarvo.print.AdvancedRotateImage180";
constexpr const char* Emit = "com.tarvo.print.EmitTPIF";
constexpr const char* Emulation = "com.tarvo.print.QuillonEmulation";

TEST(AdvancedSettings, AreReadUnderTheTicketsKeys)
{
    AdvancedSettings settings{9, 9, 9, 9};
    EXPECT_EQ(ReadAdvancedSettings(PMTicket(), settings), StatusItemNotFound);
    EXPECT_EQ(settings, (AdvancedSettings{2, 1, 1, 1}));
    PMTicket ticket(Entries(LayoutOrder, 1, Rotation, 2, Emit, 0, Emulation, 4), "x");
    EXPECT_EQ(ReadAdvancedSettings(ticket, settings), StatusOk);
    EXPECT_EQ(settings, (AdvancedSettings{1, 3, 0, 4}));
    ticket.setItem("x", Rotation, "2");
    ticket.setItem("x", Emit, true);
    EXPECT_EQ(ReadAdvancedSettings(ticket, settings), StatusItemNotFound);
    EXPECT_EQ(settings, (AdvancedSettings{1, 1, 1, 4})) << "of another type: as if absent";
}

TEST(AdvancedSettings, AreWrittenByThePanelsAlone)
{
    PMTicket ticket;
    WriteAdvancedSettings({1, 2, 0, 4}, ticket);
    // In this order, unlocked; the emulation is not the panel's to write.
    EXPECT_EQ(ticket.keys(), (std::vector<std::string>{LayoutOrder, Rotation, Emit}));
    EXPECT_EQ(ticket.item(Rotation)->value, CFPropertyList(1)) << "one less than the menu's item";
    for (const std::string& key : ticket.keys()) {
        EXPECT_EQ(ticket.item(key)->client, "com.tarvo.printingmanager");
        EXPECT_FALSE(ticket.item(key)->locked);
    }
}

// A newer driver's numbers have no control here, yet come back as they were.
TEST(AdvancedSettings, KeepNumbersThatNoMenuHas)
{
    for (const std::int32_t number : {std::numeric_limits<std::int32_t>::min(), -1, 7,
                                      std::numeric_limits<std::int32_t>::max()}) {
        const PMTicket ticket(Entries(Rotation, number, LayoutOrder, number, Emit, number), "x");
        AdvancedSettings settings;
        ReadAdvancedSettings(ticket, settings);
        PMTicket written;
        WriteAdvancedSettings(settings, written);
        for (const char* key : {Rotation, LayoutOrder, Emit}) {
            EXPECT_EQ(written.item(key)->value, CFPropertyList(number)) << key;
        }
    }
}

} // namespace
} // namespace tarvo
