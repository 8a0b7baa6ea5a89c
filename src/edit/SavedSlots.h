#pragma once

#include "model/NumberedTable.h"
#include "model/StateBefore.h"

#include <map>
#include <utility>

namespace strativo {

// What a construction file holds of a record is the same in both; marks and windows do not count.
bool SameContent(const Construction& a, const Construction& b);
template <class Values>
bool SameContent(const BasicGlassType<Values>& a, const BasicGlassType<Values>& b) {
    return a.name == b.name && (a.name.empty() || a == b);
}

template <class Record>
bool SameContent(const SlotState<Record>& a, const SlotState<Record>& b) {
    return SameContent(a.record, b.record) && a.comments == b.comments;
}

/// The slots of a table that were changed since it was saved, as they were then. Tells whether all
/// of them are again what they were.
template <class Record>
class SavedSlots {
public:
    /// Before a slot changes; the first time since the saving counts.
    void Keep(const SlotState<Record>& saved) { changed.try_emplace(saved.number, Slot{saved}); }

    /// After it changed.
    void Compare(const SlotState<Record>& now) {
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
