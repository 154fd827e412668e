#include <iostream>

#include "app/cli_program.h"

int main(int argc, char* argv[]) {
    return orvent::app::runCli({argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)}, std::cout, std::cerr);
}
