#pragma once

#include "stocklibrary/StockLibrary.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvo {

class CFBundle;
class StockLibraryList;

/// A paper of a library in words.
struct PaperReport {
    std::string uuid;
    std::string name;
    std::string status;             // "not-in-use", "in-use" or "invalid"
    std::vector<std::string> lines; // what it is, "label: value"
    CFDictionary stock;             // keys of StockKeys.h
};

/// A stock of a job and the paper of the library that it is.
struct StockMatch {
    std::string place; // where the job has it
    std::optional<PaperReport> paper;
};

/// @param uuid  the entry's key in its list
PaperReport DescribePaper(const CFBundle& bundle, const std::string& uuid,
                          const StockLibrary& entry);

// For a person at a terminal.
std::string PapersText(const std::vector<PaperReport>& papers);
std::string MatchesText(const std::vector<StockMatch>& matches);

// For a program: {"papers": [...]} and {"stocks": [...]}, objects with the members above.
std::string PapersJson(const std::vector<PaperReport>& papers);
std::string MatchesJson(const std::vector<StockMatch>& matches);

} // namespace tarvo
