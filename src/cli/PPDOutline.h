#pragma once

#include "platform/cf/OrderedMap.h"
#include "platform/printing/PPDFile.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// Something that is worth knowing of a PPD file.
struct PPDRemark {
    std::size_t line; // 0 when it is about the whole file
    bool isFault;     // to be mended; otherwise the printer just lacks something
    std::string text;
    bool operator==(const PPDRemark&) const = default;
};

/// The text between quotes, as remarks show names.
std::string QuotedName(std::string_view name);

/// Where the parts of a PPD file stand, and what is wrong with them. The printing system's reader
/// keeps no lines, and passes over most of these faults in silence.
class PPDOutline {
public:
    struct Constraint {
        std::size_t line;
        PPDConstraint sides;
        bool isNonUI; // may name what is no option
    };

    explicit PPDOutline(std::string_view contents);

    /// The line where a main keyword is opened first; 0 for nowhere.
    std::size_t lineOf(std::string_view mainKeyword) const { return LineIn(options_, mainKeyword); }
    /// The line where its default stands, of several the last, which counts; 0 for nowhere.
    std::size_t lineOfDefault(std::string_view mainKeyword) const
    {
        return LineIn(defaults_, mainKeyword);
    }
    /// The line where custom paper sizes are given limits that make no range, else where they are
    /// offered; 0 for nowhere.
    std::size_t lineOfCustomSizes() const { return customSizes_; }
    /// Those that name two options.
    const std::vector<Constraint>& constraints() const { return constraints_; }
    /// In no certain order.
    const std::vector<PPDRemark>& faults() const { return faults_; }

private:
    using Lines = OrderedMap<std::size_t>;
    static std::size_t LineIn(const Lines& lines, std::string_view name)
    {
        const std::size_t* line = lines.find(name);
        return line == nullptr ? 0 : *line;
    }

    Lines options_;
    Lines defaults_;
    std::size_t customSizes_ = 0;
    std::vector<Constraint> constraints_;
    std::vector<PPDRemark> faults_;
};

} // namespace tarvo
