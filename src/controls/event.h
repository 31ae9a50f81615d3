// An event of a control: the one handler that the program has connected to it, or none.
#pragma once

#include <functional>
#include <utility>

namespace qv {

template <class... Args>
class EventOf {
   public:
    EventOf& operator=(std::function<void(Args...)> handler) {
        handler_ = std::move(handler);
        return *this;
    }

    // Runs the handler, if there is one. The handler may replace itself or end the life of its control's form.
    void operator()(Args... args) const {
        if (!handler_) return;
        const auto keep = handler_;
        keep(args...);
    }

    explicit operator bool() const { return static_cast<bool>(handler_); }

   private:
    std::function<void(Args...)> handler_;
};

using Event = EventOf<>;

}  // namespace qv
