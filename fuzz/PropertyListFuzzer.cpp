// What the reader takes, the writer must write, and reading that must give an equal value.
#include "platform/cf/PropertyListReader.h"
#include "platform/cf/PropertyListWriter.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

void Expect(bool holds, const char* what, const tarvo::ParseError& error)
{
    if (!holds) {
        std::fprintf(stderr, "%s %s\n", what, error.reason.c_str());
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    tarvo::ParseError error;
    const auto value = tarvo::ReadPropertyList({reinterpret_cast<const char*>(bytes), size}, error);
    if (!value) {
        Expect(!error.reason.empty(), "refused without a reason", error);
        return 0;
    }
    const auto xml = tarvo::WritePropertyList(*value, error);
    Expect(xml.has_value(), "read, but not written:", error);
    const auto again = tarvo::ReadPropertyList(*xml, error);
    Expect(again.has_value(), "written, but not read:", error);
    const bool holdsNotANumber = !(*value == *value);
    Expect(holdsNotANumber || *again == *value, "another value", error);
    Expect(tarvo::WritePropertyList(*again, error) == xml, "other bytes", error);
    return 0;
}
