#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace ovalia::engines::sqlite {

// A Jet pattern made ready: * any text, ? one character, # one digit, [a-z] one of a set, [!a-z] one of none
// of it. Case does not count in the whole of Unicode, accents do. A set that does not end matches nothing.
class LikePattern {
 public:
  explicit LikePattern(std::string_view pattern);  // UTF-8, as the texts

  bool matches(std::string_view text) const;

 private:
  struct Range {
    char32_t from, to;
  };
  struct Element {
    enum class Kind { Character, Any, AnyOne, Digit, Set } kind;
    char32_t character = 0;
    std::size_t firstRange = 0, endRange = 0;
    bool negated = false;
  };
  struct Part {  // what stands between two stars
    std::size_t first, end;
    bool characters;  // nothing but plain characters
  };

  struct Starts {  // bytes that a match can begin with
    std::array<bool, 256> all{};
    std::string few;  // the same where they are few
    const char* next(const char* at, const char* end) const;
  };

  void readSet(std::string_view pattern, std::size_t& at);
  void cutParts();
  void markStarts();
  bool accepts(const Element& element, char32_t folded) const;
  const char* matchAt(const Part& part, const char* at, const char* end) const;
  const char* search(const Part& part, const char* at, const char* end) const;
  bool matchesEnd(const Part& part, const char* from, const char* end) const;

  std::vector<Element> elements_;
  std::vector<Range> ranges_;
  std::vector<Part> parts_;
  std::vector<Starts> starts_;  // of each part
  bool valid_ = true;
};

}  // namespace ovalia::engines::sqlite
