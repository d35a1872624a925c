// The console program: one command a line from standard input, its answer on standard output.
#include "console.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

namespace {

// The folder of the program, beside which its files lie, whatever the name is that it was started by.
std::filesystem::path ProgramFolder(const char* StartedAs) {
    std::error_code Error;
    const std::filesystem::path Own = std::filesystem::read_symlink("/proc/self/exe", Error);
    return (Error ? std::filesystem::absolute(StartedAs, Error) : Own).parent_path();
}

} // namespace

int main(int /*Count*/, char* Arguments[]) {
    zonterbrook::probe::Console Console(ProgramFolder(Arguments[0]));
    std::string Line;
    while (!Console.HasQuit() && std::getline(std::cin, Line)) {
        if (Line.ends_with('\r')) {
            Line.pop_back();
        }
        std::cout << Console.Execute(Line) << std::flush;
    }
    return EXIT_SUCCESS;
}
