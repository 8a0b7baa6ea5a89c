#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace strativo {

/// A name (Windows-1252) in the ASCII characters that EnergyPlus takes in names, without blanks at
/// its ends.
std::string EpName(std::string_view name);

/// Names of objects, which EnergyPlus compares without regard to case.
class EpNames {
public:
    static constexpr std::size_t longest = 99;

    /// The name with its ending (" (102 mm)" or none), the name cut where both are too long, and a
    /// number behind them where that is taken already.
    std::string Take(const std::string& name, const std::string& ending);

private:
    std::set<std::string> taken;           ///< in small letters
    std::map<std::string, int> lastNumber; ///< by name and ending, in small letters
};

} // namespace strativo
