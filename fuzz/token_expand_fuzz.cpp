// Feeds arbitrary text of a "user info" cell through the token expansion, with a layer name taken
// from the input too. An unpaired percent sign may be refused with a run-time error; anything
// else must leave no percent sign behind, and a text without one must come back unchanged.

#include "base/runtime_error.h"
#include "interaction/info_cells.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    // Text, then a NUL, then the layer's name. A name with a percent sign may expand into itself
    // again; the expansion gives up with error 5 rather than run on.
    const std::size_t cut = input.find('\0');
    const std::string_view text = input.substr(0, cut);
    const std::string name(cut == std::string_view::npos ? std::string_view()
                                                         : input.substr(cut + 1));
    const auto layer = static_cast<std::int16_t>(size % 1001);
    try {
        const std::string out = vellant::interaction::expandTokens(
            text, [&] { return name; }, layer, static_cast<std::int32_t>(size));
        if (out.find('%') != std::string::npos) std::abort();
        if (text.find('%') == std::string_view::npos && out != text) std::abort();
    } catch (const vellant::RuntimeError& e) {
        if (e.number() != vellant::kErrInvalidCall) std::abort();
    }
    return 0;
}
