#include "cli/CommandLine.h"
#include "files/Process.h"

#include <csignal>
#include <iostream>

int main(int argc, char** argv) {
    strativo::PrepareProcess();
    std::signal(SIGPIPE, SIG_DFL); // a reader who has enough ends the program without a word
    std::ios::sync_with_stdio(false);
    return strativo::RunCommandLine(argc, argv, std::cout, std::cerr);
}
