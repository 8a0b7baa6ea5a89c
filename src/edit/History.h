#pragma once

#include "edit/SavedSlots.h"
#include "model/Project.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace strativo {

/// What was taken back or done again.
struct HistoryMove {
    std::string action;      ///< "cut of 3 layers"
    int construction = 0;    ///< a construction in use that it concerns; 0 none
    bool glassTypes = false; ///< it concerns glass types
};

/// The steps that the user can take back and do again: each is an action that changed the content
/// of constructions or glass types, and holds the slots that it changed, no others. The clipboard,
/// the libraries and the windows' places are no part of it. New projects and files read begin a new
/// history, and what is done after something was taken back drops what could be done again.
class History {
public:
    /// The history may take so much memory; a shorter one may take more.
    struct Limits {
        std::size_t bytes = std::size_t{64} << 20;
        std::size_t steps = 100;
    };

    History() = default;
    explicit History(Limits ownLimits) : limits(ownLimits) {}

    /// Before an action of the user; actions within it belong to it.
    void ActionBegins(Project& project);
    /// After it. True when it was a step.
    bool ActionEnds(Project& project);

    /// What would be taken back, as a menu names it; "" nothing.
    std::string NextUndo() const { return done.empty() ? "" : done.back().action; }
    std::string NextRedo() const { return undone.empty() ? "" : undone.back().action; }

    // The state is as it was, marks included; the window concerned is asked to the front, which
    // makes its construction the current one. The project counts as changed as it did then; as
    // changed when it was saved since; never when its content is that of the file. Nothing without
    // a step.
    std::optional<HistoryMove> Undo(Project& project);
    std::optional<HistoryMove> Redo(Project& project);

    std::size_t Length() const { return done.size(); }
    /// Memory that the steps take, about.
    std::size_t Bytes() const { return bytes; }

private:
    /// What a project keeps beside its tables.
    struct Marks {
        int constructionSlots = 0;
        int glassSlots = 0;
        int glassSlots2D = 0;
        int constructionCount = 0;
        int lowestFreeHint = 0;
        int currentConstruction = 0;
        int currentGlassType = 0;
        int currentGlassType2D = 0;
        int freeGlassHint = 0;
        int freeGlassHint2D = 0;
        int glassSectionsRead = 0;
        int glassSectionsRead2D = 0;
        unsigned saved = 0; ///< count of the savings by then
        bool userLibraryNeeded = false;
        bool changed = false;
    };
    /// Holds the other side of the step: exchanged with the project, it takes the step back or does
    /// it again.
    struct Step {
        std::string action;
        ChangedParts parts;
        Marks marks;
    };
    /// What tells whether the content is that of the file.
    struct SavedContent {
        SavedSlots<Construction> constructions;
        SavedSlots<GlassType> glassTypes;
        SavedSlots<GlassType2D> glassTypes2D;
        std::optional<CommentLines> fileHead;
        bool isKnown = true; ///< not for work that was never read or saved as it is
    };

    static Marks MarksOf(const Project& project);
    static void Restore(Project& project, const Marks& marks);
    static std::size_t BytesOf(const Step& step);

    static int ConstructionConcerned(const Project& project, const ChangedParts& parts);

    bool ChangedContent(const Project& project) const;
    void BeginAnew(const Project& project);
    void FollowSaving(const Project& project);
    void Add(Project& project);
    void DropOldest();
    HistoryMove Move(Project& project, Step& step);
    void Exchange(Project& project, Step& step);
    bool IsAsSaved(const Project& project) const;

    Limits limits;
    std::deque<Step> done;
    std::vector<Step> undone;
    std::size_t bytes = 0; ///< of both
    Marks before;          ///< of the action under way
    SavedContent saved;
    unsigned contentsSeen = 0;
    unsigned savingsSeen = 0;
};

} // namespace strativo
