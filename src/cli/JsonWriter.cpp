#include "cli/JsonWriter.h"

#include "text/Format.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace strativo {

namespace {

bool NeedsEscape(char c) {
    return (c >= 0 && c < ' ') || c == '"' || c == '\\' || c == 0x7F;
}

void AppendString(std::string& out, const std::string& utf8) {
    // Most strings need no escapes; copying them is many times faster.
    if (std::none_of(utf8.begin(), utf8.end(), NeedsEscape))
        out.append(1, '"').append(utf8).append(1, '"');
    else
        out += Json(utf8).dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// Done here because the JSON library does not always choose the shortest decimal.
void AppendDouble(std::string& out, double value) {
    const std::string number = std::isfinite(value) ? FormatGeneral(value) : "null";
    out += number;
    if (number.find_first_not_of("-0123456789") == std::string::npos)
        out += ".0";
}

void AppendJson(std::string& out, const Json& value);

void AppendObject(std::string& out, const Json& object) {
    const char* separator = "";
    out += '{';
    for (const auto& [key, member] : object.items()) {
        out += separator;
        AppendString(out, key);
        out += ": ";
        AppendJson(out, member);
        separator = ", ";
    }
    out += '}';
}

void AppendArray(std::string& out, const Json& array) {
    const char* separator = "";
    out += '[';
    for (const Json& item : array) {
        out += separator;
        AppendJson(out, item);
        separator = ", ";
    }
    out += ']';
}

void AppendJson(std::string& out, const Json& value) {
    if (value.is_object())
        AppendObject(out, value);
    else if (value.is_array())
        AppendArray(out, value);
    else if (value.is_string())
        AppendString(out, value.get_ref<const std::string&>());
    else if (value.is_number_float())
        AppendDouble(out, value.get<double>());
    else
        out += value.dump();
}

} // namespace

void JsonWriter::Begin(char bracket) {
    StartItem();
    out << bracket;
    hasItems.push_back(false);
}

void JsonWriter::End(char bracket) {
    const bool onNewLine = hasItems.back() && layout != JsonLayout::line;
    hasItems.pop_back();
    if (onNewLine)
        StartLine();
    out << bracket;
    if (hasItems.empty() && layout != JsonLayout::item)
        out << '\n';
}

void JsonWriter::Key(const std::string& name) {
    StartItem();
    text.clear();
    AppendString(text, name);
    out << text << ": ";
    afterKey = true;
}

void JsonWriter::Value(const Json& value) {
    StartItem();
    text.clear();
    AppendJson(text, value);
    out << text;
}

void JsonWriter::StartItem() {
    if (afterKey) {
        afterKey = false;
        return;
    }
    if (hasItems.empty()) {
        if (layout == JsonLayout::item)
            StartLine();
        return;
    }
    const bool isFirst = !hasItems.back();
    hasItems.back() = true;
    if (layout == JsonLayout::line) {
        out << (isFirst ? "" : ", ");
        return;
    }
    out << (isFirst ? "" : ",");
    StartLine();
}

void JsonWriter::StartLine() {
    constexpr std::size_t indent = 2;
    const std::size_t depth = hasItems.size() + (layout == JsonLayout::item ? 1 : 0);
    out << '\n' << std::string(indent * depth, ' ');
}

} // namespace strativo
