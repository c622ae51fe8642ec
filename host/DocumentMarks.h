#pragma once

#include <map>
#include <optional>
#include <span>

#include "platform/Variant.h"

// The marks by which a template says where the data of an annotation go, as its author knows them.
namespace ovalia::host {

// Where a mark has a text: on a card that is open, on a row of a list, or on both.
enum class MarkSource { card, list, both };

struct DocumentMark {
  TextView name;
  TextView same;  // the mark whose text stands here when this one is not handed over; "" for none
  MarkSource source;
  TextView meaning;
  TextView example;
};

std::span<const DocumentMark> documentMarks();

// Without regard to case; null for a name that is no mark.
const DocumentMark* documentMark(TextView name);

// What a bookmark of a template is to hold, from the two arrays that the component hands over: the mark's
// text, and where it stands twice the one that is not empty; "" for a mark that is not among them; nothing
// for a name that is no mark.
class MarkTexts {
 public:
  MarkTexts(const Variant& marks, const Variant& texts);
  std::optional<Text> operator()(TextView bookmark) const;

 private:
  const Text* given(TextView name) const;
  std::map<Text, Text, NameLess> texts_;
};

}  // namespace ovalia::host
