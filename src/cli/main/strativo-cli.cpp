#include "cli/CommandLine.h"

#include <iostream>

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    return strativo::RunCommandLine(argc, argv, std::cout, std::cerr);
}
