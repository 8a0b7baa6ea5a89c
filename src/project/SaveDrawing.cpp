#include "project/SaveDrawing.h"

#include "files/FileAccess.h"
#include "text/Windows1252.h"

namespace strativo {

bool SaveDrawing(const std::string& svg, Prompts& prompts) {
    const auto path =
        prompts.AskSaveFile({"Save section", "SVG drawings (*.svg)|*.svg", "", "svg"});
    if (!path || path->empty())
        return false;
    try {
        FileStamp stamp;
        ReplaceFile(
            *path, [&](const ByteSink& sink) { sink(svg); }, stamp);
        return true;
    } catch (const WriteError& error) {
        Message message{PathToUtf8(*path) + "\nThe drawing was not saved: " + error.what(), ""};
        message.encoding = Encoding::utf8;
        prompts.ShowMessage(message);
        return false;
    }
}

} // namespace strativo
