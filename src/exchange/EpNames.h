#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace strativo {

/// A name (Windows-1252) in the ASCII characters that EnergyPlus accepts in names, without blanks
/// at its ends.
std::string EpName(std::string_view name);

/// Gives objects unique names; EnergyPlus ignores case when it compares them.
class EpNames {
public:
    static constexpr std::size_t longest = 99;

    /// The name with its ending (such as " (102 mm)", or none). The name is shortened if both are
    /// too long together, and a number follows if the result is taken.
    std::string Take(const std::string& name, const std::string& ending);

private:
    std::set<std::string> taken;           ///< in small letters
    std::map<std::string, int> lastNumber; ///< by name and ending, in small letters
};

} // namespace strativo
