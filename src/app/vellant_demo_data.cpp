// vellant-demo-data DIR: writes the demo tables (made with GDAL) and the two demo workspaces
// into DIR: demo.wor (every kind of layer, what the replay runs) and world.wor (the world map
// the desktop opens). Prints their paths. Exit status 0 when all was written, 2 for a wrong
// call, 1 when a file could not be written.

#include "app/sample_tables/demo_data.h"
#include "app/sample_tables/world_demo.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: vellant-demo-data DIR\n";
        return 2;
    }
    try {
        std::cout << vellant::samples::writeDemoData(argv[1]) << '\n';
        std::cout << vellant::samples::writeWorldDemo(argv[1]) << '\n';
    } catch (const std::exception& e) {
        std::cerr << "vellant-demo-data: " << e.what() << '\n';
        return 1;
    }
    return 0;
}
