#pragma once
// Arrays with a fixed index range, as the program's layer arrays (0 to 1000) and column arrays
// (0 to 39) are declared: an index outside the range raises run-time error 9, which the
// procedure's own handler then takes, exactly like any other failure.

#include "base/runtime_error.h"

#include <array>

namespace vellant {

template <class T, long Lower, long Upper> class FixedArray {
public:
    static_assert(Upper >= Lower);
    static constexpr long lower = Lower;
    static constexpr long upper = Upper;

    T& operator[](long index) { return items_[offset(index)]; }
    const T& operator[](long index) const { return items_[offset(index)]; }

    void fill(const T& value) { items_.fill(value); }
    void clear() { items_.fill(T{}); }

private:
    static size_t offset(long index) {
        if (index < Lower || index > Upper) raiseError(kErrSubscript);
        return static_cast<size_t>(index - Lower);
    }
    std::array<T, static_cast<size_t>(Upper - Lower + 1)> items_{};
};

template <class T> using LayerArray = FixedArray<T, 0, 1000>;
template <class T> using ColumnArray = FixedArray<T, 0, 39>;

} // namespace vellant
