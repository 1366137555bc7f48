#include "platform/printing/PrinterAddress.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

struct AuthorityCase {
    const char* authority;
    const char* host;
    int port; // 0: the printing system's
};

// clang-format off
constexpr AuthorityCase Authorities[] = {
    {"press.local",                 "press.local", 0    },
    {"press.local:8631",            "press.local", 8631 },
    {"operator@press:8631",         "press",       8631 },
    {"a:b@c@10.0.0.7",              "10.0.0.7",    0    },
    {"[fe80::1]",                   "fe80::1",     0    },
    {"[::1]:443",                   "::1",         443  },
    {"[fe80::1%25eth0]:631",        "fe80::1%eth0", 631 },
    {"::1",                         "::1",         0    }, // not port 1
    {"press%2Dtwo",                 "press-two",   0    },
    {"100%",                        "100%",        0    },
    {"press:515",                   "press",       0    }, // other protocols: it would be printed
    {"press:9100",                  "press",       0    },
    {"press:9112",                  "press",       0    },
    {"press:9113",                  "press",       9113 },
    {"press:0",                     "press",       0    },
    {"press:65536",                 "press",       0    },
    {"press:",                      "press",       0    },
    {"%2Fvar%2Frun%2Fcups.sock",    "",            0    }, // a socket of this machine
    {"press%0D%0AHost: x",          "",            0    },
    {"press%00",                    "",            0    },
    {"press:8631?waitjob=no",       "press",       8631 },
    {"",                            "",            0    },
};
// clang-format on

TEST(PrinterAddress, IsTakenFromTheAuthority)
{
    for (const auto& row : Authorities) {
        const PrinterAddress address = AddressOfAuthority(row.authority);
        EXPECT_EQ(address.host, row.host) << row.authority;
        EXPECT_EQ(address.port.value_or(0), row.port) << row.authority;
    }
}

TEST(PrinterAddress, BelongsToDevicesOnANetwork)
{
    EXPECT_EQ(AuthorityOfDeviceURI("ipp://press:8631/ipp/print"), "press:8631");
    EXPECT_EQ(AuthorityOfDeviceURI("socket://10.0.0.7"), "10.0.0.7");
    EXPECT_EQ(AuthorityOfDeviceURI("file:///dev/null"), "");
    for (const char* uri : {"PAP://zone/printer", "pap:/a/b/c", "usb:", "usb:/x", ""}) {
        EXPECT_EQ(AuthorityOfDeviceURI(uri), std::nullopt) << uri;
    }
}

} // namespace
} // namespace tarvo
