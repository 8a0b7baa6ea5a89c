#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// The position of a fault in a text file.
struct FilePlace {
    int line = 0;   ///< from 1 on; 0: the file as a whole
    int column = 0; ///< from 1 on; 0: the line as a whole
};

/// A fault in a file that something should be made from.
struct Fault {
    std::string rule;
    std::string text; ///< one line; quotations from the file are shortened and printable
    std::optional<std::string> pointer; ///< of JSON: RFC 6901, from the document's root
    std::optional<FilePlace> place;
};

/// Faults in the order of the file, as many as are useful to people.
class FaultList {
public:
    static constexpr std::size_t limit = 1000;

    /// Adds a fault at that offset of the file; faults with the same offset keep their order.
    void Add(std::size_t offset, Fault fault);
    bool Empty() const { return entries.empty(); }
    /// The first ones in order, up to the limit.
    std::vector<Fault> First();
    /// Number of those left out of First().
    std::size_t More();

private:
    struct Entry {
        std::size_t offset;
        Fault fault;
    };

    /// Sorts the faults and drops those beyond the limit.
    void Sort();

    std::vector<Entry> entries; ///< never many more than the limit
    std::size_t more = 0;
};

/// A text from a file (UTF-8) as messages quote it: at most 60 characters, without any that a
/// terminal would obey.
std::string Excerpt(std::string_view utf8);

/// The same in double quotes.
std::string Quoted(std::string_view utf8);

/// "U+2265".
std::string CodePointName(char32_t code);

} // namespace strativo
