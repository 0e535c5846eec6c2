#include "desktop/Desktop.h"

int main(int argc, char** argv) {
    return quillon::desktop::Main(argc, argv);
}
