#include "engines/sqlite/Like.h"

#include <unicode/uchar.h>
#include <unicode/uset.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstring>

namespace ovalia::engines::sqlite {
namespace {

char32_t fold(char32_t c) {
  if (c < 0x80) return c >= U'A' && c <= U'Z' ? c + 32 : c;
  return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(c), U_FOLD_CASE_DEFAULT));
}

// The code point at `at`, which moves past it; what is not UTF-8 counts as U+FFFD, byte by byte.
char32_t take(const char*& at, const char* end) {
  const auto lead = static_cast<unsigned char>(*at);
  if (lead < 0x80) {
    ++at;
    return lead;
  }
  UChar32 c = 0;
  std::int32_t i = 0;
  const auto length = static_cast<std::int32_t>(std::min<std::ptrdiff_t>(end - at, 4));
  U8_NEXT_OR_FFFD(reinterpret_cast<const std::uint8_t*>(at), i, length, c);
  at += i;
  return static_cast<char32_t>(c);
}

char32_t takeFolded(const char*& at, const char* end) { return fold(take(at, end)); }

void markLead(std::array<bool, 256>& starts, UChar32 c) {
  std::uint8_t bytes[4];
  std::int32_t length = 0;
  U8_APPEND_UNSAFE(bytes, length, c);
  starts[bytes[0]] = true;
}

// Every character that folds to the same as c, by its first byte.
void markLeads(std::array<bool, 256>& starts, char32_t c) {
  USet* const set = uset_open(static_cast<UChar32>(c), static_cast<UChar32>(c));
  uset_closeOver(set, USET_CASE_INSENSITIVE);
  for (std::int32_t i = 0; i < uset_getItemCount(set); ++i) {
    UChar32 from = 0, to = 0;
    UErrorCode status = U_ZERO_ERROR;
    if (uset_getItem(set, i, &from, &to, nullptr, 0, &status) != 0) continue;
    for (UChar32 each = from; each <= to; ++each) markLead(starts, each);
  }
  uset_close(set);
  if (c == 0xFFFD) starts.fill(true);
}

}  // namespace

LikePattern::LikePattern(std::string_view pattern) {
  for (std::size_t at = 0; at < pattern.size() && valid_;) {
    const char c = pattern[at];
    if (c == '*' || c == '?' || c == '#') {
      const auto kind = c == '*'   ? Element::Kind::Any
                        : c == '?' ? Element::Kind::AnyOne
                                   : Element::Kind::Digit;
      elements_.push_back({kind});
      ++at;
    } else if (c == '[') {
      readSet(pattern, at);
    } else {
      const char* from = pattern.data() + at;
      const char32_t folded = takeFolded(from, pattern.data() + pattern.size());
      elements_.push_back({Element::Kind::Character, folded});
      at = static_cast<std::size_t>(from - pattern.data());
    }
  }
  cutParts();
  markStarts();
}

// "[]" is nothing at all; "-" at an end of the set stands for itself, "!" anywhere but at its start too.
void LikePattern::readSet(std::string_view pattern, std::size_t& at) {
  const std::size_t close = pattern.find(']', at);
  if (close == std::string_view::npos) {
    valid_ = false;
    return;
  }
  const char* from = pattern.data() + at + 1;
  const char* const end = pattern.data() + close;
  at = close + 1;
  if (from == end) return;
  Element element{Element::Kind::Set, 0, ranges_.size(), 0, false};
  if (*from == '!' && end - from > 1) {
    element.negated = true;
    ++from;
  }
  while (from < end) {
    const char32_t first = takeFolded(from, end);
    char32_t last = first;
    if (end - from > 1 && *from == '-') {
      ++from;
      last = takeFolded(from, end);
    }
    if (last < first) valid_ = false;
    ranges_.push_back({first, last});
  }
  element.endRange = ranges_.size();
  elements_.push_back(element);
}

void LikePattern::cutParts() {
  std::size_t first = 0;
  for (std::size_t i = 0; i <= elements_.size(); ++i) {
    if (i < elements_.size() && elements_[i].kind != Element::Kind::Any) continue;
    Part part{first, i, true};
    for (std::size_t e = first; e < i; ++e)
      part.characters = part.characters && elements_[e].kind == Element::Kind::Character;
    parts_.push_back(part);
    first = i + 1;
  }
}

void LikePattern::markStarts() {
  starts_.resize(parts_.size());
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    const Part& part = parts_[i];
    if (part.first == part.end) continue;
    const Element& first = elements_[part.first];
    if (first.kind == Element::Kind::Character)
      markLeads(starts_[i].all, first.character);
    else
      starts_[i].all.fill(true);
    constexpr std::ptrdiff_t searchedOneByOne = 3;
    if (std::count(starts_[i].all.begin(), starts_[i].all.end(), true) > searchedOneByOne) continue;
    for (std::size_t byte = 0; byte < starts_[i].all.size(); ++byte)
      if (starts_[i].all[byte]) starts_[i].few += static_cast<char>(byte);
  }
}

bool LikePattern::accepts(const Element& element, char32_t folded) const {
  switch (element.kind) {
    case Element::Kind::Character:
      return element.character == folded;
    case Element::Kind::Digit:
      return folded >= U'0' && folded <= U'9';
    case Element::Kind::Set:
      for (std::size_t i = element.firstRange; i < element.endRange; ++i)
        if (folded >= ranges_[i].from && folded <= ranges_[i].to) return !element.negated;
      return element.negated;
    default:
      return true;
  }
}

const char* LikePattern::matchAt(const Part& part, const char* at, const char* end) const {
  for (std::size_t i = part.first; i < part.end; ++i) {
    if (at == end) return nullptr;
    const char32_t folded = takeFolded(at, end);
    if (elements_[i].character == folded && elements_[i].kind == Element::Kind::Character) continue;
    if (!accepts(elements_[i], folded)) return nullptr;
  }
  return at;
}

const char* LikePattern::Starts::next(const char* at, const char* end) const {
  if (few.empty()) {
    while (at < end && !all[static_cast<unsigned char>(*at)]) ++at;
    return at;
  }
  for (const char byte : few)
    if (const void* const found = std::memchr(at, byte, static_cast<std::size_t>(end - at)))
      end = static_cast<const char*>(found);
  return end;
}

const char* LikePattern::search(const Part& part, const char* at, const char* end) const {
  const Starts& starts = starts_[static_cast<std::size_t>(&part - parts_.data())];
  for (; (at = starts.next(at, end)) < end; ++at) {
    if ((static_cast<unsigned char>(*at) & 0xC0) == 0x80) continue;
    if (const char* const after = matchAt(part, at, end)) return after;
  }
  return nullptr;
}

bool LikePattern::matchesEnd(const Part& part, const char* from, const char* end) const {
  const char* at = end;
  for (std::size_t left = part.end - part.first; left > 0; --left) {
    if (at <= from) return false;
    --at;
    while (at > from && (static_cast<unsigned char>(*at) & 0xC0) == 0x80) --at;
  }
  return matchAt(part, at, end) == end;
}

bool LikePattern::matches(std::string_view text) const {
  if (!valid_) return false;
  const char* at = text.data();
  const char* const end = at + text.size();
  if (parts_.size() == 1) return matchAt(parts_.front(), at, end) == end;
  at = matchAt(parts_.front(), at, end);
  if (!at) return false;
  for (std::size_t i = 1; i + 1 < parts_.size(); ++i) {
    if (parts_[i].first == parts_[i].end) continue;
    at = search(parts_[i], at, end);
    if (!at) return false;
  }
  return matchesEnd(parts_.back(), at, end);
}

}  // namespace ovalia::engines::sqlite
