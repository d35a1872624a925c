// The console program: one command a line from standard input, its answer on standard output.
#include "console.h"

#include <cstdlib>
#include <iostream>
#include <string>

int main() {
    zonterbrook::probe::Console Console;
    std::string Line;
    while (!Console.HasQuit() && std::getline(std::cin, Line)) {
        if (Line.ends_with('\r')) {
            Line.pop_back();
        }
        std::cout << Console.Execute(Line) << std::flush;
    }
    return EXIT_SUCCESS;
}
