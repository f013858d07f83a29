// vellant-mb [WORKSPACE]: a MapBasic shell on the embedded host, talking to it through the
// host's automation object as the program does. It opens the workspace when one is given,
// then answers standard input a line at a time (see engine/host/mb_shell.h). A workspace that
// fails to open prints "! <code> <message>" and the shell goes on. The exit status is 0 when
// every line succeeded, 1 otherwise.

#include "engine/engine.h"
#include "engine/host/mapinfo_automation.h"
#include "engine/host/mb_shell.h"
#include "engine/mb_error.h"
#include "engine/workspace/workspace_loader.h"

#include <iostream>
#include <memory>
#include <string>

int main(int argc, char** argv) {
    if (argc > 2) {
        std::cerr << "usage: vellant-mb [WORKSPACE]\n";
        return 2;
    }
    auto engine = std::make_shared<vellant::engine::Engine>();
    vellant::engine::MapInfoAutomation host(engine);
    bool allSucceeded = true;

    if (argc == 2) {
        try {
            vellant::engine::loadWorkspace(*engine, argv[1]);
        } catch (const vellant::engine::MbError& e) {
            std::cout << "! " << e.code() << ' ' << e.what() << '\n';
            allSucceeded = false;
        }
    }

    std::string line;
    while (std::getline(std::cin, line)) {
        allSucceeded = vellant::engine::runShellLine(host, line, std::cout) && allSucceeded;
        std::cout.flush();
    }
    return allSucceeded ? 0 : 1;
}
