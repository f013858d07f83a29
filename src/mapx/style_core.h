#pragma once
// The values behind one Style and whoever draws with them. A style's font objects share them
// with the style, so that "Style.TextFont.Bold = True" changes the style a layer draws with,
// and a font object kept after its style has gone still holds its values.

#include "mapx/style_data.h"

namespace vellant::mapx {

// Whoever draws with a part (a layer with its style, labels with theirs) hears of each change.
class PartListener {
public:
    virtual void partChanged() = 0;

protected:
    ~PartListener() = default;
};

struct StyleCore {
    StyleData data;
    PartListener* listener = nullptr;

    template <class T> void assign(T& field, const T& value) {
        if (field == value) return;
        field = value;
        changed();
    }
    void changed() const {
        if (listener != nullptr) listener->partChanged();
    }
};

} // namespace vellant::mapx
