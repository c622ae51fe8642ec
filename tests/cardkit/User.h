#pragma once

#include <cstdint>
#include <optional>

#include "tests/cardkit/Desk.h"

namespace ovalia::kit {

// The person at the keyboard: acts on the form that is shown innermost, through what the forms offer to their
// views. To be used inside a script of the desk. What a real user could not do (a name that the list lacks, a
// box that is ticked already, a control or tool that is disabled or hidden) fails the test.
//
//   user.types(u"txtAsunto", u"Llaves");   user.picks(u"cboUsuario", u"Ana Ruiz");   user.ticks(u"chkAviso");
//   user.sets(u"dtpFechaFin", u"12/03/26");   user.clicks(u"ID_Guardar");   user.presses(escape);
class User {
 public:
  static constexpr int enter = 13, escape = 27, keyV = 86, comma = 188, fullStop = 190;
  static constexpr int shiftKey = 1, ctrlKey = 2;

  explicit User(Desk& desk) : desk_(desk) {}

  // Each takes the focus first, as the real control does; a refused check of the control that had it keeps
  // the action from happening.
  void types(TextView control, TextView text);  // text box or editable combo: the whole new text
  void picks(TextView combo, TextView entry);
  void ticks(TextView check);
  void unticks(TextView check);
  void sets(TextView picker, const Variant& dateOrText);  // Null unticks a picker with a check box
  void clicks(TextView toolOrControl);  // tool ("ID_..."), button, check box; any other: the focus
  void doubleClicks(TextView textBox);

  bool enters(TextView control);  // false when the control that is left kept the focus
  void tabs(bool forward = true);
  void presses(int keyCode, int shift = 0);

  void opensMenu(TextView id);
  void pressesArrow(TextView toolId, forms::Point at = {});

  // The document list. Places count from 1; 0 is the empty part.
  void clicksItem(int place);
  void rightClicksItem(int place);
  void doubleClicksItem(int place);
  void renamesItem(TextView text);
  void dragsPane(double twips);

  // A character on the keyboard, at the end of a text box; nothing where the form keeps it from it.
  void strikes(TextView textBox, char16_t character);

  // The grid of the form: rows and columns from 0, Shift and Ctrl as for a key.
  void clicksRow(std::int32_t row, int shift = 0);
  void clicksHeading(int column);
  void deletesRows();  // the Delete key on it

  void dragsOver(TextView control, const ObjectRef& data, std::int32_t& effect);
  void drops(TextView control, const ObjectRef& data);

  bool closes();  // by the close box; false when it was refused
  void resizes(double width, double height);
  void minimises();

 private:
  template <class Kind>
  Kind& usable(TextView control);
  void toggles(TextView check, int wanted);
  forms::Grid& grid();

  Desk& desk_;
};

}  // namespace ovalia::kit
