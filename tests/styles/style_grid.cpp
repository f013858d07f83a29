#include "styles/style_grid.h"

#include "engine/host/companion.h"
#include "engine/host/host_services.h"
#include "session/mi_callback.h"

#include <cstdlib>
#include <filesystem>

namespace vellant::grid::testing {

StyleGrid::StyleGrid() {
    run("Run Application \"vellant.mbx\"");
    session::Session& s = *session;
    recorder = std::make_shared<vellant::testing::RecordingMapInfo>(app);
    s.gMapInfo = recorder;
    s.gMBApp = &app->MBApplications(1);
    s.gMBGlobals = s.gMBApp;
    s.gCallback = std::make_shared<session::MICallback>(s);
    app->SetCallback(s.gCallback);
    run("Create Buttonpad \"Callback\" As Pushbutton ID 2001 Calling OLE \"RunCommand\" hide ");
    setViewLayer(kRegions, std::string("Display Global Global ") + kRedBrush);
}

engine::Companion& StyleGrid::companion() {
    return *engine->host().companion();
}

engine::StyleDialogRequest StyleGrid::takeDialog() {
    std::optional<engine::StyleDialogRequest> request = companion().takeStyleDialogRequest();
    if (!request) {
        ADD_FAILURE() << "no style dialog was asked for";
        return {};
    }
    return *request;
}

void StyleGrid::answerDialog(const std::optional<std::string>& clause) {
    if (companion().styleDialogPending()) takeDialog();
    companion().styleDialogClosed(clause);
}

Bitmap StyleGrid::bitmap(int layer, const std::string& key) {
    const platform::Picture& picture = cell(layer, key).picture;
    if (!picture.bitmap) {
        ADD_FAILURE() << "no bitmap in " << key << " of layer " << layer;
        return {};
    }
    return *picture.bitmap;
}

int StyleGrid::pixelsNear(const Bitmap& picture, std::uint32_t rgb) {
    const auto channel = [](std::uint32_t c, int shift) {
        return static_cast<int>((c >> shift) & 0xFF);
    };
    int count = 0;
    for (std::uint32_t pixel : picture.pixels) {
        bool near = true;
        for (int shift : {0, 8, 16})
            near = near && std::abs(channel(pixel, shift) - channel(rgb, shift)) <= 48;
        if (near) ++count;
    }
    return count;
}

int StyleGrid::samplesLeft() const {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(temporaryFolder()))
        if (entry.path().extension() == ".bmp") ++count;
    return count;
}

} // namespace vellant::grid::testing
