#pragma once

#include "model/Comments.h"
#include "model/Construction.h"
#include "model/GlassType.h"
#include "model/NumberedTable.h"

#include <optional>
#include <string>
#include <vector>

namespace strativo {

/// One slot of a table, with the comments of its number.
template <class Record>
struct SlotState {
    int number = 0;
    Record record;
    CommentLines comments;
};

/// The slot as it is in the table; an empty one where the table has none.
template <class Record>
SlotState<Record> StateOf(const NumberedList<Record>& table, const OwnedComments& comments,
                          int number) {
    return {number, table.Has(number) ? table[number] : Record(), comments.Of(number)};
}

/// The parts of a project that an action changes, in one of their two states.
struct ChangedParts {
    std::vector<SlotState<Construction>> constructions;
    std::vector<SlotState<GlassType>> glassTypes;
    std::vector<SlotState<GlassType2D>> glassTypes2D;
    std::optional<CommentLines> fileHead; ///< of the comments
};

/// What the action under way has changed so far, as it was before it. An edit notes it here, for a
/// history that takes the action back.
struct StateBefore {
    bool kept = false; ///< there is a history
    ChangedParts parts;
    std::string action;   ///< what is done, as a menu names it: "cut of 3 layers"
    bool removes = false; ///< something is gone after it
};

} // namespace strativo
