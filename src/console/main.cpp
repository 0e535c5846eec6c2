#include "console/Console.h"

int main(int argc, char** argv) {
    return quillon::console::Main(argc, argv);
}
