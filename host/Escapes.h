#pragma once

#include <type_traits>
#include <utility>

namespace ovalia::host {

// Tells the user of the failure being handled and logs it; what fails while the box is up is logged only.
// To be called inside a handler.
void tellEscaped();

// Work from which nothing escapes. For what is connected to a signal: a failure that passes through the
// toolkit on its way out leaves the toolkit's copies of the signal's arguments behind. The work takes the
// signal's arguments, or none of them.
template <typename Work>
class Telling {
 public:
  explicit Telling(Work work) : work_(std::move(work)) {}

  template <typename... Arguments>
  requires std::is_invocable_v<Work&, Arguments...>
  void operator()(Arguments&&... arguments) {
    tellWhatEscapes([&] { work_(std::forward<Arguments>(arguments)...); });
  }

  template <typename... Arguments>
  requires(!std::is_invocable_v<Work&, Arguments...> && std::is_invocable_v<Work&>) void operator()(
      Arguments&&...) {
    tellWhatEscapes(work_);
  }

 private:
  template <typename Call>
  static void tellWhatEscapes(Call&& call) {
    try {
      call();
    } catch (...) {
      tellEscaped();
    }
  }

  Work work_;
};

template <typename Work>
Telling<Work> telling(Work work) {
  return Telling<Work>(std::move(work));
}

}  // namespace ovalia::host
