#include "desktop/LineEnds.h"

#include "desktop/QtText.h"

namespace ovalia::desktop {

namespace {

bool pairAt(TextView text, std::size_t at) {
  return text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
}

}  // namespace

QString shownLines(TextView stored) {
  Text shown;
  shown.reserve(stored.size());
  for (std::size_t i = 0; i < stored.size(); ++i) {
    if (pairAt(stored, i)) ++i;
    shown += stored[i] == u'\r' ? u'\n' : stored[i];
  }
  return toQt(shown);
}

Text storedLines(const QString& shown) { return replaceAll(fromQt(shown), u"\n", CRLF); }

int shownPosition(TextView stored, int position) {
  const auto before = stored.substr(0, static_cast<std::size_t>(position));
  int shown = 0;
  for (std::size_t i = 0; i < before.size(); ++i, ++shown)
    if (pairAt(before, i)) ++i;
  return shown;
}

int storedPosition(TextView stored, int shown) {
  std::size_t at = 0;
  for (; shown > 0 && at < stored.size(); ++at, --shown)
    if (pairAt(stored, at)) ++at;
  return static_cast<int>(at);
}

}  // namespace ovalia::desktop
