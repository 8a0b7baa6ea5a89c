#include "cli/CommandLine.h"
#include "files/Process.h"

#include <iostream>

int main(int argc, char** argv) {
    strativo::PrepareProcess();
    std::ios::sync_with_stdio(false);
    return strativo::RunCommandLine(argc, argv, std::cout, std::cerr);
}
