#include "TPIFTestSupport.h"
#include "support/TicketText.h"
#include "tpif/TPIFWriter.h"

#include <thread>

namespace tarvo {
namespace {

CFDictionary InsertsOf(int quantity)
{
    const std::string number = std::to_string(quantity);
    std::string inserts;
    for (int page = 0; page < 500; ++page) {
        inserts += "{StartPage: " + std::to_string(page) + ", Quantity: " + number + "}, ";
    }
    return TicketFromText(".TPIFOptions: {TPIFOptionAll: true}, .FinishingOptions: " + number +
                          ", .SpecialPages.InsertList: [" + inserts + "]");
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
