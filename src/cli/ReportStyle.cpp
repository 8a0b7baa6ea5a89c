#include "cli/ReportStyle.h"

#include "text/Windows1252.h"

namespace strativo {

namespace {

constexpr char rules[] =
    "body { font: 9.5pt/1.4 'Liberation Sans', 'DejaVu Sans', sans-serif; color: #222;"
    " max-width: 174mm; margin: 1.5em auto; padding: 0 1em; }\n"
    "h1 { font-size: 22pt; line-height: 1.2; margin: 0 0 1mm; overflow-wrap: anywhere; }\n"
    "h2 { font-size: 14pt; margin: 9mm 0 2mm; padding-bottom: 1mm;"
    " border-bottom: .6mm solid #1f4e9e; overflow-wrap: anywhere; break-after: avoid; }\n"
    "h2 .kind { float: right; font-size: 9pt; font-weight: normal; color: #555;"
    " padding-top: 1.8mm; }\n"
    "h3 { font-size: 9.5pt; margin: 4mm 0 1mm; break-after: avoid; }\n"
    ".lead { font-size: 12pt; color: #555; margin: 0 0 6mm; }\n"
    "section { break-inside: avoid; }\n"
    "table { border-collapse: collapse; width: 100%; font-size: 8.5pt;"
    " font-variant-numeric: tabular-nums; }\n"
    "thead { display: table-header-group; } tr { break-inside: avoid; }\n"
    "th, td { border-bottom: .2mm solid #ccc; padding: .7mm 1.6mm; text-align: right;"
    " vertical-align: baseline; }\n"
    "thead th { background: #eef2f6; border-bottom: .3mm solid #889; vertical-align: bottom; }\n"
    "tbody th { font-weight: normal; } .text { text-align: left; overflow-wrap: anywhere; }\n"
    ".word { text-align: left; white-space: nowrap; }"
    " .overview thead th { white-space: nowrap; }\n"
    ".unit { font-weight: normal; color: #555; white-space: nowrap; }\n"
    "tfoot td { font-weight: bold; border-bottom: 0; }\n"
    ".chosen td, .chosen th { font-weight: bold; }\n"
    ".about { width: auto; } .about th, .about td { border: 0; padding: .3mm 4mm .3mm 0;"
    " text-align: left; overflow-wrap: anywhere; } .about th { color: #555;"
    " font-weight: normal; white-space: nowrap; }\n"
    ".figures { display: flex; flex-wrap: wrap; gap: 2mm; margin: 2mm 0 3mm; padding: 0; }\n"
    ".figures div { flex: 1 1 0; min-width: 23mm; background: #f4f6f9; border: .2mm solid #ccd;"
    " padding: 1mm 2mm; }\n"
    ".figures dt { font-size: 7.5pt; color: #555; } .figures dd { margin: 0; font-size: 12pt;"
    " font-weight: bold; white-space: nowrap; } .figures .unit { font-size: 8pt; }\n"
    ".pair { display: flex; gap: 5mm; align-items: flex-start; } .pair > div { flex: 1 1 0; }\n"
    ".comments { margin: 1mm 0 2mm; padding-left: 2.5mm; border-left: .8mm solid #ccd;"
    " color: #444; font-style: italic; white-space: pre-wrap; overflow-wrap: anywhere; }\n"
    ".note { color: #555; font-size: 8pt; margin: 1.5mm 0; }\n"
    ".key { display: inline-block; width: .9em; height: .9em; border: .2mm solid #555;"
    " vertical-align: -.1em; margin-right: .5em; }\n"
    ".keys span { white-space: nowrap; margin-right: 1.2em; }\n"
    ".reading { break-inside: avoid; margin: 5mm 0 7mm; }\n"
    "svg { display: block; max-width: 100%; height: auto; margin: 1mm 0; }\n"
    "a { color: inherit; text-decoration: none; }\n"
    "@media print { body { margin: 0; padding: 0; max-width: none; }\n"
    " section { margin-bottom: 6mm; } section h2, .reading h3 { margin-top: 0; }\n"
    " th, .key, .figures div { -webkit-print-color-adjust: exact;"
    " print-color-adjust: exact; } }\n";

bool IsPlain(unsigned char code) {
    return code >= 0x80 || (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z')
           || (code >= 'a' && code <= 'z');
}

/// UTF-8 as a string in a style sheet inside a page. Everything except letters and digits is
/// written as its code, so that no text can end the string, the sheet or the page element.
std::string StyleString(const std::string& utf8) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text = "\"";
    for (const char c : utf8) {
        const auto code = static_cast<unsigned char>(c);
        if (IsPlain(code))
            text += c;
        else if (code >= ' ')
            text += std::string("\\") + digits[code / 16] + digits[code % 16] + ' ';
    }
    return text + '"';
}

std::string EdgeBox(const char* edge, const std::string& content) {
    return std::string(" @") + edge + " { content: " + content
           + "; font: 7.5pt 'Liberation Sans', 'DejaVu Sans', sans-serif; color: #555; }\n";
}

} // namespace

std::string ReportStyleSheet(const ReportDetails& details) {
    return "@page { size: A4; margin: 19mm 18mm 17mm;\n"
           + EdgeBox("top-left", StyleString(PathToUtf8(details.file)))
           + EdgeBox("top-right", StyleString(details.date))
           + EdgeBox("bottom-left", StyleString(details.program))
           + EdgeBox("bottom-right", "\"Page \" counter(page) \" of \" counter(pages)") + "}\n"
           + rules;
}

} // namespace strativo
