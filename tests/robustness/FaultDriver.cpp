// The program that a fault library is preloaded into. It saves or reads a construction file with
// the library armed, and prints what came of it, one fact a line.
//
//   fault-driver save FILE        reads the file, changes it, saves it with faults
//   fault-driver save-again FILE  the same, and saves once more without faults
//   fault-driver save-new FILE    saves a project that has no file yet
//   fault-driver read FILE        reads the file with faults
//   fault-driver keep FILE        reads the file, changes it, makes a recovery copy with faults
//   fault-driver keep-again FILE  the same, where there is a copy of an earlier change

#include "edit/ConstructionEntry.h"
#include "edit/LayerClipboard.h"
#include "project/FileCommands.h"
#include "project/NewProject.h"
#include "project/ReadConstructionFile.h"
#include "project/WorkKeeper.h"

#include <algorithm>
#include <dlfcn.h>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>

using namespace strativo;

namespace {

/// Prints what it is told, says yes to every question and takes one file name for every prompt.
class PrintingPrompts : public Prompts {
public:
    explicit PrintingPrompts(std::string path) : file(std::move(path)) {}

    Answer ShowMessage(const Message& message) override {
        std::string text = message.text;
        std::replace_if(
            text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, '|');
        std::cout << (message.buttons == Buttons::ok ? "message " : "question ") << text << '\n';
        return message.buttons == Buttons::ok ? Answer::ok : Answer::yes;
    }
    std::optional<std::string> AskOpenFile(const FilePrompt&) override { return std::nullopt; }
    std::optional<std::string> AskSaveFile(const FilePrompt&) override { return file; }
    void Beep() override { std::cout << "beep\n"; }

private:
    std::string file;
};

void Call(const char* name) {
    if (void* function = dlsym(RTLD_DEFAULT, name))
        reinterpret_cast<void (*)()>(function)();
    else
        std::cout << "no fault library\n";
}

/// The program's state, with all output on its way before a kill can lose it.
void Print(const Project& project) {
    std::cout << "changed " << project.changed << "\nfile " << project.constructionFile
              << "\nconstructions " << project.constructionCount << std::endl;
}

void Save(Project& project, Prompts& prompts, bool again) {
    std::cout << "ready" << std::endl;
    Call("ArmFaults");
    const bool saved = SaveProject(project, prompts);
    Call("DisarmFaults");
    std::cout << "saved " << saved << '\n';
    Print(project);
    if (again)
        std::cout << "again " << SaveProject(project, prompts) << std::endl;
}

void Read(Project& project, const std::string& file, Prompts& prompts) {
    std::cout << "ready" << std::endl;
    Call("ArmFaults");
    ReadConstructionFile(project, file, prompts);
    Call("DisarmFaults");
    Print(project);
}

/// Copies go into the folders "copies" and "more-copies" of the working directory.
void Keep(Project& project, bool again) {
    const std::string here = std::filesystem::current_path().string();
    WorkKeeper keeper({here + "/copies", here + "/more-copies"}, KeepIntervals());
    keeper.KeepNow(project); // as it was read: nothing to keep
    if (again) {
        project.constructions[1].name = "earlier";
        keeper.KeepNow(project);
        keeper.TakeNotice();
    }
    project.constructions[1].name = "later";
    project.changed = true;
    std::cout << "ready" << std::endl;
    Call("ArmFaults");
    keeper.KeepNow(project);
    Call("DisarmFaults");
    std::cout << "kept " << (keeper.TakeNotice() != KeepNotice::notKept) << std::endl;
}

void Run(std::string_view command, const std::string& file) {
    PrintingPrompts prompts(file);
    Project project;
    Settings settings;
    settings.stdMat = "stdmat.lby";
    StartUp(project, settings);
    if (command == "read")
        return Read(project, file, prompts);
    if (command == "save-new") {
        NewConstruction(project, prompts);
        project.selectedMaterial = 1;
        TakeMaterial(project);
        PasteLayers(project, prompts);
    } else {
        ReadConstructionFile(project, file, prompts);
    }
    if (command.starts_with("keep"))
        return Keep(project, command == "keep-again");
    EnterThickness(project, 1, "250", prompts);
    Save(project, prompts, command == "save-again");
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    try {
        Run(argv[1], argv[2]);
    } catch (const ProgramEnd&) {
        Call("DisarmFaults");
    }
    return 0;
}
