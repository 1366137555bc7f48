#pragma once

namespace tarvo {

/// How the program ends. ExitStatusMap of OptionTable.h has the words for people.
enum class ExitStatus {
    Done = 0,
    Failed = 1,
    WrongUse = 2,
    LeftOut = 3,
};

} // namespace tarvo
