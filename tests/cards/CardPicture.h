#pragma once

#include <map>

#include "tests/cardkit/CardWalker.h"

namespace ovalia::kit {

// Everything that a user reads on a card, by control, and its title as "title".
using CardPicture = std::map<Text, Text>;

inline CardPicture pictureOf(forms::CardForm& card) {
  using forms::ControlType;
  CardPicture picture{{u"title", card.Caption()}};
  for (const forms::ControlRef& control : card.controls()) {
    switch (control->type()) {
      case ControlType::TextBox:
      case ControlType::ComboBox:
      case ControlType::CheckBox:
      case ControlType::DTPicker:
      case ControlType::Label:
        picture[control->Name()] = onCard(*control);
        break;
      default:
        break;
    }
  }
  return picture;
}

// The controls whose texts differ, each with both: "txtAsunto: Llaves -> ". Empty for equal pictures.
inline Text changesOf(const CardPicture& before, const CardPicture& after) {
  Text changes;
  for (const auto& [name, text] : after)
    if (const auto old = before.find(name); old == before.end() || old->second != text)
      changes += name + u": " + (old == before.end() ? Text() : old->second) + u" -> " + text + u"\n";
  return changes;
}

}  // namespace ovalia::kit
