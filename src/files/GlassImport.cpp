#include "files/GlassImport.h"

#include "edit/GlassTypes.h"
#include "edit/Saying.h"
#include "edit/StateBefore.h"
#include "files/CommentedLines.h"
#include "files/ConstructionPrompts.h"
#include "files/FileAccess.h"
#include "files/FileMessages.h"
#include "files/GlassTables.h"
#include "text/Lines.h"

#include <string>

namespace strativo {

namespace {

constexpr auto npos = std::string_view::npos;

class Importer {
public:
    Importer(std::string_view bytes, Project& target) : lines(bytes), project(target) {}

    /// False for a file of another format; no input leads to that.
    bool Run() {
        while (!atEndMark && !lines.FormatBad() && !lines.AtEnd())
            if (lines.Next() && Interpret(lines.Line()) && lines.Comment())
                KeepComment(std::string(*lines.Comment()));
        return !lines.FormatBad();
    }

private:
    /// False for a part line, because its comment is the name of a layer.
    bool Interpret(std::string_view line) {
        if (Contains(line, "!EOF"))
            atEndMark = true;
        else if (Contains(line, "!WINDOW"))
            ReadWindowLine(line);
        else if (!Contains(line, "!") && Contains(line, "_") && Contains(line, "="))
            return false;
        else if (windowSeen)
            ReadAnnouncedTable(line, lines.Following(), project, is2D);
        return true;
    }

    void ReadWindowLine(std::string_view line) {
        ReadName(line);
        is2D = IsSection2D(line);
        windowSeen = true;
        if (is2D) {
            ++project.glassSectionsRead2D;
            AddGlassType2D(project, name);
        } else {
            ++project.glassSectionsRead;
            AddGlassType(project, name);
        }
    }

    /// A name that is too short repeats that of the section before.
    void ReadName(std::string_view line) {
        const auto open = line.find('\'');
        if (open == npos || open + 2 < line.size())
            name = QuotedText(line);
    }

    /// On purpose, comments are filed under the number of sections read, not under the type's slot.
    void KeepComment(std::string text) {
        Comments& comments = project.comments;
        if (!windowSeen) {
            NoteFileHead(project);
            comments.fileHead.push_back(std::move(text));
        } else if (is2D) {
            NoteGlassType2D(project, project.glassSectionsRead2D);
            comments.glassTypes2D.Add(project.glassSectionsRead2D, std::move(text));
        } else {
            NoteGlassType(project, project.glassSectionsRead);
            comments.glassTypes.Add(project.glassSectionsRead, std::move(text));
        }
    }

    CommentedLines lines;
    Project& project;
    std::string name;
    bool windowSeen = false;
    bool is2D = false;
    bool atEndMark = false;
};

int SectionsRead(const Project& project) {
    return project.glassSectionsRead + project.glassSectionsRead2D;
}

void TellOfImport(Project& project, int sectionsBefore) {
    const std::string types = Counted(SectionsRead(project) - sectionsBefore, "glass type");
    NameAction(project, "import of " + types);
    Say(project, types + " imported");
}

} // namespace

bool ParseGlassDefinitions(std::string_view bytes, Project& project) {
    return Importer(bytes, project).Run();
}

ImportResult ImportGlassDefinitions(Project& project, Prompts& prompts) {
    const std::optional<std::string> path = PromptConstructionFile(project, prompts);
    if (!path)
        return ImportResult::cancelled;
    const int before = SectionsRead(project);
    try {
        if (!ParseGlassDefinitions(ReadFileBytes(*path), project))
            prompts.ShowMessage({incorrectFormat, ""});
        TellOfImport(project, before);
        project.changed = true;
        return ImportResult::imported;
    } catch (const RuntimeError& error) {
        prompts.ShowMessage({glassImportMessages.Text(error.Number()), ""});
        TellOfImport(project, before);
        project.changed = project.changed || SectionsRead(project) > before;
        return ImportResult::stopped;
    }
}

} // namespace strativo
