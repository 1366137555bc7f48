#pragma once

#include "printer/FinishingOffers.h"
#include "records/FinishedSet.h"

#include <cstdint>
#include <vector>

namespace tarvo {

/// A finished set with one choice of a family.
inline FinishedSet SetWith(std::int32_t option, std::int32_t FinishingChoice::*position,
                           std::int32_t value, bool isLandscape = false)
{
    FinishedSet set;
    set.finishing.option = option;
    set.finishing.*position = value;
    set.isLandscape = isLandscape;
    return set;
}

/// Every family with a dialog, of a printer that has everything.
inline const std::vector<FinishingOffer> AllFinishingOffers = {
    {4,  "1 Staple...",      {5, 6, 7, 8}                    },
    {9,  "2 Staples...",     {10, 11, 12, 13}                },
    {14, "Bind...",          {15, 16}                        },
    {18, "Fold...",          {19, 20}                        },
    {24, "Booklet...",       {7, 8}                          },
    {25, "Center Staple...", {26, 27, 28, 29}                },
    {30, "Hole Punch...",    {3, 4, 5}                       },
    {36, "Z-Fold...",        {38, 39}                        },
    {40, "Advanced Fold...", {41, 42, 43, 44, 45, 46, 47, 48}},
    {49, nullptr,            {49, 50, 51, 52}                },
};

} // namespace tarvo
