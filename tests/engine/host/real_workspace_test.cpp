// Workspaces written on other machines: in the charsets of Windows, with Windows paths, with
// what MapInfo writes for windows the engine does not show. What fails leaves nothing open.

#include "engine/engine.h"
#include "engine/mb_error.h"
#include "engine/workspace/workspace_charset.h"
#include "engine/workspace/workspace_loader.h"
#include "engine/workspace/workspace_writer.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iconv.h>
#include <ostream>
#include <string>
#include <unistd.h>

namespace vellant::engine {
namespace {

class Folder {
public:
    explicit Folder(const std::string& name)
        : path_(std::filesystem::temp_directory_path() /
                ("vellant_realwor_" + name + "_" + std::to_string(::getpid()))) {
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    const std::filesystem::path& path() const { return path_; }
    std::string file(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

std::string eval(Engine& engine, const std::string& expression) {
    return engine.evaluate(expression).toEvalText();
}

// UTF-8 to a code page with the system's iconv, as a Windows editor would have saved it.
std::string encoded(const std::string& utf8, const char* codePage) {
    iconv_t handle = iconv_open(codePage, "UTF-8");
    EXPECT_NE(handle, reinterpret_cast<iconv_t>(-1));
    std::string input = utf8;
    std::string output(utf8.size() * 4 + 16, '\0');
    char* in = input.data();
    char* out = output.data();
    std::size_t inLeft = input.size(), outLeft = output.size();
    EXPECT_NE(iconv(handle, &in, &inLeft, &out, &outLeft), static_cast<std::size_t>(-1));
    iconv_close(handle);
    output.resize(output.size() - outLeft);
    return output;
}

void writeFile(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

std::string readFile(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), {});
}

// A table written with its rows, so that a workspace has something to open.
void writeTable(const std::string& file, const std::string& table, const std::string& column,
                const std::string& value) {
    Engine engine;
    engine.run("Create Table " + table + " (" + column + " Char(30), Pop Integer) File \"" + file +
               "\"");
    engine.run("Create Map For " + table + " CoordSys Earth Projection 1, 104");
    engine.run("Dim p As Object");
    engine.run("Create Point Into Variable p (30.5, 50.4)");
    engine.run("Insert Into " + table + " (" + column + ", Pop, Obj) Values (\"" + value +
               "\", 1200, p)");
    engine.run("Commit Table " + table);
}

struct CharsetCase {
    const char* name;
    const char* charset;  // as the workspace names it
    const char* codePage; // iconv's name
    const char* table;
    const char* column;
    const char* value;
    const char* title;
};

// Failures name the case.
std::ostream& operator<<(std::ostream& out, const CharsetCase& c) {
    return out << c.name;
}

class CharsetWorkspaceTest : public ::testing::TestWithParam<CharsetCase> {};

TEST_P(CharsetWorkspaceTest, LoadsAndSavesBackTheSameNames) {
    const CharsetCase& c = GetParam();
    Folder folder(c.name);
    writeTable(folder.file(std::string(c.table) + ".tab"), c.table, c.column, c.value);
    const std::string text = std::string("!Workspace\r\n!Version  600\r\n!Charset ") + c.charset +
                             "\r\nOpen Table \"" + c.table + ".TAB\" As " + c.table +
                             " Interactive\r\nMap From " + c.table +
                             "\r\n  Position (0.05,0.05) Units \"in\"\r\n"
                             "  Width 6.6 Units \"in\" Height 4.3 Units \"in\"\r\n"
                             "Set Map\r\n  Layer 1\r\n    Display Graphic\r\n    Label With " +
                             c.column + " + \" \" + Str$(Pop)\r\n      Auto On\r\n" +
                             "Set Window FrontWindow() Title \"" + c.title + "\"\r\n";
    const std::filesystem::path workspace = folder.path() / "map.wor";
    writeFile(workspace, encoded(text, c.codePage));

    const auto check = [&](Engine& engine, const std::string& when) {
        SCOPED_TRACE(when);
        EXPECT_EQ(eval(engine, "NumTables()"), "1");
        EXPECT_EQ(eval(engine, "TableInfo(1, 1)"), c.table);
        EXPECT_EQ(eval(engine, "ColumnInfo(1, \"col1\", 1)"), c.column);
        engine.run(std::string("Fetch First From ") + c.table);
        EXPECT_EQ(eval(engine, std::string(c.table) + "." + c.column), c.value);
        EXPECT_EQ(eval(engine, "WindowInfo(FrontWindow(), 1)"), c.title);
        EXPECT_EQ(eval(engine, "MapperInfo(FrontWindow(), 9)"), "1");
        EXPECT_EQ(eval(engine, "LayerInfo(FrontWindow(), 1, 1)"), c.table);
        EXPECT_EQ(eval(engine, "LayerInfo(FrontWindow(), 1, 15)"),
                  std::string(c.column) + " + \" \" + Str$(Pop)");
    };
    Engine engine;
    loadWorkspace(engine, workspace);
    check(engine, "as written on Windows");

    const std::filesystem::path saved = folder.path() / "saved.wor";
    engine.run("Save Workspace As \"" + saved.string() + "\"");
    const std::string savedText = readFile(saved);
    EXPECT_NE(savedText.find("!Charset UTF-8\n"), std::string::npos) << savedText;
    EXPECT_NE(savedText.find(c.title), std::string::npos) << "titles are written in UTF-8";
    Engine again;
    again.run("Run Application \"" + saved.string() + "\"");
    check(again, "as saved");
}

INSTANTIATE_TEST_SUITE_P(
    Charsets, CharsetWorkspaceTest,
    ::testing::Values(CharsetCase{"Cyrillic", "WindowsCyrillic", "CP1251", "Города", "Назва",
                                  "Київ", "Карта городов"},
                      CharsetCase{"WesternEuropean", "WindowsLatin1", "CP1252", "Städte", "Straße",
                                  "Größe", "Übersicht Straßen"},
                      CharsetCase{"Greek", "windowsgreek", "CP1253", "Poleis", "Onoma", "Αθήνα",
                                  "Χάρτης"}),
    [](const ::testing::TestParamInfo<CharsetCase>& c) { return c.param.name; });

MbError loadFailure(Engine& engine, const std::string& text, const std::filesystem::path& folder) {
    try {
        loadWorkspaceText(engine, text, folder);
    } catch (const MbError& e) {
        return e;
    }
    ADD_FAILURE() << "the workspace loaded";
    return MbError(0, "");
}

TEST(RealWorkspace, CharsetErrorsNameTheLine) {
    Engine engine;
    const auto folder = std::filesystem::temp_directory_path();
    MbError e =
        loadFailure(engine, "!Workspace\n!Version 600\n!Charset Klingon\nStatusbar hide\n", folder);
    EXPECT_EQ(e.code(), kMbInvalidFormat);
    EXPECT_EQ(std::string(e.what()), "Unknown charset Klingon at line 3.");
    EXPECT_TRUE(engine.evaluate("NumWindows()").asNumber() == 0);

    e = loadFailure(engine, "!Workspace\n!Charset UTF-8\nDim a As String\n\na = \"\xff\xfe\"\n",
                    folder);
    EXPECT_EQ(std::string(e.what()), "Text not in UTF-8 at line 5.");
    // 0x81 has no character in Windows-1252.
    e = loadFailure(
        engine, "!Workspace\r\n!Charset WindowsLatin1\r\nDim a As String\r\na = \"\x81\"", folder);
    EXPECT_EQ(std::string(e.what()), "Text not in WindowsLatin1 at line 4.");
}

TEST(RealWorkspace, NeutralAndMissingCharsetsKeepTheBytes) {
    for (const char* header : {"!Charset Neutral\n", ""}) {
        Engine engine;
        loadWorkspaceText(
            engine, std::string("!Workspace\n") + header + "Dim a As String\na = \"caf\xc3\xa9\"\n",
            ".");
        EXPECT_EQ(eval(engine, "a"), "caf\xc3\xa9");
    }
}

TEST(RealWorkspace, SaveWritesNeutralForPlainText) {
    Engine engine;
    EXPECT_EQ(
        workspaceFor(engine, ".").text.rfind("!Workspace\n!Version 950\n!Charset Neutral\n", 0),
        0u);
    EXPECT_EQ(charsetForText("Straße"), "UTF-8");
}

TEST(RealWorkspace, AFailedWorkspaceClosesWhatItOpened) {
    Folder folder("failed");
    writeTable(folder.file("a.tab"), "A", "Name", "a");
    writeTable(folder.file("b.tab"), "B", "Name", "b");
    writeTable(folder.file("kept.tab"), "Kept", "Name", "k");
    Engine engine;
    engine.run("Open Table \"" + folder.file("kept.tab") + "\"");
    engine.run("Map From Kept");
    const MbError e = loadFailure(engine,
                                  "!Workspace\nOpen Table \"a\" As A Interactive\n"
                                  "Open Table \"b\" As B\nMap From A, B\nBrowse * From A\n"
                                  "Set Map Layer 1 Display Sideways\n",
                                  folder.path());
    EXPECT_EQ(std::string(e.what()).rfind("Workspace line 6: ", 0), 0u) << e.what();
    EXPECT_EQ(eval(engine, "NumTables()"), "1");
    EXPECT_EQ(eval(engine, "TableInfo(1, 1)"), "kept");
    EXPECT_EQ(eval(engine, "NumWindows()"), "1");
    EXPECT_EQ(eval(engine, "LayerInfo(FrontWindow(), 1, 1)"), "kept");
}

TEST(RealWorkspace, WindowsPathsAreLookedForInTheWorkspaceFolder) {
    Folder folder("paths");
    std::filesystem::create_directories(folder.path() / "Maps");
    writeTable(folder.file("Maps/roads.tab"), "Roads", "Name", "A1");
    writeTable(folder.file("rivers.tab"), "Rivers", "Name", "Rhine");
    Engine engine;
    loadWorkspaceText(engine,
                      "!Workspace\nOpen Table \"MAPS\\Roads.TAB\" As Roads Interactive\n"
                      "Open Table \"C:\\Data\\GIS\\Rivers.TAB\" As Rivers Interactive\n",
                      folder.path());
    engine.run("Fetch First From Roads");
    engine.run("Fetch First From Rivers");
    EXPECT_EQ(eval(engine, "Roads.Name"), "A1");
    EXPECT_EQ(eval(engine, "Rivers.Name"), "Rhine");

    const MbError e = loadFailure(
        engine, "!Workspace\nOpen Table \"D:\\Archive\\Lakes.tab\" As Lakes\n", folder.path());
    EXPECT_EQ(e.code(), kMbCantAccessFile);
    EXPECT_EQ(std::string(e.what()),
              "Workspace line 2: Unable to open table D:\\Archive\\Lakes.tab: the file is not "
              "there, nor in the workspace's folder " +
                  folder.path().string() + ".");
    const MbError network = loadFailure(
        engine, "!Workspace\nOpen Table \"\\\\server\\share\\Lakes.tab\"\n", folder.path());
    EXPECT_NE(std::string(network.what()).find("\\\\server\\share\\Lakes.tab"), std::string::npos)
        << network.what();
    EXPECT_EQ(eval(engine, "NumTables()"), "2");
}

TEST(RealWorkspace, LayoutsAndGraphsAreKeptNotedAndSavedBack) {
    Folder folder("kept");
    writeTable(folder.file("towns.tab"), "Towns", "Name", "Aix");
    const std::string layout = "Layout\n  Position (0.25,0.25) Units \"in\"\n"
                               "Set Window FrontWindow() ScrollBars Off\n"
                               "Create Frame (0.5,0.5) (7,5) Title \"Towns\"\n";
    // After Graph, FrontWindow() is the graph: the Max is the graph's, not the map's.
    const std::string graph = "Graph Name From Towns\nSet Window FrontWindow() Title \"Chart\"\n"
                              "Set Window FrontWindow() Max\n";
    const std::string text = "!Workspace\nOpen Table \"towns\" As Towns Interactive\n"
                             "Map From Towns\nSet Window FrontWindow() Title \"Map\"\n" +
                             layout + graph + "Set Map Layer 1 Display Global\n";
    Engine engine;
    const std::vector<std::string> notes = loadWorkspaceText(engine, text, folder.path());
    ASSERT_EQ(notes.size(), 2u);
    EXPECT_EQ(notes[0], "Layout window at line 5: kept for Save Workspace, not shown.");
    EXPECT_EQ(notes[1], "Graph window at line 9: kept for Save Workspace, not shown.");
    // The window statements after them were theirs; the last one is the map's again.
    EXPECT_EQ(eval(engine, "NumWindows()"), "1");
    EXPECT_EQ(eval(engine, "WindowInfo(FrontWindow(), 1)"), "Map");
    EXPECT_EQ(eval(engine, "WindowInfo(FrontWindow(), 9)"), "0");
    EXPECT_EQ(eval(engine, "LayerInfo(FrontWindow(), 1, 9)"), "2");
    const std::string saved = workspaceFor(engine, folder.path()).text;
    EXPECT_NE(saved.find(layout + graph), std::string::npos) << saved;
    EXPECT_LT(saved.find("Map From Towns"), saved.find("Layout\n"));

    // A workspace that fails keeps none of its windows' text.
    loadFailure(engine, "!Workspace\nGraph Name From Towns\nNonsense\n", folder.path());
    EXPECT_EQ(workspaceFor(engine, folder.path()).text, saved);
}

TEST(RealWorkspace, OverlongLinesAreRefusedWithTheirLineNumber) {
    Engine engine;
    const std::string line(kMaxWorkspaceLineBytes + 1, 'x');
    const MbError e = loadFailure(
        engine, "!Workspace\nStatusbar hide\nDim a As String\na = \"" + line + "\"\n", ".");
    EXPECT_EQ(e.code(), kMbInvalidFormat);
    EXPECT_EQ(std::string(e.what()).rfind("Workspace line 4 is longer than ", 0), 0u) << e.what();
    EXPECT_EQ(eval(engine, "SystemInfo(1)").empty(), false);
}

TEST(RealWorkspace, AWorkspaceRunByAnotherIsFoundInItsFolderAndReadsFromItsOwn) {
    Folder folder("run");
    std::filesystem::create_directories(folder.path() / "Sub");
    writeTable(folder.file("Sub/lakes.tab"), "Lakes", "Name", "Léman");
    writeFile(
        folder.path() / "Sub" / "Other.WOR",
        encoded("!Workspace\n!Charset WindowsLatin1\nOpen Table \"LAKES\" As Lakes\n", "CP1252"));
    Engine engine;
    loadWorkspaceText(engine, "!Workspace\nRun Application \"sub\\other.wor\"\n", folder.path());
    engine.run("Fetch First From Lakes");
    EXPECT_EQ(eval(engine, "Lakes.Name"), "Léman");
    EXPECT_EQ(withTableFileInFolder("Run Application \"sub\\other.wor\"", "/w"),
              "Run Application \"/w/sub/other.wor\" ");
}

TEST(RealWorkspace, WorkspacesOpeningThemselvesStop) {
    Folder folder("nested");
    writeFile(folder.path() / "self.wor", "!Workspace\nRun Application \"self.wor\"\n");
    Engine engine;
    try {
        loadWorkspace(engine, folder.path() / "self.wor");
        FAIL() << "no error";
    } catch (const MbError& e) {
        EXPECT_NE(std::string(e.what()).find("more than 8 deep"), std::string::npos) << e.what();
    }
}

} // namespace
} // namespace vellant::engine
