#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace strativo {

using CommentLines = std::vector<std::string>;

/// Comment lines that belong to numbered owners (constructions, glass types).
class OwnedComments {
public:
    void Add(int owner, std::string text) { lines[owner].push_back(std::move(text)); }
    /// The owner's comments in the order in which they were added.
    const CommentLines& Of(int owner) const {
        static const CommentLines none;
        const auto found = lines.find(owner);
        return found == lines.end() ? none : found->second;
    }
    void Drop(int owner) { lines.erase(owner); }

private:
    std::unordered_map<int, CommentLines> lines;
};

/// The comment lines kept from a construction file, by the section they stood in.
struct Comments {
    CommentLines fileHead;
    CommentLines standardLibrary;
    CommentLines userLibrary;
    CommentLines noSection; ///< met while no section was open
    OwnedComments constructions;
    OwnedComments glassTypes;
    OwnedComments glassTypes2D;
};

} // namespace strativo
