// Every picture the program names is drawn by the project, crisply at any density, and loaded
// pictures show their own pixels.

#include "platform/scripted_toolkit.h"
#include "qtui/art/artwork.h"
#include "session/layer_form.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace vellant::qtui {
namespace {

TEST(Artwork, EveryPictureTheLayerFormsNameHasArt) {
    platform::ScriptedToolkit toolkit;
    session::vlLayerControl form(toolkit);
    std::set<std::string> names;
    for (const platform::Control* control : form.Controls())
        if (!control->Picture().name.empty()) names.insert(control->Picture().name);
    // The style samples' off and on pictures, and the buttons' and tools' art.
    for (const char* name : {"RgnStyleOffPic", "RgnStylePic", "LineStyleOffPic", "LinestylePic",
                             "SymStyleOffPic", "SymStylePic", "TxtStyleOffPic", "TxtStylePic", "OK",
                             "Cancel", "Info", "Redraw", "SelectTool", "Pan", "ZoomIn", "ZoomOut"})
        names.insert(name);
    EXPECT_GT(names.size(), 70u);
    std::string missing;
    for (const std::string& name : names)
        if (!hasArt(name)) missing += name + " ";
    EXPECT_EQ(missing, "");
}

TEST(Artwork, ArtIsDrawnAtTheScreensDensityNotScaledUp) {
    const QPixmap single = artPixmap("Image1", QSize(16, 16), 1.0);
    const QPixmap dense = artPixmap("Image1", QSize(16, 16), 2.0);
    ASSERT_FALSE(single.isNull());
    EXPECT_EQ(dense.size(), QSize(32, 32));
    EXPECT_EQ(dense.deviceIndependentSize(), QSizeF(16, 16));
    // The box's corners are clear and its middle is drawn.
    const QImage image = dense.toImage();
    EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
    EXPECT_GT(qAlpha(image.pixel(16, 16)), 200);
    EXPECT_TRUE(artPixmap("NoSuchPicture", QSize(16, 16), 1.0).isNull());
}

TEST(Artwork, ALoadedPictureShowsItsOwnPixels) {
    Bitmap bitmap(3, 2, 0xFFFFFF);
    bitmap.set(0, 0, 0xFF0000);
    bitmap.set(2, 1, 0x0000FF);
    const platform::Picture picture{"", std::make_shared<const Bitmap>(bitmap), 45, 30};
    EXPECT_EQ(pictureSize(picture, 15), QSize(3, 2));
    const QImage image = picturePixmap(picture, QSize(3, 2), 1.0).toImage();
    EXPECT_EQ(image.pixelColor(0, 0), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(2, 1), QColor(0, 0, 255));
    EXPECT_EQ(imageBitmap(bitmapImage(bitmap)), bitmap);
}

} // namespace
} // namespace vellant::qtui
