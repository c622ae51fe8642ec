#include "tests/cardkit/User.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ovalia::kit {

using namespace forms;

template <class Kind>
Kind& User::usable(TextView control) {
  const auto found = desk_.top().as<Kind>(control);
  EXPECT_TRUE(found->takesFocus()) << toUtf8(control) << " is disabled or hidden";
  return *found;
}

void User::types(TextView control, TextView text) {
  if (desk_.top().control(control)->type() == ControlType::ComboBox)
    usable<ComboBox>(control).userTypes(text);
  else
    usable<TextBox>(control).userTypes(text);
}

void User::picks(TextView combo, TextView entry) {
  ComboBox& list = usable<ComboBox>(combo);
  const auto& entries = list.entries();
  const auto found = std::ranges::find(entries, Text(entry), &ComboBox::Entry::text);
  if (found == entries.end()) {
    ADD_FAILURE() << toUtf8(combo) << " does not offer \"" << toUtf8(entry) << "\"";
    return;
  }
  list.userPicks(static_cast<int>(found - entries.begin()));
}

void User::toggles(TextView check, int wanted) {
  CheckBox& box = usable<CheckBox>(check);
  EXPECT_NE(box.Value(), wanted) << toUtf8(check) << " is so already";
  box.userToggles();
}

void User::ticks(TextView check) { toggles(check, 1); }
void User::unticks(TextView check) { toggles(check, 0); }

void User::sets(TextView picker, const Variant& dateOrText) { usable<DTPicker>(picker).userSets(dateOrText); }

void User::clicks(TextView toolOrControl) {
  if (toolOrControl.starts_with(u"ID_")) {
    ActiveToolBars& bars = desk_.top().toolbars();
    const auto tool = bars.tool(toolOrControl);
    EXPECT_TRUE(tool->Enabled() && tool->Visible()) << toUtf8(toolOrControl) << " is disabled or hidden";
    return bars.userSelects(toolOrControl);
  }
  Control& control = usable<Control>(toolOrControl);
  switch (control.type()) {
    case ControlType::CommandButton:
      return dynamic_cast<CommandButton&>(control).userClicks();
    case ControlType::CheckBox:
      return dynamic_cast<CheckBox&>(control).userToggles();
    default:
      desk_.top().userFocuses(control);
  }
}

void User::doubleClicks(TextView textBox) { usable<TextBox>(textBox).userDoubleClicks(); }

bool User::enters(TextView control) { return desk_.top().userFocuses(usable<Control>(control)); }
void User::tabs(bool forward) { desk_.top().userTabs(forward); }
void User::presses(int keyCode, int shift) { desk_.top().userKey(keyCode, shift); }

void User::opensMenu(TextView id) {
  EXPECT_TRUE(desk_.top().toolbars().isMenu(id)) << toUtf8(id) << " is no menu";
  desk_.top().toolbars().userOpensMenu(id);
}

void User::pressesArrow(TextView toolId, Point at) { desk_.top().toolbars().userPressesArrow(toolId, at); }

void User::clicksItem(int place) { usable<ListView>(u"LsvDocu").userClicks(place, 1); }
void User::rightClicksItem(int place) { usable<ListView>(u"LsvDocu").userClicks(place, 2); }
void User::doubleClicksItem(int place) { usable<ListView>(u"LsvDocu").userDoubleClicks(place); }
void User::renamesItem(TextView text) { usable<ListView>(u"LsvDocu").userEditsLabel(text); }
void User::dragsPane(double twips) { desk_.top().as<Splitter>(u"splitDocumentos")->userDrags(twips); }

void User::strikes(TextView textBox, char16_t character) {
  TextBox& box = usable<TextBox>(textBox);
  if (desk_.top().userFocuses(box) && desk_.top().userPresses(character))
    box.userTypes(box.text() + character);
}

Grid& User::grid() {
  for (const ControlRef& control : desk_.top().controls())
    if (control->type() == ControlType::Grid) return usable<Grid>(control->Name());
  throw Failure(failure::noSuchControl);
}

void User::clicksRow(std::int32_t row, int shift) { grid().userClicksRow(row, shift); }
void User::clicksHeading(int column) { grid().userClicksHeading(column); }
void User::deletesRows() { grid().userDeletes(); }

void User::dragsOver(TextView control, const ObjectRef& data, std::int32_t& effect) {
  desk_.top().userDragsOver(usable<Control>(control), data, effect);
}
void User::drops(TextView control, const ObjectRef& data) {
  desk_.top().userDrops(usable<Control>(control), data);
}

bool User::closes() { return desk_.top().userCloses(); }
void User::resizes(double width, double height) { desk_.top().userResizes(width, height); }
void User::minimises() { desk_.top().userSetsWindowState(1); }

}  // namespace ovalia::kit
