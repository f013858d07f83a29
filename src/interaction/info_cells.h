#pragma once
// The columns "user info" and "user eval": a MapBasic expression against each layer, with the
// tokens %LAYERNAME%, %LAYERNUM% and %MAPID%, and its value. The editor offers the constant
// names of the information functions; the position of a pick is its code.

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace vellant::platform {
class ComboBox;
}
namespace vellant::session {
struct Session;
}

namespace vellant::interaction {

using session::Session;

// The 86 keywords in list order: TableInfo codes 1-31, LayerInfo 1-33, MapperInfo 1-22.
std::span<const std::string_view> infoKeywords();
void fillInfoKeywords(platform::ComboBox& list);

// The expression a pick at position (from 1) stands for.
std::string infoExpression(int position);

// The text with every %token% replaced: %LAYERNAME% by the name in double quotes (asked for only
// when the token is met), %LAYERNUM% and %MAPID% by Str of the number, any other name by
// unknown_token. The scan starts again at the front after each token, and only 555 characters
// behind a token are kept. A percent sign without a partner raises error 5. A layer name that
// itself holds a percent sign starts a token of its own.
std::string expandTokens(std::string_view text, const std::function<std::string()>& layerName,
                         std::int16_t layerNum, std::int32_t mapId);

// The value of the layer's "user info" expression (read from its grid cell) with its tokens
// replaced, or "" when it has no token or MapInfo cannot evaluate it. gLayer must be the layer.
std::string runfunction(Session& s, std::int16_t& layer);

} // namespace vellant::interaction
