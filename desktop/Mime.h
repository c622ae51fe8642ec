#pragma once

// The toolkit's word for its own macro is a member's name in GLib.
#undef signals

#include <gmime/gmime.h>

#include <memory>

// What writing and reading mails share of the MIME library.
namespace ovalia::desktop {

struct Unref {
  void operator()(void* object) const { g_object_unref(object); }
};
template <class T>
using Owned = std::unique_ptr<T, Unref>;

inline void startMime() {
  static const bool started = (g_mime_init(), true);
  (void)started;
}

}  // namespace ovalia::desktop
