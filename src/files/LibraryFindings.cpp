#include "files/LibraryFindings.h"

#include "files/LibraryRecords.h"
#include "files/MaterialPlausibility.h"
#include "text/Format.h"
#include "text/Lines.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"
#include "text/Windows1252.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>

namespace strativo {

namespace {

constexpr auto npos = std::string_view::npos;

std::string_view WithoutBlanks(std::string_view text) {
    constexpr char blanks[] = " \t\r\n";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// A text of the file as a message shows it, shortened if necessary.
std::string Quoted(std::string_view text) {
    constexpr std::size_t longest = 60;
    return "\"" + std::string(text.substr(0, longest)) + "\"";
}

/// Why a record cannot be read. The loader has already rejected it.
std::string WhyNotStandard(std::string_view line) {
    const auto open = line.find('\'');
    if (open == npos)
        return "no apostrophe before the name";
    if (open == 0)
        return "no number before the name";
    if (line.find('\'', open + 1) == npos || open + 2 >= line.size())
        return "no name between apostrophes";
    return "behind the name three numbers are needed, with blanks between them";
}

std::string WhyNotUser(std::string_view naming) {
    const auto star = naming.find('*');
    if (star == npos)
        return "no asterisk behind the number";
    if (star == 0)
        return "no number before the asterisk";
    const auto blank = naming.find(' ', star);
    if (blank == npos)
        return "no blank between the asterisk and the name";
    if (WithoutBlanks(naming.substr(blank)).size() == 1)
        return "a name needs two characters";
    return "behind the name three numbers are needed, with blanks between them";
}

class LibraryChecks {
public:
    LibraryChecks(std::string_view content, LibraryLayout itsLayout)
        : bytes(content), layout(itsLayout) {}

    std::vector<Finding> Run() {
        if (layout == LibraryLayout::user)
            CheckUserRecords();
        else
            CheckStandardLines();
        return std::move(findings);
    }

private:
    void CheckStandardLines() {
        LineReader lines(bytes);
        while (!lines.AtEnd()) {
            ++line;
            std::string_view text = lines.Next();
            if (text.ends_with('\r'))
                text.remove_suffix(1);
            if (!text.empty())
                CheckRecord([&] { return ReadStandardRecord(text); },
                            [&] { return WhyNotStandard(text); });
        }
    }

    void CheckUserRecords() {
        FieldReader fields(bytes);
        line = 1;
        while (!fields.AtEnd()) {
            const std::string_view naming = fields.Next();
            const std::size_t start = fields.Start();
            const std::string_view behindName = fields.BehindQuote();
            const std::size_t behindNaming = fields.Position();
            const std::string_view numbers = fields.Next();
            const std::string_view behindNumbers = fields.BehindQuote();
            if (naming.empty())
                continue;
            CountLinesTo(start);
            const bool read = CheckRecord([&] { return ReadUserRecord(naming, numbers); },
                                          [&] { return WhyNotUser(naming); });
            if (!read)
                GoOnBehind(fields, behindNaming, numbers);
            else
                CheckQuotes(behindName, behindNumbers);
        }
    }

    /// Fields come in pairs, so one too many or too few would shift all that follow. Therefore the
    /// next pair is taken from the next line, or from where the numbers of this one end.
    void GoOnBehind(FieldReader& fields, std::size_t behindNaming, std::string_view numbers) const {
        const bool numbersLookLikeAName = Contains(numbers, '*');
        const std::size_t from = numbersLookLikeAName ? behindNaming : fields.Position();
        const bool atLineStart = bytes[from - 1] == '\n' || bytes[from - 1] == '\r';
        fields.MoveTo(atLineStart ? from : BehindLineEnd(from));
    }

    std::size_t BehindLineEnd(std::size_t from) const {
        const auto end = std::min(bytes.find_first_of("\r\n", from), bytes.size());
        const bool pair = bytes.substr(end).starts_with("\r\n");
        return std::min(end + (pair ? 2 : 1), bytes.size());
    }

    void CountLinesTo(std::size_t position) {
        for (; counted < position; ++counted) {
            const bool pair =
                bytes[counted] == '\r' && counted + 1 < bytes.size() && bytes[counted + 1] == '\n';
            line += bytes[counted] == '\n' || (bytes[counted] == '\r' && !pair) ? 1 : 0;
        }
    }

    /// False if the loader would stop here.
    template <class Read, class Why>
    bool CheckRecord(Read read, Why why) {
        try {
            if (const std::optional<LibraryRecord> record = read()) {
                CheckMaterial(*record);
                return true;
            }
            AddAboutLine("line-not-read", why());
        } catch (const RuntimeError& error) {
            const bool overflow = error.Number() == ErrorNumber::overflow;
            AddAboutLine("line-not-read", overflow ? "a number is too large" : why());
        }
        return false;
    }

    void AddAboutLine(const char* rule, const std::string& text) {
        findings.push_back({.rule = rule, .line = line, .name = "", .text = text});
    }

    void Add(const char* rule, const std::string& text) {
        findings.push_back(
            {.rule = rule,
             .material = slot,
             .line = line,
             .name = name,
             .text = "Material" + SignPositionNumber(slot) + " " + Quoted(name) + ": " + text});
    }

    void CheckMaterial(const LibraryRecord& record) {
        ++slot;
        name = record.material.name;
        CheckCount();
        CheckCode(record.material.code);
        CheckName(record);
        CheckNumbers(record);
        const Material& material = record.material;
        for (const BrokenRule& broken : RulesBrokenByMaterial(
                 {material.conductivity, material.density, material.specificHeat}))
            Add(broken.rule, broken.text);
    }

    void CheckCount() {
        constexpr int cavities = 6; // added by the loader to a standard library
        const bool user = layout == LibraryLayout::user;
        const int most = MaterialLibrary::last - 1 - (user ? 0 : cavities);
        if (slot == most + 1)
            Add("too-many-materials",
                "a library of this layout holds at most" + SignPositionNumber(most) + " materials");
    }

    void CheckCode(double code) {
        constexpr double largest = std::numeric_limits<std::int16_t>::max();
        if (!(code >= 1 && code <= largest && code == std::floor(code)))
            Add("code-range", "no layer can refer to the number " + FormatGeneral(code)
                                  + "; it takes a whole one from 1 to 32767");
        const auto [first, isNew] = linesByCode.emplace(code, line);
        if (!isNew)
            Add("duplicate-code", "line" + SignPositionNumber(first->second) + " has the number "
                                      + FormatGeneral(code) + " too; layers get the last one");
    }

    void CheckName(const LibraryRecord& record) {
        constexpr std::size_t shownInList = 33;
        if (name.empty())
            Add("empty-name", "layers of a material without a name vanish");
        if (name == endOfLibrary)
            Add("reserved-name", "this name ends the library before it");
        const auto [first, isNew] = linesByName.emplace(LowerCase(WithoutBlanks(name)), line);
        if (!isNew && !name.empty())
            Add("duplicate-name",
                "the material of line" + SignPositionNumber(first->second) + " has this name too");
        const bool user = layout == LibraryLayout::user;
        const std::string_view written = user ? TrimmedLeft(record.name) : record.name;
        if (LowerCase(written) != LowerCase(name))
            Add("name-changed", "the file has " + Quoted(written));
        if (name.size() > shownInList)
            Add("name-cut",
                "lists show 33 to 35 of its" + SignPositionNumber(NameLength()) + " characters");
        CheckBytes(record.name);
    }

    static std::string_view TrimmedLeft(std::string_view text) {
        return text.substr(std::min(text.find_first_not_of(' '), text.size()));
    }

    int NameLength() const { return static_cast<int>(name.size()); }

    void CheckBytes(std::string_view text) {
        constexpr std::string_view undefined = "\x81\x8D\x8F\x90\x9D";
        const auto at = text.find_first_of(undefined);
        if (at == npos)
            return;
        constexpr char digits[] = "0123456789ABCDEF";
        const auto byte = static_cast<unsigned char>(text[at]);
        Add("undefined-byte", std::string("the name has the byte ") + digits[byte / 16]
                                  + digits[byte % 16] + ", which is no character");
    }

    void CheckNumbers(const LibraryRecord& record) {
        CheckNumber("number", record.code, record.material.code);
        CheckNumber("conductivity", record.conductivity, record.material.conductivity);
        CheckNumber("density", record.density, record.material.density);
        CheckNumber("specific heat", record.specificHeat, record.material.specificHeat);
        if (!WithoutBlanks(record.rest).empty())
            AddUnread(record.rest);
    }

    void CheckNumber(const std::string& quantity, std::string_view text, double value) {
        if (!WholeNumber(WithoutBlanks(text)))
            Add("text-after-number",
                quantity + " " + Quoted(text) + " is read as " + FormatGeneral(value));
    }

    void AddUnread(std::string_view text) {
        Add("text-after-number", Quoted(WithoutBlanks(text)) + " behind the numbers is not read");
    }

    void CheckQuotes(std::string_view behindName, std::string_view behindNumbers) {
        if (!WithoutBlanks(behindName).empty())
            Add("name-changed",
                Quoted(WithoutBlanks(behindName)) + " behind the closing quote is not read");
        if (!WithoutBlanks(behindNumbers).empty())
            AddUnread(behindNumbers);
    }

    const std::string_view bytes;
    const LibraryLayout layout;
    std::vector<Finding> findings;
    std::unordered_map<double, int> linesByCode;      ///< the first of each
    std::unordered_map<std::string, int> linesByName; ///< first line of each name, in lower case
    std::string name;                                 ///< of the material just read
    int slot = 0;                                     ///< of the material just read
    int line = 0;
    std::size_t counted = 0; ///< bytes searched for line ends so far
};

std::string_view FirstLineWithText(std::string_view bytes) {
    const auto start = std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size());
    const std::string_view rest = bytes.substr(start);
    return rest.substr(0, rest.find_first_of("\r\n"));
}

} // namespace

LibraryLayout LayoutOfLibrary(std::string_view bytes) {
    const std::string_view line = FirstLineWithText(bytes);
    return line.find('*') < line.find('\'') ? LibraryLayout::user : LibraryLayout::standard;
}

bool HasConstructionKeyword(std::string_view bytes) {
    return Contains(bytes, "!CONSTRUCTION") || Contains(bytes, "!MATERIALS")
           || Contains(bytes, "!WINDOW") || Contains(bytes, "!TYPE");
}

std::vector<Finding> FindingsOfLibrary(std::string_view bytes, LibraryLayout layout) {
    return LibraryChecks(bytes, layout).Run();
}

} // namespace strativo
