#include "TPIFTestSupport.h"
#include "tpif/TPIFWriter.h"

#include <thread>

namespace tarvo {
namespace {

CFDictionary InsertsOf(int quantity)
{
    CFArray inserts;
    for (int page = 0; page < 500; ++page) {
        inserts.push_back(Dictionary({
            {"StartPage", page    },
            {"Quantity",  quantity}
        }));
    }
    return Dictionary({
        {"com.tarvo.print.TPIFOptions",             Dictionary({{"TPIFOptionAll", true}})},
        {"com.tarvo.print.SpecialPages.InsertList", std::move(inserts)                   },
        {"com.tarvo.print.FinishingOptions",        quantity                             }
    });
}

std::string Export(const CFDictionary& settings)
{
    std::string text;
    TPIFChannel channel([&text](std::string_view piece) { text += piece; });
    WriteTPIF(channel, settings, nullptr);
    channel.flush();
    return text;
}

TEST(Exports, InSeveralThreadsDoNotDisturbEachOther)
{
    testing::internal::CaptureStderr();
    const CFDictionary shared = InsertsOf(1); // read by two threads at once
    const CFDictionary other = InsertsOf(4);
    const std::string expected[] = {Export(shared), Export(shared), Export(other)};
    std::string written[3];
    {
        const CFDictionary* settings[] = {&shared, &shared, &other};
        std::vector<std::jthread> threads;
        for (std::size_t index = 0; index < std::size(written); ++index) {
            threads.emplace_back([&, index] {
                for (int round = 0; round < 20; ++round) {
                    written[index] = Export(*settings[index]);
                }
            });
        }
    }
    testing::internal::GetCapturedStderr();
    for (std::size_t index = 0; index < std::size(written); ++index) {
        EXPECT_EQ(written[index], expected[index]);
    }
}

} // namespace
} // namespace tarvo
