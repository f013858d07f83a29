#pragma once
// Module-wide state of the grid's click handling, selection and layer groups. Session inherits
// it.

#include "base/fixed_array.h"
#include "base/int16.h"

#include <cstdint>
#include <string>

namespace vellant::interaction {

struct ClickState {
    // The row a click is being dispatched for (0 when none), and the row a toggle walk is on.
    std::int32_t gClickRow = 0;
    std::int32_t gToggleRow = 0;
    // The row and column of the cell at hand.
    std::int32_t gRow = 0;
    std::int32_t gCol = 0;
    Flag gGroupClick = kFalse;
    // The only channel between a key press, the cell editor and the click.
    std::string gCellText;
    Flag gInClick = kFalse;
    // The rows of the selection a toggle cycle runs over.
    std::int32_t gSelFirst = 0;
    std::int32_t gSelLast = 0;
    // Where the mouse went down in the grid, in twips.
    float gMouseX = 0;
    float gMouseY = 0;

    // The self test runs: the pickers and editors take their canned choices.
    Flag gSelfTest = kFalse;
    // The position code handed to the orientation picker, and the code chosen there.
    std::int16_t gLabelOrientPos = 0;

    // Layer groups: the group name of each layer, and whether its group is expanded (kTrue) or
    // collapsed onto its master row (kFalse).
    LayerArray<std::string> gLayerGroup;
    LayerArray<Flag> gRowExpanded;

    // The toggle cycle over a row set: the step the next click applies (0..3), the settings
    // saved at step 0 (the model row's and every row's), and the model row itself (gToggleRow).
    std::int16_t gToggleStep = 0;
    Flag gToggleClicked = kFalse;
    LayerArray<Flag> gToggleOrig;
    // The click puts the row selection back; the selection handlers stand back meanwhile.
    Flag gSelBusy = kFalse;

    // The layer a press in the column "order" started dragging; 0 for none.
    std::int16_t gDragLayer = 0;
    // Tool-tips follow the mouse (menu item show_tooltips), the mouse-move guard, and the column
    // whose tip was set last.
    Flag gShowTips = kFalse;
    Flag gInMouseMove = kFalse;
    std::int32_t gTipCol = 0;
};

} // namespace vellant::interaction
