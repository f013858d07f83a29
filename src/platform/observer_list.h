#pragma once
// Subscribers to a model's changes. A subscriber may subscribe or unsubscribe others, or
// itself, while a change is being delivered: the front end builds and tears down views from
// inside these calls.

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace vellant::platform {

template <class... Args> class ObserverList {
public:
    using Callback = std::function<void(Args...)>;

    int add(Callback callback) {
        const int token = nextToken_++;
        entries_.push_back({token, std::make_shared<Callback>(std::move(callback))});
        return token;
    }

    void remove(int token) {
        for (auto& entry : entries_)
            if (entry.token == token) entry.callback.reset();
        if (depth_ == 0) compact();
    }

    bool empty() const {
        for (const auto& entry : entries_)
            if (entry.callback) return false;
        return true;
    }

    // Subscribers added during delivery hear from the next change on; removed ones are not
    // called again, even later in the same delivery.
    void notify(Args... args) {
        const std::size_t count = entries_.size();
        ++depth_;
        struct Leave {
            ObserverList& list;
            ~Leave() {
                if (--list.depth_ == 0) list.compact();
            }
        } leave{*this};
        for (std::size_t i = 0; i < count; ++i) {
            std::shared_ptr<Callback> callback = entries_[i].callback;
            if (callback) (*callback)(args...);
        }
    }

private:
    struct Entry {
        int token;
        std::shared_ptr<Callback> callback;
    };

    void compact() {
        std::erase_if(entries_, [](const Entry& e) { return !e.callback; });
    }

    std::vector<Entry> entries_;
    int nextToken_ = 1;
    int depth_ = 0;
};

} // namespace vellant::platform
