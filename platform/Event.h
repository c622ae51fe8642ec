#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace ovalia {

// An event of the component: listeners are called in the order they were connected, on the caller's thread.
// Reference arguments carry answers back. A listener may connect or disconnect while the event is raised; the
// change counts from the next raise on. What a listener throws ends the raise and reaches whoever raised it.
template <class... Args>
class Event {
 public:
  using Listener = std::function<void(Args...)>;
  using Connection = std::size_t;

  Connection connect(Listener listener) {
    listeners_.push_back({++last_, std::move(listener)});
    return last_;
  }
  void disconnect(Connection connection) {
    std::erase_if(listeners_, [=](const Entry& entry) { return entry.id == connection; });
  }
  void clear() { listeners_.clear(); }
  bool connected() const { return !listeners_.empty(); }

  void operator()(Args... args) const {
    const auto listeners = listeners_;
    for (const Entry& entry : listeners) entry.listener(args...);
  }

 private:
  struct Entry {
    Connection id;
    Listener listener;
  };
  std::vector<Entry> listeners_;
  Connection last_ = 0;
};

}  // namespace ovalia
