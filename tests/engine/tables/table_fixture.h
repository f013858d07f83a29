#pragma once
// A folder of GDAL-made test tables for one test suite, and an engine to open them in.

#include "app/sample_tables/sample_tables.h"
#include "engine/engine.h"
#include "engine/mb_error.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <unistd.h>

namespace vellant::engine::testing {

class TableFolder {
public:
    explicit TableFolder(const std::string& suite) {
        folder_ = std::filesystem::temp_directory_path() /
                  ("vellant_tables_" + suite + "_" + std::to_string(::getpid()));
        std::filesystem::remove_all(folder_);
        samples::writeSampleTables(folder_.string());
    }
    ~TableFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    TableFolder(const TableFolder&) = delete;
    TableFolder& operator=(const TableFolder&) = delete;

    const std::filesystem::path& path() const { return folder_; }
    std::string file(const std::string& name) const { return (folder_ / name).string(); }

private:
    std::filesystem::path folder_;
};

// The error a statement or expression raises; fails the test when it raises none.
template <typename Action> MbError raisedBy(Action action) {
    try {
        action();
    } catch (const MbError& error) {
        return error;
    }
    ADD_FAILURE() << "no MbError was raised";
    return MbError(0, "");
}

} // namespace vellant::engine::testing
