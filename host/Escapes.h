#pragma once

#include <type_traits>
#include <utility>

namespace ovalia::host {

// Tells the user of the failure being handled and logs it; what fails while the box is up is logged only.
// To be called inside a handler.
void tellEscaped();

// The same work, from which nothing escapes. For what is connected to a signal: a failure that passes
// through the toolkit on its way out leaves the toolkit's copies of the signal's arguments behind.
template <typename Work>
auto telling(Work work) {
  return [work = std::move(work)](auto&&... arguments) mutable
         -> void requires(std::is_invocable_v<Work&, decltype(arguments)...> || std::is_invocable_v<Work&>) {
    try {
      if constexpr (std::is_invocable_v<Work&, decltype(arguments)...>)
        work(std::forward<decltype(arguments)>(arguments)...);
      else
        work();
    } catch (...) {
      tellEscaped();
    }
  };
}

}  // namespace ovalia::host
