#pragma once

#include "model/NumberedTable.h"
#include "model/StateBefore.h"

#include <map>

namespace strativo {

// What a construction file holds of a record is the same in both; marks and windows do not count.
bool SameContent(const Construction& a, const Construction& b);
template <class Values>
bool SameContent(const BasicGlassType<Values>& a, const BasicGlassType<Values>& b) {
    return a.name == b.name && (a.name.empty() || a == b);
}

/// A slot as it is in its table, with its comments; an empty one where the table has none.
template <class Record>
struct SlotView {
    SlotView(const NumberedList<Record>& table, const OwnedComments& owned, int slot)
        : number(slot), record(table.Has(slot) ? table[slot] : Empty()), comments(owned.Of(slot)) {}

    static const Record& Empty() {
        static const Record empty;
        return empty;
    }

    int number;
    const Record& record;
    const CommentLines& comments;
};

template <class Record>
bool SameContent(const SlotState<Record>& a, const SlotView<Record>& b) {
    return SameContent(a.record, b.record) && a.comments == b.comments;
}

/// The slots of a table that were changed since it was saved, as they were then. Tells whether all
/// of them are again what they were.
template <class Record>
class SavedSlots {
public:
    /// Before a slot changes; the first time since the saving counts.
    template <class State>
    void Keep(const State& saved) {
        const auto [slot, isFirst] = changed.try_emplace(saved.number);
        if (isFirst)
            slot->second.saved = {saved.number, saved.record, saved.comments};
    }

    /// After it changed.
    void Compare(const SlotView<Record>& now) {
        Slot& slot = changed.at(now.number);
        differing -= slot.differs ? 1 : 0;
        slot.differs = !SameContent(slot.saved, now);
        differing += slot.differs ? 1 : 0;
    }

    bool AreAsSaved() const { return differing == 0; }

private:
    struct Slot {
        SlotState<Record> saved;
        bool differs = false;
    };

    std::map<int, Slot> changed;
    int differing = 0;
};

} // namespace strativo
