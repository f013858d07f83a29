// Form_Load of the two layer forms. All of a session's set-up happens here, in this order:
// attach to MapInfo and make the view map, create the facades, make the scratch tables of the
// style samples, open the call-back and the button pad, apply the settings to the controls, build
// the catalogue and the header, load the grid. Then the form is shown modally, and the whole
// working session runs inside that show, inside this load, inside the client's call.

#include "session/form_load.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "grid/header_cells.h"
#include "grid/load_grid.h"
#include "hostmodel/mapx_map.h"
#include "interaction/double_click.h"
#include "platform/file_system_object.h"
#include "prefs/map_prefs.h"
#include "prefs/map_slots.h"
#include "prefs/setting_controls.h"
#include "prefs/settings.h"
#include "session/attach.h"
#include "session/layer_form.h"
#include "session/mi_callback.h"
#include "session/session.h"
#include "session/window_settings.h"
#include "styles/style_samples.h"

namespace vellant::session {

namespace {

constexpr const char* kVersion = "1.00 Beta (01)";
constexpr std::int16_t kMapInfoColumnCount = 38;
constexpr std::int16_t kMapXColumnCount = 39;
constexpr int kDockedTimerInterval = 100;
constexpr const char* kMapXClass = "MapX.Map.4";

constexpr const char* kFloatingPad =
    "Create Buttonpad \"Callback\" As Pushbutton ID 2001 Calling OLE \"RunCommand\" hide ";
// The docked form's pad has a second button, the user's way out of a docked session.
constexpr const char* kDockedPad =
    "Create Buttonpad \"Callback\" As Pushbutton ID 2001 Calling OLE \"RunCommand\" Pushbutton "
    "ID 2002 Calling OLE \"RunCommand\" hide ";

void send(Session& s, const std::string& command) {
    s.mapInfoApp().Do(command);
}

std::string evaluate(Session& s, const std::string& expression) {
    return s.mapInfoApp().eval(expression);
}

template <class T> std::shared_ptr<T> create(Session& s, const char* className) {
    return platform::AutomationRegistry::as<T>(s.registry.CreateObject(className));
}

// The view map of the MapX host is a control of the form, a map of the client's own MapX; it
// stays undrawn until the first load has built it.
void prepareMapDisplay(Session& s, LayerForm& form) {
    form.MapDisplay.setMap(create<hostmodel::MXMap>(s, kMapXClass));
    form.MapDisplay.map().setAutoRedraw(false);
}

// The form in front with its size kept, tool-tips on, and as many grid columns as the host has.
void prepareForm(Session& s, LayerForm& form) {
    if (prefs::isDeveloperMachine(s)) form.self_test.setEnabled(true);
    form.ZOrder(0);
    s.gFormWidthSaved = form.Width();
    s.gFormHeightSaved = form.Height();
    s.toolkit.SetForegroundWindow(form.hWnd());
    if (!s.gIsMapInfo) prepareMapDisplay(s, form);
    s.gFSO = create<platform::FileSystemObject>(s, platform::FileSystemObject::kClassName);
    // A session always starts with tool-tips on: the handler turns the cleared check over.
    form.show_tooltips.setChecked(false);
    form.show_tooltips.Click();
    s.gColCount = s.gIsMapInfo ? kMapInfoColumnCount : kMapXColumnCount;
    form.LyrGrid.setCols(s.gColCount);
}

// The rest of the attachment once mapinfo_init has made the view: the facades, the companion,
// the call-back and its pad, and how the two maps relate.
void finishAttachment(Session& s, LayerForm& form, const char* pad, bool scaleView) {
    s.gLayerCount = CInt(Val(evaluate(s, "Mapperinfo(" + Str(s.gViewWin) + ",9)")));
    form.MapInfoFrame.setVisible(true);
    // The program makes its own classes through their registered names, as any client would.
    s.gMap = create<hostmodel::IMap>(s, "Vellant.Mapper");
    s.gLyr = create<hostmodel::ILayer>(s, "Vellant.MIProps");
    s.gStyle = create<hostmodel::IStyle>(s, "Vellant.MIPropsStyle");
    s.gLabelProps = create<hostmodel::ILabelProps>(s, "Vellant.MIPropsLabelProps");
    s.gLabelStyle = s.registry.CreateObject("Vellant.MIPropsLabelStyle");

    // Without the companion the item number is 0, and the lookup's failure ends the session.
    s.gMBApp = &s.mapInfoApp().MBApplications(FindCompanion(s));
    s.gMBGlobals = s.gMBApp;
    s.gMBGlobals->MBGlobals("hwnd").setValue(CStr(form.hWnd()));

    send(s, "set event processing off");
    send(s, "set progressbars off");
    styles::initstylewin(s);
    s.gCallback = std::make_shared<MICallback>(s);
    s.mapInfoApp().SetCallback(s.gCallback);
    send(s, pad);

    readMapFigures(s);
    if (!scaleView) return;
    const std::string view = Str(s.gViewWin);
    send(s, "Set Map Window " + view + " zoom " + Str(s.gScaleZoom));
    form.ZoomWidth.setCaption(CStr(s.gScaleZoom) + evaluate(s, "mapperinfo(" + view + ",12)"));
    form.ZoomScale.setCaption("1: " + evaluate(s, "mapperinfo(" + view + ",2)"));
    // The option's click gives the view the user's scale.
    form.Map_SameScale.setValue(platform::OptionButton::kSet);
}

// IMMEDIATE mode and docking are MapInfo's alone.
void refuseMapInfoModes(Session& s, LayerForm& form) {
    s.gImmediate = kFalse;
    form.MapImmediate.setValue(0);
    form.MapImmediate.setEnabled(false);
    form.Docked.setEnabled(false);
}

void showMapDisplay(Session& s, LayerForm& form) {
    s.gLayerCount = Int16(hostmodel::asMXMap(s.map()).Layers()->Count());
    form.MapDisplay.setVisible(true);
    form.MapInfoFrame.setVisible(false);
}

// The controls from the settings, the header, the grid, and the column widths that folded
// groups come back to.
void fillGrid(Session& s, LayerForm& form) {
    prefs::updatecontrolsfromprefs(s);
    grid::setcolatts(s);
    grid::labelgrid(s);
    bool rebuild = true;
    grid::load_grid(s, rebuild);
    // The window number MapInfo adds to a further window of one map does not part its groups.
    prefs::getmapprefs(s, prefs::mapprefname(prefs::maptitle(s)));
    platform::FlexGrid& grid = form.LyrGrid;
    for (int col = 0; col < grid.Cols(); ++col)
        s.gColWidth[col] = static_cast<std::uint16_t>(grid.ColWidth(col));
    grid.setRow(0);
    // Just right of the first column, so that the double clicks below land on the header of
    // the current column: every column group opens folded.
    s.gMouseX = static_cast<float>(grid.ColWidth(0) + 1);
    for (int col = 1; col < grid.Cols(); ++col) {
        if (s.gColGroup[col] != col) continue;
        grid.setCol(col);
        interaction::dblclick(s);
    }
}

// A docked session keeps MapInfo's status bar as the user wants it: the check is set against
// the setting, and the form's handler turns both back and tells MapInfo.
void restoreStatusBar(Session& s, LayerForm& form) {
    if (!s.gIsMapInfo || !s.gDocked) return;
    form.show_MI_statusbar.setChecked(!s.gShowMIStatusbar);
    form.show_MI_statusbar_click();
}

} // namespace

void vlLayerControl_Load(Session& s, vlLayerControl& form) {
    // A late reference to an unloaded form loads it again; during shutdown that load must do
    // nothing.
    if (s.gShuttingDown) return;
    onErrorGoTo(
        [&] {
            if (!s.gIsMapInfo) refuseMapInfoModes(s, form);
            s.gFormReady = kFalse;
            s.gMapChanged = kFalse;
            s.gLayerOpCount = 0;
            form.setCaption(std::string("Vellant ") + kVersion);
            prepareForm(s, form);
            if (!s.gIsMapInfo) showMapDisplay(s, form);
            if (s.gIsMapInfo) {
                if (!mapinfo_init(s)) {
                    form.Hide();
                    return;
                }
                finishAttachment(s, form, kFloatingPad, true);
            }
            fillGrid(s, form);
            form.Resize_LayerForm();
            grid::setcolglyph(s, 0, false);
            s.toolkit.SetForegroundWindow(form.hWnd());
            if (s.gIsMapInfo) send(s, "Set Map Window " + Str(s.gViewWin) + " redraw on");
            restoreStatusBar(s, form);
            if (s.gIsMapInfo && !s.gImmediate)
                send(s, "Set Map Window " + Str(s.gMapWin) + " redraw on");
            s.gFormReady = kTrue;
            s.gMapChanged = kFalse;
            form.Show(platform::vbModal);
            if (!s.gIsMapInfo) form.MapDisplay.map().setAutoRedraw(true);
            form.LyrGrid.setRedraw(true);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "From load vllayer " + e.description());
        });
}

void vlLayerDocked_Load(Session& s, vlLayerDocked& form) {
    if (s.gShuttingDown) return;
    onErrorGoTo(
        [&] {
            s.gFormReady = kFalse;
            s.gMapChanged = kFalse;
            form.Timer1.setInterval(kDockedTimerInterval);
            prepareForm(s, form);
            // Docked and immediate together have no view map, so there is no view to scale.
            const bool viewMap = !(s.gDocked && s.gImmediate);
            if (s.gIsMapInfo) {
                if (!mapinfo_init(s)) {
                    form.Hide();
                    return;
                }
                finishAttachment(s, form, kDockedPad, viewMap);
            }
            fillGrid(s, form);
            grid::setcolglyph(s, 0, false);
            s.toolkit.SetForegroundWindow(form.hWnd());
            restoreStatusBar(s, form);
            // Unlike the floating form this one never lets the user's map draw again, so a
            // cancelled docked session leaves that map frozen.
            if (viewMap) send(s, "Set Map Window " + Str(s.gViewWin) + " redraw on");
            s.gMapChanged = kFalse;
            // The window order takes effect: the check is set against the setting, and the
            // handler turns both back.
            form.VL_on_top.setChecked(!s.gOnTop);
            vl_on_top(s);
            // The layout does nothing until the form is ready; its first run puts the form on
            // MapInfo's bottom edge.
            s.gResizing = kTrue;
            s.gFormReady = kTrue;
            form.Resize_LayerForm();
            s.gResizing = kFalse;
            form.Timer1.setEnabled(true);
            s.gDockedFormHeight = 0;
            form.Show(platform::vbModal);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "From load docked " + e.description());
        });
}

} // namespace vellant::session
