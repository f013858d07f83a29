#pragma once
// An engine with the GDAL test tables open, and short ways to run statements and read eval
// text, for the window tests.

#include "app/sample_tables/sample_tables.h"
#include "engine/engine.h"
#include "engine/mb_error.h"
#include "engine/windows/window_manager.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <unistd.h>

namespace vellant::engine::testing {

class WindowTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        // One folder per process: test processes run side by side.
        folder() = (std::filesystem::temp_directory_path() /
                    ("vellant_window_tables_" + std::to_string(::getpid())))
                       .string();
        samples::writeSampleTables(folder());
    }
    static void TearDownTestSuite() { std::filesystem::remove_all(folder()); }

    static std::string& folder() {
        static std::string path;
        return path;
    }

    void open(std::string_view table) {
        engine.run("Open Table \"" + folder() + "/" + std::string(table) + ".tab\"");
    }

    // Opens the tables and maps them; answers the new window's id.
    int mapFrom(std::string_view tables) {
        engine.run("Map From " + std::string(tables));
        return engine.windows().frontWindow();
    }

    void run(const std::string& statement) { engine.run(statement); }

    std::string eval(const std::string& expression) {
        return engine.evaluate(expression).toEvalText();
    }

    double number(const std::string& expression) { return engine.evaluate(expression).asNumber(); }

    // The error a statement raises; code 0 when it succeeds.
    MbError runError(const std::string& statement) {
        try {
            engine.run(statement);
        } catch (const MbError& e) {
            return e;
        }
        return MbError(0, "");
    }

    MbError evalError(const std::string& expression) {
        try {
            engine.evaluate(expression);
        } catch (const MbError& e) {
            return e;
        }
        return MbError(0, "");
    }

    static std::string id(int window) { return std::to_string(window); }

    Engine engine;
};

} // namespace vellant::engine::testing
