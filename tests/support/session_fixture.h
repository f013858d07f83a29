#pragma once
// A session on the headless toolkit with its own application directory, for tests of the
// program's procedures.

#include "platform/scripted_toolkit.h"
#include "session/session.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace vellant::testing {

// A fresh directory under the test temp dir, removed with the object.
class TempDir {
public:
    TempDir() {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string("vellant_") + (info ? info->test_suite_name() : "t") + "_" +
                           (info ? info->name() : "x");
        for (char& c : name)
            if (c == '/') c = '_';
        path_ = std::filesystem::path(::testing::TempDir()) / name;
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~TempDir() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    std::string str() const { return path_.string(); }
    std::string file(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

inline std::vector<unsigned char> readBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void writeBytes(const std::string& path, const std::vector<unsigned char>& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
}

inline std::string readText(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// A session whose current form is a floating layer form; the host kind is the test's choice.
class SessionFixture : public ::testing::Test {
protected:
    SessionFixture() {
        session = std::make_unique<session::Session>(toolkit, dir.str());
        form = std::make_unique<session::vlLayerControl>(toolkit);
        session->gLayerForm = form.get();
    }

    // A second session over the same application directory, as the next call of the public
    // method would have.
    std::unique_ptr<session::Session> nextSession() {
        auto next = std::make_unique<session::Session>(toolkit, dir.str());
        next->gLayerForm = form.get();
        return next;
    }

    std::string log() const { return readText(dir.file("Vellant.log")); }

    TempDir dir;
    platform::ScriptedToolkit toolkit;
    std::unique_ptr<session::vlLayerControl> form;
    std::unique_ptr<session::Session> session;
};

} // namespace vellant::testing
