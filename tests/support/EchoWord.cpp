// Prints its first argument as it is, for the tests of what starts programs.

#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 2) {
        return 1;
    }
    std::fputs(argv[1], stdout);
    return 0;
}
