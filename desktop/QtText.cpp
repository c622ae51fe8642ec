#include "desktop/QtText.h"

namespace ovalia::desktop {

QString spoken(TextView caption) {
  Text plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    const bool mark = caption[i] == u'&';
    if (mark && ++i == caption.size()) break;
    plain += caption[i];
  }
  while (!plain.empty() && (plain.back() == u':' || plain.back() == u' ')) plain.pop_back();
  return toQt(plain);
}

}  // namespace ovalia::desktop
