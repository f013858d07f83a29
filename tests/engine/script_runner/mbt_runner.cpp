// Runs one MapBasic script test (.mbt) against a fresh Engine; exits 0 when every line holds,
// 1 with the file, line and difference at the first one that does not, 2 for a bad script.
//
// Script format, one item per line:
//   # text                 a comment; blank lines are skipped too
//   <statement>            a statement that must succeed (Engine::run)
//   = <expression>         an expression (Engine::evaluate), followed by either
//   -> <text>              the text eval must give (everything after "-> "; "->" alone is "")
//   !> <code> [message]    after a statement or an "= expression": the MbError it must raise,
//                          its code and, when given, its exact message
//   @tables                writes the standard GDAL test tables into $TMP
//   @copy <name>           copies tests/engine/data/<name> (a file, or a folder's files) into
//                          $TMP, byte for byte, so that a workspace and its tables sit together
// "$TMP" anywhere in a line is replaced by a fresh temporary folder, removed at the end.

#include "app/sample_tables/sample_tables.h"
#include "engine/engine.h"
#include "engine/mb_error.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

namespace {

using vellant::engine::Engine;
using vellant::engine::MbError;

struct Line {
    int number = 0;
    std::string text;
};

struct Outcome {
    std::string text; // eval text when no error
    std::optional<MbError> error;
};

class TempFolder {
public:
    TempFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "mbt_XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
        path_ = pattern;
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

bool startsWith(const std::string& text, const std::string& prefix) {
    return text.compare(0, prefix.size(), prefix) == 0;
}

std::string replaceAll(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

class ScriptRun {
public:
    ScriptRun(std::string file, std::vector<Line> lines, std::string tmp)
        : file_(std::move(file)), lines_(std::move(lines)), tmp_(std::move(tmp)) {}

    int run() {
        while (at_ < lines_.size()) {
            const Line& line = lines_[at_++];
            if (!step(line)) return 1;
        }
        return 0;
    }

private:
    bool fail(const Line& line, const std::string& what) {
        std::cerr << file_ << ":" << line.number << ": " << line.text << "\n  " << what << "\n";
        return false;
    }

    const Line* takeFollowing(const std::string& prefix) {
        if (at_ < lines_.size() && startsWith(lines_[at_].text, prefix)) return &lines_[at_++];
        return nullptr;
    }

    bool step(const Line& line) {
        if (line.text == "@tables") {
            vellant::samples::writeSampleTables(tmp_);
            return true;
        }
        if (startsWith(line.text, "@copy ")) return copyData(line, trimmed(line.text.substr(6)));
        if (startsWith(line.text, "->") || startsWith(line.text, "!>")) {
            return fail(line, "an expectation must follow a statement or an \"= expression\"");
        }
        const bool isExpression = startsWith(line.text, "=");
        Outcome outcome;
        try {
            if (isExpression) {
                outcome.text = engine_.evaluate(line.text.substr(1)).toEvalText();
            } else {
                engine_.run(line.text);
            }
        } catch (const MbError& error) {
            outcome.error = error;
        }

        if (const Line* expectedError = takeFollowing("!>")) {
            return checkError(line, *expectedError, outcome);
        }
        if (outcome.error) {
            return fail(line, "raised " + std::to_string(outcome.error->code()) + " " +
                                  outcome.error->what());
        }
        if (!isExpression) return true;
        const Line* expected = takeFollowing("->");
        if (expected == nullptr) return fail(line, "an \"= expression\" needs a \"->\" line");
        const std::string wanted =
            expected->text.size() > 3 ? expected->text.substr(3) : std::string();
        if (outcome.text != wanted) {
            return fail(line, "expected [" + wanted + "]\n  got      [" + outcome.text + "]");
        }
        return true;
    }

    bool copyData(const Line& line, const std::string& name) {
        const std::filesystem::path data =
            std::filesystem::path(file_).parent_path().parent_path() / "data" / name;
        std::error_code error;
        const auto options = std::filesystem::copy_options::recursive |
                             std::filesystem::copy_options::overwrite_existing;
        std::filesystem::copy(data, tmp_, options, error);
        if (error) return fail(line, "cannot copy " + data.string() + ": " + error.message());
        return true;
    }

    bool checkError(const Line& line, const Line& expectation, const Outcome& outcome) {
        const std::string expectedError = trimmed(expectation.text.substr(2));
        const std::size_t blank = expectedError.find(' ');
        const std::string codeText = expectedError.substr(0, blank);
        const std::string message =
            blank == std::string::npos ? "" : trimmed(expectedError.substr(blank));
        char* end = nullptr;
        const long code = std::strtol(codeText.c_str(), &end, 10);
        if (codeText.empty() || *end != '\0') {
            return fail(expectation, "\"!>\" needs an error code");
        }
        if (!outcome.error) {
            return fail(line, "expected error " + expectedError + "\n  but it succeeded" +
                                  (outcome.text.empty() ? "" : " with [" + outcome.text + "]"));
        }
        const std::string got = std::to_string(outcome.error->code()) + " " + outcome.error->what();
        if (outcome.error->code() != code ||
            (!message.empty() && message != outcome.error->what())) {
            return fail(line, "expected error " + expectedError + "\n  got            " + got);
        }
        return true;
    }

    std::string file_;
    std::vector<Line> lines_;
    std::string tmp_;
    std::size_t at_ = 0;
    Engine engine_;
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: mbt_runner SCRIPT.mbt\n";
        return 2;
    }
    std::ifstream in(argv[1]);
    if (!in) {
        std::cerr << "cannot read " << argv[1] << "\n";
        return 2;
    }
    try {
        TempFolder tmp;
        std::vector<Line> lines;
        std::string text;
        for (int number = 1; std::getline(in, text); ++number) {
            if (!text.empty() && text.back() == '\r') text.pop_back();
            if (trimmed(text).empty() || startsWith(trimmed(text), "#")) continue;
            lines.push_back({number, replaceAll(text, "$TMP", tmp.path())});
        }
        return ScriptRun(argv[1], std::move(lines), tmp.path()).run();
    } catch (const std::exception& error) {
        // Anything but an MbError escaping the engine is a fault of its own.
        std::cerr << argv[1] << ": " << error.what() << "\n";
        return 1;
    }
}
