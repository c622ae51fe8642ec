#pragma once

#include "platform/Text.h"

namespace ovalia::engines {

// sameName with a short way for names that differ in ASCII letters only, which nearly all do.
inline bool sameColumn(TextView a, TextView b) {
  if (a.size() != b.size()) return sameName(a, b);
  for (std::size_t i = 0; i < a.size(); ++i) {
    const char16_t x = a[i], y = b[i];
    if (x == y) continue;
    if (x > 0x7F || y > 0x7F) return sameName(a, b);
    if ((x | 0x20) != (y | 0x20) || (x | 0x20) < u'a' || (x | 0x20) > u'z') return false;
  }
  return true;
}

// Whether two names are the same to an engine that folds ASCII letters only.
inline bool sameAscii(TextView a, TextView b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const char16_t x = a[i], y = b[i];
    if (x == y) continue;
    if ((x | 0x20) != (y | 0x20) || (x | 0x20) < u'a' || (x | 0x20) > u'z') return false;
  }
  return true;
}

}  // namespace ovalia::engines
