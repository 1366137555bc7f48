#include "panels/finishing/SheetInks.h"

#include <algorithm>
#include <iterator>

namespace tarvo {
namespace {

struct PaperRow {
    std::int32_t color;
    Ink ink;
};

constexpr Ink PlainPaper = {1, 1, 1};

// By the values of StockColorMap.
constexpr PaperRow PaperMap[] = {
    {1,  PlainPaper             },
    {2,  {0.78, 0.87, 0.96}     },
    {3,  {0.99, 0.95, 0.65}     },
    {4,  {0.80, 0.92, 0.77}     },
    {5,  {0.97, 0.82, 0.86}     },
    {6,  {0.88, 0.95, 0.98, 0.7}}, // a film through which one sees
    {7,  {0.95, 0.87, 0.71}     },
    {8,  {0.95, 0.81, 0.42}     },
    {9,  {0.90, 0.54, 0.51}     },
    {11, {0.99, 0.97, 0.88}     },
    {12, {0.84, 0.85, 0.85}     },
    {13, {0.98, 0.77, 0.56}     },
};

} // namespace

Ink PaperInk(std::int32_t color)
{
    const auto* row = std::find_if(std::begin(PaperMap), std::end(PaperMap),
                                   [color](const PaperRow& each) { return each.color == color; });
    return row == std::end(PaperMap) ? PlainPaper : row->ink;
}

Ink Shaded(const Ink& ink, double brightness)
{
    return {ink.red * brightness, ink.green * brightness, ink.blue * brightness, ink.opacity};
}

} // namespace tarvo
