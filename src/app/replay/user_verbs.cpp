#include "app/replay/user_verbs.h"

#include "app/replay/replay_run.h"
#include "base/basic_text.h"
#include "interaction/edit_cell.h"
#include "interaction/label_orientation.h"
#include "platform/flexgrid.h"
#include "platform/menu_item.h"
#include "session/layer_form.h"
#include "session/session.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace vellant::replay {

namespace {

constexpr int kKeyEnter = 13;
constexpr int kKeyEscape = 27;
constexpr int kOrderColumn = 1;

std::vector<std::string> words(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> out;
    for (std::string word; in >> word;)
        out.push_back(word);
    return out;
}

std::optional<int> number(const std::string& text) {
    int value = 0;
    const char* last = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), last, value);
    if (error != std::errc() || stop != last) return std::nullopt;
    return value;
}

// The session's form, or a refusal of the line.
session::LayerForm* layerForm(ReplayRun& replay, const ScriptLine& line) {
    session::Session* s = replay.layer().currentSession();
    if (s && s->gLayerForm && s->gLayerForm->Loaded()) return s->gLayerForm;
    replay.refuse(line, "no layer form is loaded");
    return nullptr;
}

// A column by number or by the key the catalogue gave it this session.
std::optional<int> columnOf(const session::Session& s, const std::string& written) {
    if (const auto n = number(written)) return n;
    std::string key = LCase(written);
    std::replace(key.begin(), key.end(), '_', ' ');
    if (key == "layer") return 0;
    // "label visible" is the second key of "label properties"; the column answers to both,
    // whichever the session looked it up by last.
    const auto labelStyleKey = [](const std::string& k) {
        return k == "label properties" || k == "label visible";
    };
    for (int col = 1; col < s.gLayerForm->LyrGrid.Cols(); ++col)
        if (s.gColKey[col] == key || (labelStyleKey(key) && labelStyleKey(s.gColKey[col])))
            return col;
    return std::nullopt;
}

struct Point {
    float x = 0;
    float y = 0;
};

// The middle of a cell a user can see, or the reason there is none.
std::optional<Point> cellMiddle(ReplayRun& replay, const ScriptLine& line, int row, int col) {
    const platform::FlexGrid& grid = replay.layer().currentSession()->gLayerForm->LyrGrid;
    std::string why;
    if (row < 0 || row >= grid.Rows()) {
        why = "the grid has no row " + std::to_string(row);
    } else if (col < 0 || col >= grid.Cols()) {
        why = "the grid has no column " + std::to_string(col);
    } else if (grid.RowHeight(row) <= 0) {
        why = "row " + std::to_string(row) + " is hidden";
    } else if (grid.ColWidth(col) <= 0) {
        why = "column " + std::to_string(col) + " is folded";
    } else if (grid.RowPos(row) < 0 || grid.ColPos(col) < 0) {
        why = "the cell is scrolled out of view";
    }
    if (!why.empty()) {
        replay.refuse(line, why);
        return std::nullopt;
    }
    return Point{static_cast<float>(grid.ColPos(col)) + static_cast<float>(grid.ColWidth(col)) / 2,
                 static_cast<float>(grid.RowPos(row)) +
                     static_cast<float>(grid.RowHeight(row)) / 2};
}

// "<row> <column>", the column being the rest of the line.
std::optional<Point> cellArgument(ReplayRun& replay, const ScriptLine& line) {
    const std::string& text = line.argument;
    const std::size_t blank = text.find(' ');
    const std::optional<int> row = number(text.substr(0, blank));
    const std::string column = blank == std::string::npos ? "" : Trim(text.substr(blank + 1));
    if (!row || column.empty()) {
        replay.refuse(line, "expected <row> <column>");
        return std::nullopt;
    }
    const std::optional<int> col = columnOf(*replay.layer().currentSession(), column);
    if (!col) {
        replay.refuse(line, "no column '" + column + "'");
        return std::nullopt;
    }
    return cellMiddle(replay, line, *row, *col);
}

// Two cells as "<row1> <col1> <row2> <col2>", or two rows in one column.
std::optional<std::pair<Point, Point>> twoCells(ReplayRun& replay, const ScriptLine& line,
                                                const std::vector<std::string>& parts) {
    session::Session& s = *replay.layer().currentSession();
    const auto row1 = number(parts[0]);
    const auto row2 = number(parts[2]);
    const auto col1 = columnOf(s, parts[1]);
    const auto col2 = columnOf(s, parts[3]);
    if (!row1 || !row2 || !col1 || !col2) {
        replay.refuse(line, "expected <row1> <col1> <row2> <col2>");
        return std::nullopt;
    }
    const auto from = cellMiddle(replay, line, *row1, *col1);
    if (!from) return std::nullopt;
    const auto to = cellMiddle(replay, line, *row2, *col2);
    if (!to) return std::nullopt;
    return std::make_pair(*from, *to);
}

// A press, a move with the button down and a release: the way a user selects or drags.
void pressMoveRelease(ReplayRun& replay, platform::FlexGrid& grid, Point from, Point to) {
    replay.desk().hands().drag(grid, from.x, from.y, to.x, to.y);
}

void rowsInColumn(ReplayRun& replay, const ScriptLine& line, const std::string& column) {
    session::LayerForm* form = layerForm(replay, line);
    if (!form) return;
    const std::vector<std::string> parts = words(line.argument);
    if (parts.size() != 2) return replay.refuse(line, "expected <row1> <row2>");
    const auto cells = twoCells(replay, line, {parts[0], column, parts[1], column});
    if (cells) pressMoveRelease(replay, form->LyrGrid, cells->first, cells->second);
}

// The cell editor when it is the form in front.
interaction::EditCell* openEditor(ReplayRun& replay) {
    session::Session* s = replay.layer().currentSession();
    if (!s || !s->gEditCell) return nullptr;
    if (replay.desk().modalForm() != s->gEditCell.get() || !s->gEditCell->Visible()) return nullptr;
    return s->gEditCell.get();
}

interaction::Label_Orientation* openPicker(ReplayRun& replay) {
    session::Session* s = replay.layer().currentSession();
    if (!s || !s->gLabelOrient) return nullptr;
    if (replay.desk().modalForm() != s->gLabelOrient.get() || !s->gLabelOrient->Visible())
        return nullptr;
    return s->gLabelOrient.get();
}

// A key goes to the control that has the focus: the editor's box or list, the picker, or else
// the grid.
void pressKey(ReplayRun& replay, const ScriptLine& line, int key) {
    UserHands& hands = replay.desk().hands();
    if (interaction::EditCell* editor = openEditor(replay)) {
        if (editor->EditList.Visible())
            hands.keyToControl(editor->EditList, key);
        else
            hands.keyToControl(editor->ecell, key);
        return;
    }
    if (interaction::Label_Orientation* picker = openPicker(replay)) {
        hands.keyToControl(*picker, key);
        return;
    }
    if (session::LayerForm* form = layerForm(replay, line)) hands.keyToGrid(form->LyrGrid, key);
}

} // namespace

void clickVerb(ReplayRun& replay, const ScriptLine& line) {
    if (!layerForm(replay, line)) return;
    if (const auto at = cellArgument(replay, line))
        replay.desk().hands().click(replay.layer().currentSession()->gLayerForm->LyrGrid, at->x,
                                    at->y);
}

void rightClickVerb(ReplayRun& replay, const ScriptLine& line) {
    if (!layerForm(replay, line)) return;
    const auto at = cellArgument(replay, line);
    if (!at) return;
    // The menu item of the next line is the choice made in the menu this press opens.
    const ScriptLine* next = replay.upcoming();
    if (next && next->verb->name == "menu") {
        replay.desk().queuePopupChoice(next->argument);
        replay.consumeUpcoming();
    } else {
        replay.desk().queuePopupChoice("");
    }
    replay.desk().hands().rightClick(replay.layer().currentSession()->gLayerForm->LyrGrid, at->x,
                                     at->y);
}

void doubleClickVerb(ReplayRun& replay, const ScriptLine& line) {
    if (!layerForm(replay, line)) return;
    if (const auto at = cellArgument(replay, line))
        replay.desk().hands().doubleClick(replay.layer().currentSession()->gLayerForm->LyrGrid,
                                          at->x, at->y);
}

// Whole rows are selected by pressing in the first column and dragging down it.
void selectRowsVerb(ReplayRun& replay, const ScriptLine& line) {
    rowsInColumn(replay, line, "0");
}

void selectCellsVerb(ReplayRun& replay, const ScriptLine& line) {
    session::LayerForm* form = layerForm(replay, line);
    if (!form) return;
    const std::vector<std::string> parts = words(line.argument);
    if (parts.size() != 4) return replay.refuse(line, "expected <row1> <col1> <row2> <col2>");
    if (const auto cells = twoCells(replay, line, parts))
        pressMoveRelease(replay, form->LyrGrid, cells->first, cells->second);
}

// A layer is dragged by its handle in the column "order". The grid takes the drop's row from the
// height of the first row alone and rounds half-way to even, so the drop falls in the lower part
// of the target row, where that rounding gives the target itself.
void dragVerb(ReplayRun& replay, const ScriptLine& line) {
    session::LayerForm* form = layerForm(replay, line);
    if (!form) return;
    const std::vector<std::string> parts = words(line.argument);
    const std::string column = std::to_string(kOrderColumn);
    if (parts.size() != 2) return replay.refuse(line, "expected <from-row> <to-row>");
    const auto cells = twoCells(replay, line, {parts[0], column, parts[1], column});
    if (!cells) return;
    const platform::FlexGrid& grid = form->LyrGrid;
    Point drop = cells->second;
    drop.y += static_cast<float>(grid.RowHeight(*number(parts[1]))) / 4;
    pressMoveRelease(replay, form->LyrGrid, cells->first, drop);
}

void keyVerb(ReplayRun& replay, const ScriptLine& line) {
    if (line.argument.size() != 1) return replay.refuse(line, "expected one character");
    pressKey(replay, line, static_cast<unsigned char>(line.argument[0]));
}

void typeVerb(ReplayRun& replay, const ScriptLine& line) {
    interaction::EditCell* editor = openEditor(replay);
    if (!editor) return replay.refuse(line, "no cell editor is open");
    if (editor->EditList.Visible())
        replay.desk().hands().typeAndEnter(editor->EditList, line.argument);
    else
        replay.desk().hands().typeAndEnter(editor->ecell, line.argument);
}

void enterVerb(ReplayRun& replay, const ScriptLine& line) {
    pressKey(replay, line, kKeyEnter);
}

void escapeVerb(ReplayRun& replay, const ScriptLine& line) {
    pressKey(replay, line, kKeyEscape);
}

void pickVerb(ReplayRun& replay, const ScriptLine& line) {
    interaction::EditCell* editor = openEditor(replay);
    if (!editor || !editor->EditList.Visible()) return replay.refuse(line, "no list is open");
    const std::optional<int> n = number(line.argument);
    if (!n || *n < 1 || *n > editor->EditList.ListCount())
        return replay.refuse(line, "the list has " + std::to_string(editor->EditList.ListCount()) +
                                       " items");
    replay.desk().hands().pick(editor->EditList, *n - 1);
}

void menuVerb(ReplayRun& replay, const ScriptLine& line) {
    session::LayerForm* form = layerForm(replay, line);
    if (!form) return;
    auto* item = dynamic_cast<platform::MenuItem*>(form->findControl(line.argument));
    if (!item) return replay.refuse(line, "the form has no menu item " + line.argument);
    const auto& popupItems = form->layers_popup.Items();
    if (std::find(popupItems.begin(), popupItems.end(), item) == popupItems.end()) {
        if (!item->Enabled() || !item->Visible())
            return replay.refuse(line, item->Name() + " cannot be chosen");
        item->Click();
        return;
    }
    if (!item->Enabled() || !item->Visible())
        return replay.refuse(line, item->Name() + " is gray in the menu");
    // The grid's own menu opens under a right press over the current cell.
    platform::FlexGrid& grid = form->LyrGrid;
    const auto at = cellMiddle(replay, line, grid.Row(), grid.Col());
    if (!at) return;
    replay.desk().queuePopupChoice(item->Name());
    replay.desk().hands().rightClick(grid, at->x, at->y);
}

void orientVerb(ReplayRun& replay, const ScriptLine& line) {
    interaction::Label_Orientation* picker = openPicker(replay);
    if (!picker) return replay.refuse(line, "the orientation picker is not open");
    const std::optional<int> code = number(line.argument);
    if (!code || *code < 0 || *code > 8) return replay.refuse(line, "a code is 0 to 8");
    replay.desk().hands().doubleClick(picker->LabOrient(*code));
}

} // namespace vellant::replay
