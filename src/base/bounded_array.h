#pragma once
// Arrays dimensioned at run time, as ReDim makes them: indexes from 0 to the upper bound given
// (two of them for a table), and run-time error 9 for an index outside, like the fixed arrays.
// Dimensioning anew clears every element.

#include "base/runtime_error.h"

#include <cstddef>
#include <vector>

namespace vellant {

template <class T> class BoundedArray {
public:
    // Elements 0..upper; a negative upper leaves the array empty.
    void redim(long upper) {
        items_.assign(upper < 0 ? 0 : static_cast<std::size_t>(upper) + 1, T{});
    }
    long upperBound() const { return static_cast<long>(items_.size()) - 1; }

    typename std::vector<T>::reference operator[](long index) { return items_[offset(index)]; }
    typename std::vector<T>::const_reference operator[](long index) const {
        return items_[offset(index)];
    }

private:
    std::size_t offset(long index) const {
        if (index < 0 || index >= static_cast<long>(items_.size())) raiseError(kErrSubscript);
        return static_cast<std::size_t>(index);
    }
    std::vector<T> items_;
};

template <class T> class BoundedTable {
public:
    // Elements (0..rowUpper, 0..colUpper), each set to the value given.
    void redim(long rowUpper, long colUpper, const T& value = T{}) {
        rows_ = rowUpper < 0 ? 0 : rowUpper + 1;
        cols_ = colUpper < 0 ? 0 : colUpper + 1;
        items_.assign(static_cast<std::size_t>(rows_ * cols_), value);
    }
    long rowUpperBound() const { return rows_ - 1; }
    long colUpperBound() const { return cols_ - 1; }

    typename std::vector<T>::reference operator()(long row, long col) {
        return items_[offset(row, col)];
    }
    typename std::vector<T>::const_reference operator()(long row, long col) const {
        return items_[offset(row, col)];
    }

private:
    std::size_t offset(long row, long col) const {
        if (row < 0 || row >= rows_ || col < 0 || col >= cols_) raiseError(kErrSubscript);
        return static_cast<std::size_t>(row * cols_ + col);
    }
    long rows_ = 0;
    long cols_ = 0;
    std::vector<T> items_;
};

} // namespace vellant
