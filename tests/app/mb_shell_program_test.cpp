// The MapBasic shell as a user runs it: a workspace saved on a Cyrillic Windows machine opens,
// and the shell answers with the names as they were written there.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Folder {
    Folder() {
        std::string pattern = (fs::temp_directory_path() / "vellant-mb-test-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) std::abort();
        path = pattern;
    }
    ~Folder() { fs::remove_all(path); }
    fs::path path;
};

// Runs vellant-mb with the lines on standard input; answers its exit status and output lines.
std::pair<int, std::vector<std::string>> runShell(const fs::path& folder, const std::string& input,
                                                  const std::string& workspace = "") {
    const fs::path in = folder / "input.mb", out = folder / "output.txt";
    std::ofstream(in) << input;
    std::string command = std::string("'") + VELLANT_MB_EXECUTABLE + "'";
    if (!workspace.empty()) command += " '" + workspace + "'";
    command += " < '" + in.string() + "' > '" + out.string() + "' 2>&1";
    const int status = std::system(command.c_str());
    std::vector<std::string> lines;
    std::ifstream read(out);
    for (std::string line; std::getline(read, line);)
        lines.push_back(line);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, lines};
}

TEST(MbShellProgram, AnswersACyrillicWorkspaceWithItsOwnNames) {
    Folder folder;
    const std::string table = (folder.path / "Города.tab").string();
    const auto [made, madeOutput] = runShell(
        folder.path, "Create Table Города (Назва Char(30), Население Integer) File \"" + table +
                         "\"\n"
                         "Create Map For Города CoordSys Earth Projection 1, 104\n"
                         "Dim p As Object\n"
                         "Create Point Into Variable p (37.62, 55.75)\n"
                         "Insert Into Города (Назва, Население, Obj) Values "
                         "(\"Москва\", 13100000, p)\n"
                         "Commit Table Города\n");
    ASSERT_EQ(made, 0) << ::testing::PrintToString(madeOutput);

    // The workspace names the table "Города.TAB" in cp1251; the file on disk is "Города.tab".
    fs::copy_file(fs::path(VELLANT_TEST_DATA) / "realfiles_cyrillic" / "cyrillic.wor",
                  folder.path / "cyrillic.wor");
    const auto [status, answers] = runShell(folder.path,
                                            "=NumTables()\n"
                                            "=MapperInfo(WindowID(1), 9)\n"
                                            "=WindowInfo(WindowID(1), 1)\n"
                                            "=LayerInfo(WindowID(1), 1, 1)\n"
                                            "=ColumnInfo(Города, \"Col2\", 1)\n"
                                            "Fetch First From Города\n"
                                            "=Города.Назва + Str$(Города.Col2)\n",
                                            (folder.path / "cyrillic.wor").string());
    EXPECT_EQ(status, 0);
    const std::vector<std::string> expected = {"1",      "1",         "Карта городов",
                                               "Города", "Население", "Москва13100000"};
    EXPECT_EQ(answers, expected);
}

} // namespace
