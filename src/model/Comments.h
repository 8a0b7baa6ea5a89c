#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace strativo {

using CommentLines = std::vector<std::string>;

/// Comment lines that belong to owners numbered from 0 on (constructions, glass types).
class OwnedComments {
public:
    void Add(int owner, std::string text) {
        if (!HasLinesUpTo(owner))
            lines.resize(static_cast<std::size_t>(owner) + 1);
        lines[static_cast<std::size_t>(owner)].push_back(std::move(text));
    }
    /// The owner's comments in the order in which they were added.
    const CommentLines& Of(int owner) const {
        static const CommentLines none;
        return HasLinesUpTo(owner) ? lines[static_cast<std::size_t>(owner)] : none;
    }
    /// Exchanges the owner's comments for these.
    void Swap(int owner, CommentLines& others) {
        if (others.empty() && !HasLinesUpTo(owner))
            return;
        if (!HasLinesUpTo(owner))
            lines.resize(static_cast<std::size_t>(owner) + 1);
        lines[static_cast<std::size_t>(owner)].swap(others);
    }
    void Drop(int owner) {
        if (HasLinesUpTo(owner))
            lines[static_cast<std::size_t>(owner)].clear();
    }

    /// The highest owner that ever had comments; -1 if none had.
    int LastOwner() const { return static_cast<int>(lines.size()) - 1; }

private:
    bool HasLinesUpTo(int owner) const { return static_cast<std::size_t>(owner) < lines.size(); }

    std::vector<CommentLines> lines; ///< by owner
};

/// The comment lines of a construction file, by the section that they were in.
struct Comments {
    CommentLines fileHead;
    CommentLines standardLibrary;
    CommentLines userLibrary;
    CommentLines noSection; ///< found while no section was open
    OwnedComments constructions;
    OwnedComments glassTypes;
    OwnedComments glassTypes2D;
};

} // namespace strativo
