// Feeds arbitrary bytes to the BMP reader that loads the host's style samples.

#include "base/bmp.h"

#include <cstdint>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::uint8_t> bytes(data, data + size);
    if (auto bitmap = vellant::decodeBmp(bytes)) {
        if (bitmap->pixels.size() !=
            static_cast<std::size_t>(bitmap->width) * static_cast<std::size_t>(bitmap->height))
            __builtin_trap();
    }
    return 0;
}
