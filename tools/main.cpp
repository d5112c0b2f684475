#include "tools/Program.h"

int main(int argc, char** argv) {
    return tool::runProgram(argc, argv);
}
