// vellant-brief: writes the product brief that the information form opens. The build runs it
// to put vellantpb.pdf beside the demo data.

#include "app/brief/product_brief.h"

#include <QGuiApplication>
#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: vellant-brief FILE.pdf\n";
        return 2;
    }
    // Fonts need a platform; a build machine has no display.
    if (std::getenv("QT_QPA_PLATFORM") == nullptr) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QGuiApplication app(argc, argv);
    if (!vellant::brief::writeProductBrief(QString::fromLocal8Bit(argv[1]))) {
        std::cerr << "vellant-brief: cannot write " << argv[1] << "\n";
        return 1;
    }
    return 0;
}
