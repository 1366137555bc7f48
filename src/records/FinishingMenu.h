#pragma once

#include "printer/FinishingOffers.h"
#include "records/FinishingSummary.h"
#include "settings/Menu.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tarvo {

class CFBundle;

// What a user may choose as finishing is what the printer offers and what the job has chosen
// already, so that opening a menu changes nothing of a job made for another printer.

/// The families, each item with its option as value; the chosen one is checked. The combined
/// families are one item. The printer's default and none are always there; an option of no family
/// comes last, as unknown.
Menu FinishingMenu(const CFBundle& bundle, const std::vector<FinishingOffer>& offers,
                   const FinishingChoice& current);

/// The value of the item that stands for a choice: 0 while nothing is chosen.
std::int32_t FinishingMenuValue(const FinishingChoice& choice);

/// Whether the family of a menu item is chosen in a dialog, as its text promises; the others are
/// chosen with ChooseFinishing at once. False for a number of no family.
bool HasFinishingDialog(std::int32_t option);

/// Whether there is anything to choose in the dialog of a menu item: positions that are offered or
/// the job's own; for a combination two parts that have some.
bool HasFinishingChoices(const CFBundle& bundle, const std::vector<FinishingOffer>& offers,
                         std::int32_t option, const FinishingChoice& current);

/// Whether a family can be a part of a combination. Holes can, of an unknown number too, if the job
/// has them.
bool HasFinishingPart(const CFBundle& bundle, const std::vector<FinishingOffer>& offers,
                      std::int32_t family, const FinishingChoice& current);

/// The positions of a family, with the job's own checked, else the first; none for a family without
/// positions. Holes can be on every side.
Menu FinishingPositions(const CFBundle& bundle, const std::vector<FinishingOffer>& offers,
                        std::int32_t option, const FinishingChoice& current);

/// The numbers of holes, with the job's own checked; of a job without, the usual one, else the
/// first.
Menu HoleCounts(const CFBundle& bundle, const std::vector<FinishingOffer>& offers,
                const FinishingChoice& current);

/// The position that a family's dialog starts with: the job's own, which stays also when no menu
/// has it, else the first.
std::int32_t StartPosition(const Menu& positions, std::int32_t family,
                           const FinishingChoice& current);

/// The number of holes that a dialog starts with: the job's own, which stays also when no menu has
/// it, else the menu's checked one, the usual one when the menu is empty.
std::int32_t StartHoles(const Menu& counts, const FinishingChoice& current);

/// ChooseFinishing for holes, of which there is also the number.
FinishingChoice ChooseHoles(const FinishingChoice& current, std::int32_t position,
                            std::int32_t holes);

/// A job's finishing with another family in place of its own, of which nothing stays behind.
/// @param position  of the family; without meaning for a family that has none
FinishingChoice ChooseFinishing(FinishingChoice current, std::int32_t option,
                                std::int32_t position = 0);

/// The parts of a combined finishing: their positions, 0 for a part that there is not.
struct CombinedFinishing {
    bool operator==(const CombinedFinishing&) const = default;

    std::int32_t stapleFamily = 0; // OneStaple, TwoStaples or CenterStaple; 0 without staples
    std::int32_t staple = 0;
    std::int32_t punch = 0;
    std::int32_t holes = 0; // only with punch
    std::int32_t zFold = 0;
};

/// The parts that a choice has: one for a family that can be combined, none for the other families.
CombinedFinishing PartsOf(const FinishingChoice& choice);

/// The same as ChooseFinishing for parts together.
/// @return nullopt for fewer than two parts
std::optional<FinishingChoice> ChooseCombinedFinishing(FinishingChoice current,
                                                       const CombinedFinishing& parts);

/// What a dialog shows while a user combines. A part that is switched off keeps its position.
struct MultipleFinishing {
    CombinedFinishing parts;
    std::int32_t hasHoles = 0; // 0 or 1, as check boxes have it
    std::int32_t hasZFold = 0;
};

/// The parts of the job's finishing that can be chosen, and for the others what comes first.
MultipleFinishing StartMultipleFinishing(const CFBundle& bundle,
                                         const std::vector<FinishingOffer>& offers,
                                         const FinishingChoice& current);

/// @return nullopt for fewer than two parts
std::optional<FinishingChoice> ChosenFinishing(const FinishingChoice& current,
                                               const MultipleFinishing& chosen);

/// The same with whatever has been chosen so far, for a picture: also a single part or none.
FinishingChoice FinishingSoFar(const FinishingChoice& current, const MultipleFinishing& chosen);

} // namespace tarvo
