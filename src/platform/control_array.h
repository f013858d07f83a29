#pragma once
// A control array: controls that share a name and are told apart by an index in a fixed range,
// such as the pictures ToggleStatusPic(0..3). An index outside the range is the run-time error
// the program's handlers expect from a missing element.

#include "base/runtime_error.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vellant::platform {

inline constexpr int kErrNoSuchControlElement = 340;

template <class T> class ControlArray {
public:
    using Factory = std::function<std::unique_ptr<T>(const std::string& name, int index)>;

    // Elements made as T(name, index).
    ControlArray(std::string name, int lower, int upper)
        : ControlArray(std::move(name), lower, upper,
                       [](const std::string& n, int i) { return std::make_unique<T>(n, i); }) {}

    ControlArray(std::string name, int lower, int upper, const Factory& make)
        : name_(std::move(name)), lower_(lower) {
        for (int i = lower; i <= upper; ++i)
            elements_.push_back(make(name_, i));
    }

    const std::string& Name() const { return name_; }
    int LBound() const { return lower_; }
    int UBound() const { return lower_ + Count() - 1; }
    int Count() const { return static_cast<int>(elements_.size()); }

    T& operator()(int index) { return *elements_[slot(index)]; }
    const T& operator()(int index) const { return *elements_[slot(index)]; }
    T& operator[](int index) { return (*this)(index); }
    const T& operator[](int index) const { return (*this)(index); }

    // The elements in index order, for the front end that mirrors them.
    class Elements {
    public:
        using Inner = typename std::vector<std::unique_ptr<T>>::const_iterator;
        class iterator {
        public:
            explicit iterator(Inner at) : at_(at) {}
            T& operator*() const { return **at_; }
            iterator& operator++() {
                ++at_;
                return *this;
            }
            bool operator==(const iterator& other) const { return at_ == other.at_; }

        private:
            Inner at_;
        };
        explicit Elements(const std::vector<std::unique_ptr<T>>& elements) : elements_(elements) {}
        iterator begin() const { return iterator(elements_.begin()); }
        iterator end() const { return iterator(elements_.end()); }

    private:
        const std::vector<std::unique_ptr<T>>& elements_;
    };
    Elements all() const { return Elements(elements_); }

private:
    std::size_t slot(int index) const {
        if (index < lower_ || index > UBound())
            raiseError(kErrNoSuchControlElement,
                       "Control array element '" + std::to_string(index) + "' doesn't exist");
        return static_cast<std::size_t>(index - lower_);
    }

    std::string name_;
    int lower_;
    std::vector<std::unique_ptr<T>> elements_;
};

} // namespace vellant::platform
