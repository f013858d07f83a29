#include "mapchanges/map_panel.h"

#include "base/basic_text.h"
#include "base/error_trap.h"
#include "grid/column_catalogue.h"
#include "hostmodel/mapx_map.h"
#include "mapchanges/layer_journal.h"
#include "prefs/settings.h"
#include "session/session.h"

namespace vellant::mapchanges {

namespace {

constexpr const char* kScaleUnitsTip = "Scale is shown in form paperunits:mapunits";

// The MapX control's tool for each of MapInfo's menu commands.
struct MapTool {
    int menuCommand;
    int mapxTool;
};
constexpr MapTool kTools[] = {{kSelectToolCommand, 1007},
                              {kPanToolCommand, 1001},
                              {kZoomInToolCommand, 1003},
                              {kZoomOutToolCommand, 1004}};

void showTools(LayerForm& form, bool visible) {
    for (platform::Control* tool : {&form.ZoomIn, &form.ZoomOut, &form.Pan, &form.SelectTool})
        tool->setVisible(visible);
}

// Both options put the view about the centre the user's map had when the session began, at
// the zoom they stand for, if they are set; the captions follow either way.
void zoomOption(Session& s, LayerForm& form, const platform::Control& option, float zoom) {
    if (option.Value() != 0) {
        if (s.gIsMapInfo) {
            s.mapInfoApp().Do("Set Map Window " + Str(s.gViewWin) + " center (" + Str(s.gCenterX) +
                              "," + Str(s.gCenterY) + ") zoom " + Str(zoom));
        } else if (zoom != 0) {
            hostmodel::MXMap& view = mapDisplay(s);
            view.setzoom(zoom);
            view.setCenterX(s.gCenterX);
            view.setCenterY(s.gCenterY);
        }
    }
    setmapcaptions(s, zoom);
    showTools(form, false);
}

} // namespace

void setmapcaptions(Session& s, float zoom) {
    onErrorGoTo(
        [&] {
            LayerForm& form = s.layerForm();
            const std::string unit = grid::unittext(s.map().mapunit());
            form.ScaleUnits.setCaption("paperunit:" + unit);
            form.ScaleUnits.setToolTipText(kScaleUnitsTip);
            form.ZoomWidth.setCaption(CStr(zoom) + " " + unit);
            form.ZoomScale.setCaption(
                s.gIsMapInfo ? "1: " + s.mapInfoApp().eval("mapperinfo(" + Str(s.gViewWin) + ",2)")
                             : std::string());
            form.ZoomScale.setToolTipText(kScaleUnitsTip);
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from setmapcaptions " + e.description());
        });
}

void Map_SameScale_Click(Session& s, LayerForm& form, bool docked) {
    onErrorGoTo([&] { zoomOption(s, form, form.Map_SameScale, s.gScaleZoom); },
                [&](const RuntimeError& e) {
                    prefs::logQuietly(s, std::string(docked ? "Error from Map_samescale_click "
                                                            : "From map_samescale ") +
                                             e.description());
                });
}

void map_samezoom_Click(Session& s, LayerForm& form, bool docked) {
    onErrorGoTo([&] { zoomOption(s, form, form.map_samezoom, s.gViewZoom); },
                [&](const RuntimeError& e) {
                    prefs::logQuietly(s, std::string(docked ? "Error from Map_samezoom_click "
                                                            : "From map_samezoom ") +
                                             e.description());
                });
}

void Map_custom_Click(LayerForm& form) {
    form.MapButtonFrame.setVisible(true);
    showTools(form, true);
}

void chooseMapTool(Session& s, int menuCommand) {
    // The tools have no handler of their own; a refused tool leaves the map as it was.
    ResumeNext next;
    next([&] {
        for (const MapTool& tool : kTools) {
            if (tool.menuCommand != menuCommand) continue;
            if (s.gIsMapInfo)
                s.mapInfoApp().RunMenuCommand(tool.menuCommand);
            else
                mapDisplay(s).setCurrentTool(tool.mapxTool);
        }
    });
    s.gMapTool = static_cast<std::int16_t>(menuCommand);
}

void RedrawMAP_Click(Session& s, LayerForm& form) {
    ResumeNext next;
    next([&] {
        const bool on = form.RedrawMAP.Value() != 0;
        if (s.gIsMapInfo)
            s.mapInfoApp().Do("Set Map Window " + Str(s.gViewWin) +
                              (on ? " redraw on" : " redraw off"));
        else
            mapDisplay(s).setAutoRedraw(on);
    });
}

} // namespace vellant::mapchanges
