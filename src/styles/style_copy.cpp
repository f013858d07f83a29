#include "styles/style_copy.h"

#include "base/error_trap.h"
#include "hostmodel/mapx_map.h"
#include "prefs/settings.h"
#include "session/session.h"

namespace vellant::styles {

namespace {

using hostmodel::MXFont;
using hostmodel::MXStyle;

void copyFont(MXFont& from, MXFont& to) {
    to.setBold(from.Bold());
    to.setCharset(from.Charset());
    to.setItalic(from.Italic());
    to.setName(from.Name());
    to.setSize(from.Size());
    to.setStrikethrough(from.Strikethrough());
    to.setUnderline(from.Underline());
    to.setWeight(from.Weight());
}

void copyTextFontSettings(MXStyle& from, MXStyle& to) {
    to.setTextFontAllCaps(from.TextFontAllCaps());
    to.setTextFontBackColor(from.TextFontBackColor());
    to.setTextFontColor(from.TextFontColor());
    to.setTextFontDblSpace(from.TextFontDblSpace());
    to.setTextFontHalo(from.TextFontHalo());
    to.setTextFontOpaque(from.TextFontOpaque());
    to.setTextFontRotation(from.TextFontRotation());
    to.setTextFontShadow(from.TextFontShadow());
}

} // namespace

void copystyle(Session& s, hostmodel::MXLayer& source, hostmodel::MXLayer& target) {
    onErrorGoTo(
        [&] {
            const std::shared_ptr<MXStyle> from = source.Style();
            // The target's style is fetched anew for every write, as a late-bound client does.
            const auto to = [&] { return target.Style(); };
            to()->setLineStyle(from->LineStyle());
            to()->setLineColor(from->LineColor());
            to()->setLineInterleaved(from->LineInterleaved());
            to()->setLineWidth(from->LineWidth());
            to()->setLineWidthUnit(from->LineWidthUnit());

            to()->setRegionBackColor(from->RegionBackColor());
            to()->setRegionBorderColor(from->RegionBorderColor());
            to()->setRegionBorderStyle(from->RegionBorderStyle());
            to()->setRegionBorderWidth(from->RegionBorderWidth());
            to()->setRegionBorderWidthUnit(from->RegionBorderWidthUnit());
            to()->setRegionColor(from->RegionColor());
            to()->setRegionPattern(from->RegionPattern());
            to()->setRegionTransparent(from->RegionTransparent());

            to()->setSymbolType(from->SymbolType());
            // A bitmap symbol alone has bitmap values worth carrying; the other groups pass
            // whatever the symbol kind.
            if (from->SymbolType() == 1) {
                to()->setSymbolBitmapColor(from->SymbolBitmapColor());
                to()->setSymbolBitmapName(from->SymbolBitmapName());
                to()->setSymbolBitmapOverrideColor(from->SymbolBitmapOverrideColor());
                to()->setSymbolBitmapSize(from->SymbolBitmapSize());
                to()->setSymbolBitmapTransparent(from->SymbolBitmapTransparent());
            }
            to()->setSymbolCharacter(from->SymbolCharacter());
            copyFont(*from->SymbolFont(), *to()->SymbolFont());
            to()->setSymbolFontBackColor(from->SymbolFontBackColor());
            to()->setSymbolFontColor(from->SymbolFontColor());
            to()->setSymbolFontHalo(from->SymbolFontHalo());
            to()->setSymbolFontOpaque(from->SymbolFontOpaque());
            to()->setSymbolFontRotation(from->SymbolFontRotation());
            to()->setSymbolFontShadow(from->SymbolFontShadow());
            to()->setSymbolVectorColor(from->SymbolVectorColor());
            to()->setSymbolVectorSize(from->SymbolVectorSize());

            copyFont(*from->TextFont(), *to()->TextFont());
            copyTextFontSettings(*from, *to());
        },
        [&](const RuntimeError& e) {
            prefs::logQuietly(s, "Error from copystyle " + e.description());
        });
}

void copyLabelTextStyle(MXStyle& source, MXStyle& target) {
    copyFont(*source.TextFont(), *target.TextFont());
    copyTextFontSettings(source, target);
}

} // namespace vellant::styles
