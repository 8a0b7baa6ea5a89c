#include "exchange/GlassFromJson.h"

#include "edit/GlassTypes.h"

#include <utility>

namespace strativo {

namespace {

constexpr char fraction[] = "a number (fraction)";

/// Whether the array has as many items as the table; otherwise adds a fault.
template <class Table>
bool HasLength(JsonReader& reader, JsonValue array, const char* what) {
    const std::size_t count = array.ItemCount();
    if (count == Table::last)
        return true;
    reader.Fail("array-length", array,
                "expected " + std::to_string(Table::last) + " " + what + ", got "
                    + std::to_string(count));
    return false;
}

template <int First, int Last>
void ReadValues(JsonReader& reader, JsonValue array, NumberedTable<float, First, Last>& values) {
    using Table = NumberedTable<float, First, Last>;
    const bool fits = HasLength<Table>(reader, array, "numbers");
    int number = First;
    reader.ReadItems(array, [&](JsonValue item) {
        if (!reader.Check(item, JsonKind::number, fraction))
            return;
        const std::optional<float> value = reader.Single(item);
        if (fits)
            values[number++] = value.value_or(0);
    });
}

void ReadValues(JsonReader& reader, JsonValue array, AngularTable& table) {
    const bool fits = HasLength<AngularTable>(reader, array, "rows");
    int number = AngularTable::first;
    reader.ReadItems(array, [&](JsonValue item) {
        if (!reader.Check(item, JsonKind::array, "an array of 19 numbers"))
            return;
        NumberedTable<float, 1, 19> row;
        ReadValues(reader, item, row);
        if (fits)
            table[number++] = row;
    });
}

template <class Values>
class GlassReader {
public:
    GlassReader(const NameRules& rules, NamedPart namedPart)
        : names(rules), reader(rules.reader), part(namedPart) {}

    void Read(JsonValue object) {
        using Self = GlassReader;
        using Kind = JsonKind;
        static constexpr JsonKey<Self> keys[] = {
            {"number", Kind::number, "a number", false, nullptr},
            {"name", Kind::string, "a string (name of the glass type)", true, &Self::TakeName},
            {"comments", Kind::array, commentLines, false, &Self::CommentsOf},
            {"transmission", Kind::array, tableOf, true, &Self::Transmission},
            {"absorption", Kind::array, tableOf, true, &Self::Absorption},
            {"hasDiffusion", Kind::boolean, "true or false", false, &Self::HasDiffusion},
            {"diffusion", Kind::array, tableOf, false, &Self::Diffusion},
        };
        const bool isObject = reader.ReadObject(object, keys, *this);
        if (isObject && type.hasDiffusion && !JsonReader::Has(object, "diffusion"))
            reader.FailMissing(object, "diffusion", tableOf);
    }

    const std::string& Name() const { return type.name; }

    /// Puts the type into the slot that was made for its name.
    void Fill(BasicGlassType<Values>& made, OwnedComments& owned, int number) {
        made = std::move(type);
        for (std::string& line : comments)
            owned.Add(number, std::move(line));
    }

private:
    static constexpr const char* tableOf =
        Values::last == AngularTable::last ? "an array of 19 rows" : "an array of 11 numbers";

    void TakeName(JsonValue value) {
        const std::optional<std::string> name = ReadName(names, value, part);
        if (name && name->empty())
            reader.FailExpecting("empty-name", value, "a name that is not empty");
        type.name = name.value_or("");
    }
    void CommentsOf(JsonValue array) { comments = ReadComments(reader, array); }
    void Transmission(JsonValue array) { ReadValues(reader, array, type.transmission); }
    void Absorption(JsonValue array) { ReadValues(reader, array, type.absorption); }
    void HasDiffusion(JsonValue value) { type.hasDiffusion = JsonReader::Boolean(value); }
    void Diffusion(JsonValue array) { ReadValues(reader, array, type.diffusion); }

    const NameRules& names;
    JsonReader& reader;
    NamedPart part;
    BasicGlassType<Values> type;
    CommentLines comments;
};

} // namespace

void ReadGlassType(const NameRules& names, JsonValue object, Project& project) {
    GlassReader<AngularValues> type(names, NamedPart::glassType);
    type.Read(object);
    if (type.Name().empty())
        return; // a fault has been reported already
    AddGlassType(project, type.Name());
    const int number = project.currentGlassType;
    type.Fill(project.glassTypes[number], project.comments.glassTypes, number);
}

void ReadGlassType2D(const NameRules& names, JsonValue object, Project& project) {
    GlassReader<AngularTable> type(names, NamedPart::glassType2D);
    type.Read(object);
    if (type.Name().empty())
        return;
    AddGlassType2D(project, type.Name());
    const int number = project.currentGlassType2D;
    type.Fill(project.glassTypes2D[number], project.comments.glassTypes2D, number);
}

} // namespace strativo
