// The map panel's controls, RedrawNOW and the popup's layer operations reach their handlers.

#include "mapchanges/layer_operations.h"
#include "mapchanges/map_bounds.h"
#include "mapchanges/map_panel.h"
#include "mapchanges/map_refresh.h"
#include "session/session.h"

#include <functional>
#include <utility>

namespace vellant::mapchanges {

namespace {

// Runs a handler with the form's session; a form that has none yet has no session to act on.
template <class Handler> std::function<void()> withSession(LayerForm& form, Handler handler) {
    return [&form, handler] {
        if (form.session) handler(*form.session);
    };
}

} // namespace

void wireMapPanel(LayerForm& form, bool docked) {
    form.Map_SameScale.onClick =
        withSession(form, [&form, docked](Session& s) { Map_SameScale_Click(s, form, docked); });
    form.map_samezoom.onClick =
        withSession(form, [&form, docked](Session& s) { map_samezoom_Click(s, form, docked); });
    form.Map_custom.onClick = [&form] { Map_custom_Click(form); };
    const std::pair<platform::Control*, int> tools[] = {{&form.SelectTool, kSelectToolCommand},
                                                        {&form.Pan, kPanToolCommand},
                                                        {&form.ZoomIn, kZoomInToolCommand},
                                                        {&form.ZoomOut, kZoomOutToolCommand}};
    for (const auto& [control, command] : tools) {
        const int menuCommand = command;
        control->onClick =
            withSession(form, [menuCommand](Session& s) { chooseMapTool(s, menuCommand); });
    }
    form.RedrawMAP.onClick = withSession(form, [&form](Session& s) { RedrawMAP_Click(s, form); });
    form.map_bounds.onClick = withSession(form, [](Session& s) { mapboundsclick(s); });
    // The floating form reloads by its own method RefreshMap, which its constructor wires.
    if (docked) form.RedrawNOW.onClick = withSession(form, [](Session& s) { RefreshMap(s); });

    form.Remove_layer.onClick = withSession(form, [](Session& s) { removelayerclick(s); });
    form.Add_Layer.onClick = withSession(form, [](Session& s) { addlayer(s); });
    // The floating form's item has no handler.
    if (docked)
        form.View_Entire.onClick = withSession(form, [](Session& s) { viewentireclick(s); });
}

} // namespace vellant::mapchanges
