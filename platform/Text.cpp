#include "platform/Text.h"

#include <algorithm>
#include <iterator>

#include "platform/LowerCaseTable.h"

namespace ovalia {

namespace {

constexpr char32_t replacement = 0xFFFD;

bool isHigh(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLow(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

// The code point at `at`, which moves on past it; a lone surrogate is given as it is.
char32_t nextCodePoint(TextView text, std::size_t& at) {
  const char16_t unit = text[at++];
  if (!isHigh(unit) || at == text.size() || !isLow(text[at])) return unit;
  return 0x10000 + ((char32_t(unit) - 0xD800) << 10) + (text[at++] - 0xDC00);
}

void appendCodePoint(Text& text, char32_t code) {
  if (code < 0x10000) {
    text += char16_t(code);
  } else {
    text += char16_t(0xD800 + ((code - 0x10000) >> 10));
    text += char16_t(0xDC00 + ((code - 0x10000) & 0x3FF));
  }
}

void appendUtf8(std::string& bytes, char32_t code) {
  if (code < 0x80) {
    bytes += char(code);
    return;
  }
  const int followers = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
  constexpr unsigned char leads[] = {0, 0xC0, 0xE0, 0xF0};
  bytes += char(leads[followers] | (code >> (6 * followers)));
  for (int i = followers - 1; i >= 0; --i) bytes += char(0x80 | ((code >> (6 * i)) & 0x3F));
}

// The length of the well-formed sequence at the beginning, and its code point; 0 when there is none.
int readUtf8(std::string_view bytes, char32_t& code) {
  const auto lead = static_cast<unsigned char>(bytes[0]);
  if (lead < 0x80) {
    code = lead;
    return 1;
  }
  const int length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || bytes.size() < std::size_t(length)) return 0;
  code = lead & (0x7F >> length);
  for (int i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    if ((byte & 0xC0) != 0x80) return 0;
    code = (code << 6) | (byte & 0x3F);
  }
  constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = code >= 0xD800 && code < 0xE000;
  return code < least[length] || code > 0x10FFFF || surrogate ? 0 : length;
}

char32_t lowerCase(char32_t code) {
  if (code < 0x80) return code >= U'A' && code <= U'Z' ? code + 32 : code;
  const auto run = std::lower_bound(std::begin(lowerCaseRuns), std::end(lowerCaseRuns), code,
                                    [](const LowerCaseRun& r, char32_t c) { return r.last < c; });
  if (run == std::end(lowerCaseRuns) || code < run->first || (code - run->first) % run->stride) return code;
  return char32_t(std::int32_t(code) + run->delta);
}

}  // namespace

std::string toUtf8(TextView text) {
  std::string bytes;
  bytes.reserve(text.size() + text.size() / 8);
  for (std::size_t at = 0; at < text.size();) {
    const char32_t code = nextCodePoint(text, at);
    appendUtf8(bytes, code >= 0xD800 && code < 0xE000 ? replacement : code);
  }
  return bytes;
}

Text fromUtf8(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    char32_t code = replacement;
    const int length = readUtf8(bytes, code);
    appendCodePoint(text, length ? code : replacement);
    bytes.remove_prefix(std::max(length, 1));
  }
  return text;
}

Text lowerCase(TextView text) {
  Text lower;
  lower.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) appendCodePoint(lower, lowerCase(nextCodePoint(text, at)));
  return lower;
}

bool sameName(TextView a, TextView b) {
  std::size_t i = 0, j = 0;
  while (i < a.size() && j < b.size()) {
    if (a[i] == b[j] && a[i] < 0x80) {
      ++i, ++j;
    } else if (lowerCase(nextCodePoint(a, i)) != lowerCase(nextCodePoint(b, j))) {
      return false;
    }
  }
  return i == a.size() && j == b.size();
}

bool NameLess::operator()(TextView a, TextView b) const {
  std::size_t i = 0, j = 0;
  while (i < a.size() && j < b.size()) {
    const char32_t left = lowerCase(nextCodePoint(a, i)), right = lowerCase(nextCodePoint(b, j));
    if (left != right) return left < right;
  }
  return i == a.size() && j < b.size();
}

Text trimBlanks(TextView text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == TextView::npos) return {};
  return Text(text.substr(first, text.find_last_not_of(u' ') + 1 - first));
}

Text replaceAll(TextView text, TextView what, TextView with) {
  if (what.empty()) return Text(text);
  Text result;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(what, from)) != TextView::npos; from = at + what.size()) {
    result.append(text, from, at - from);
    result += with;
  }
  result.append(text, from, TextView::npos);
  return result;
}

Text toText(std::int64_t number) {
  const std::string digits = std::to_string(number);
  return Text(digits.begin(), digits.end());
}

}  // namespace ovalia
