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
    std::string mark;               // the latter two in the user's language; "" for the first
    std::vector<std::string> lines; // what it is, "label: value"
    CFDictionary stock;             // keys of StockKeys.h
};

/// A stock of a job and the paper of the library that it is.
struct StockMatch {
    std::string place;     // where the job has it, "front-cover", "insert 1"
    std::string placeText; // the same in the user's language
    std::optional<PaperReport> paper;
};

/// What a stock is, "label: value" for each attribute that is set, its name first.
std::vector<std::string> StockLines(const CFBundle& bundle, const Stock& stock);

/// @param uuid  the entry's key in its list
PaperReport DescribePaper(const CFBundle& bundle, const std::string& uuid,
                          const StockLibrary& entry);

// For a person at a terminal.
std::string PaperTitle(const CFBundle& bundle, const PaperReport& paper);
std::string PapersText(const CFBundle& bundle, const std::vector<PaperReport>& papers);
std::string MatchesText(const CFBundle& bundle, const std::vector<StockMatch>& matches);

// For a program: {"papers": [...]} and {"stocks": [...]}, objects with the members above.
std::string PapersJson(const std::vector<PaperReport>& papers);
std::string MatchesJson(const std::vector<StockMatch>& matches);

} // namespace tarvo
