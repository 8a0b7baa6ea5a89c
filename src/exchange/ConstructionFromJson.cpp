#include "exchange/ConstructionFromJson.h"

#include "calc/CavityTypes.h"
#include "edit/ConstructionSlots.h"

#include <limits>
#include <utility>

namespace strativo {

namespace {

constexpr char typeNumbers[] = "0 (opaque) or 1 (transparent)";
constexpr char libraryNumbers[] = "1 (standard library) or 2 (user library)";

class LayerReader {
public:
    LayerReader(JsonReader& source, bool libraryNamed)
        : reader(source), userLibraryNamed(libraryNamed) {
        layer.library = standardLibraryNumber;
    }

    /// Reads a layer, which must come after that slot, and returns its slot.
    int Read(JsonValue object, int slotBefore) {
        using Self = LayerReader;
        using Kind = JsonKind;
        static constexpr JsonKey<Self> keys[] = {
            {"slot", Kind::number, "a layer slot", false, &Self::Slot},
            {"name", Kind::string, "a string (name of the material)", false, &Self::Name},
            {"materialCode", Kind::number, "a material number", true, &Self::MaterialCode},
            {"library", Kind::number, libraryNumbers, false, &Self::Library},
            {"conductivity", Kind::number, "a number (W/m C)", false, &Self::Conductivity},
            {"density", Kind::number, "a number (kg/m3)", false, nullptr},
            {"specificHeat", Kind::number, "a number (J/kg C)", false, nullptr},
            {"thickness", Kind::number, "a number (millimetres)", true, &Self::Thickness},
            {"absorption", Kind::number, "a number (fraction)", false, &Self::Absorption},
            {"line", Kind::string, "a string", false, nullptr},
        };
        const bool isObject = reader.ReadObject(object, keys, *this);
        if (isObject)
            CheckConductivity();
        const int number = TakeSlot(object, slotBefore, isObject);
        if (!nameGiven)
            layer.name = layer.materialCode < 0 ? CavityLayerName(layer.materialCode)
                                                : std::to_string(number);
        return number;
    }

    Layer& Taken() { return layer; }

private:
    void Slot(JsonValue value) {
        slotGiven = value;
        slot = reader.Integer(value, LayerSlots::first, LayerSlots::last);
    }
    void Name(JsonValue value) {
        nameGiven = true;
        layer.name = reader.Bytes(value).value_or("?");
        if (layer.name.empty())
            reader.FailExpecting("empty-name", value, "a name that is not empty");
    }
    void MaterialCode(JsonValue value) {
        using Limits = std::numeric_limits<std::int16_t>;
        code = reader.Integer(value, Limits::min(), Limits::max());
        layer.materialCode = static_cast<std::int16_t>(code.value_or(0));
    }
    void Library(JsonValue value) {
        const double number = JsonReader::Number(value);
        if (number != standardLibraryNumber && number != userLibraryNumber)
            reader.FailExpecting("not-allowed", value, libraryNumbers);
        else if (number == userLibraryNumber && !userLibraryNamed)
            reader.Fail("user-library-missing", value,
                        "the layer is of the user library, but the project has no userLibraryFile");
        else
            layer.library = static_cast<std::int16_t>(number);
    }
    void Conductivity(JsonValue value) {
        conductivityGiven = value;
        conductivity = reader.Single(value);
    }
    void Thickness(JsonValue value) { layer.thickness = JsonReader::Number(value); }
    void Absorption(JsonValue value) { layer.absorption = reader.Single(value).value_or(0); }

    /// In the file, a cavity has its conductivity in the place of a layer's material number.
    void CheckConductivity() {
        if (!code || *code > 0) {
            layer.conductivity = conductivity.value_or(0);
            return;
        }
        layer.conductivity = static_cast<float>(*code);
        if (conductivity && *conductivity != layer.conductivity)
            reader.Inside(std::string_view("conductivity"), [&] {
                reader.FailExpecting("cavity-mismatch", *conductivityGiven,
                                     "the materialCode of the cavity, " + std::to_string(*code));
            });
    }

    int TakeSlot(JsonValue object, int slotBefore, bool isObject) {
        const int following = slotBefore + 1;
        if (slot && *slot > slotBefore)
            return *slot;
        if (slot)
            reader.Inside(std::string_view("slot"), [&] {
                reader.FailExpecting("slot-order", *slotGiven,
                                     "a slot above the one before, " + std::to_string(slotBefore));
            });
        else if (isObject && !slotGiven && following > maxLayers)
            reader.Fail("slot-order", object, "no slot is left behind the layer before");
        return following;
    }

    JsonReader& reader;
    bool userLibraryNamed;
    Layer layer;
    bool nameGiven = false;
    std::optional<int> code;
    std::optional<float> conductivity;
    std::optional<JsonValue> conductivityGiven;
    std::optional<int> slot;
    std::optional<JsonValue> slotGiven;
};

class ConstructionReader {
public:
    ConstructionReader(const NameRules& rules, bool libraryNamed, Project& target)
        : names(rules), reader(rules.reader), userLibraryNamed(libraryNamed), project(target) {}

    void Read(JsonValue object) {
        using Self = ConstructionReader;
        using Kind = JsonKind;
        static constexpr JsonKey<Self> keys[] = {
            {"number", Kind::number, "a number", false, nullptr},
            {"name", Kind::string, "a string (name of the construction)", true, &Self::Name},
            {"type", Kind::number, typeNumbers, false, &Self::Type},
            {"currentLayer", Kind::number, "a number", false, nullptr},
            {"result", Kind::string, "a string", false, nullptr},
            {"comments", Kind::array, commentLines, false, &Self::CommentsOf},
            {"layers", Kind::array, "an array of layers", false, &Self::Layers},
        };
        reader.ReadObject(object, keys, *this);
        CreateUnnamedConstruction(project);
        const int number = project.currentConstruction;
        construction.window = project.constructions[number].window;
        project.constructions[number] = std::move(construction);
        for (std::string& line : comments)
            project.comments.constructions.Add(number, std::move(line));
    }

private:
    void Name(JsonValue value) {
        construction.name = ReadName(names, value, NamedPart::construction).value_or("");
    }
    void Type(JsonValue value) {
        const double number = JsonReader::Number(value);
        if (number == opaqueType || number == transparentType)
            construction.type = static_cast<std::int16_t>(number);
        else
            reader.FailExpecting("not-allowed", value, typeNumbers);
    }
    void CommentsOf(JsonValue array) { comments = ReadComments(reader, array); }

    void Layers(JsonValue array) {
        const std::size_t count = array.ItemCount();
        if (count > maxLayers) {
            reader.Fail("too-many-layers", array,
                        "expected at most 15 layers, got " + std::to_string(count));
            return;
        }
        int slot = 0;
        reader.ReadItems(array, [&](JsonValue item) {
            LayerReader layer(reader, userLibraryNamed);
            slot = layer.Read(item, slot);
            if (slot <= maxLayers)
                construction.layers.Edit(slot) = std::move(layer.Taken());
        });
    }

    const NameRules& names;
    JsonReader& reader;
    bool userLibraryNamed;
    Project& project;
    Construction construction;
    CommentLines comments;
};

} // namespace

void ReadConstruction(const NameRules& names, JsonValue object, bool userLibraryNamed,
                      Project& project) {
    ConstructionReader(names, userLibraryNamed, project).Read(object);
}

} // namespace strativo
