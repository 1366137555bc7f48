#pragma once

#include "cli/StockReport.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tarvo {

class CFBundle;
struct ReportedMedium;

/// A medium of a printer, member by member, beside the stock that it became.
struct MediumReport {
    struct Member {
        std::string name;
        std::string value;
        std::vector<std::string> became; // what the stock would lack without it, "label: value"
        std::string leftOut;             // why it became nothing, for people; "" when it did
    };
    PaperReport paper; // without a uuid
    std::vector<Member> members;
    std::size_t furtherMembers = 0; // not told
};

MediumReport DescribeMedium(const CFBundle& bundle, const ReportedMedium& reported);

/// For a person at a terminal: a line for each member, what it became beside it.
std::string MediumText(const CFBundle& bundle, const MediumReport& medium);

/// For a program: an object in one line, with the members above.
std::string MediumJson(const MediumReport& medium);

} // namespace tarvo
