#include "project/SaveDrawing.h"

#include "files/FileAccess.h"
#include "files/FileMessages.h"
#include "text/Windows1252.h"

namespace strativo {

bool SaveDrawing(const std::string& svg, Prompts& prompts) {
    const auto path =
        prompts.AskSaveFile({"Save section", "SVG drawings (*.svg)|*.svg", "", "svg"});
    if (!path || path->empty())
        return false;
    const auto tell = [&](const std::string& what) {
        Message message{PathToUtf8(*path) + "\n" + what, ""};
        message.encoding = Encoding::utf8;
        prompts.ShowMessage(message);
    };
    try {
        FileStamp stamp;
        const std::string notSafe = ReplaceFile(
            *path, [&](const ByteSink& sink) { sink(svg); }, stamp);
        if (!notSafe.empty())
            tell(savedButNotSafe + notSafe);
        return true;
    } catch (const WriteError& error) {
        tell(std::string("The drawing was not saved: ") + error.what());
        return false;
    }
}

} // namespace strativo
