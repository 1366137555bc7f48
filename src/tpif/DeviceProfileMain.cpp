// Writes the device profile: tarvo-device-profile FILE. A build step, not for users.
#include "platform/cf/PropertyListWriter.h"
#include "platform/files/FileContents.h"
#include "tpif/DeviceProfile.h"

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: tarvo-device-profile FILE\n", stderr);
        return 2;
    }
    tarvo::ParseError error;
    const auto xml = tarvo::WritePropertyList(tarvo::DeviceProfile(), error);
    if (!xml || !tarvo::ReplaceFileContents(argv[1], *xml, error.reason)) {
        std::fprintf(stderr, "tarvo-device-profile: %s: %s\n", argv[1], error.reason.c_str());
        return 1;
    }
    return 0;
}
