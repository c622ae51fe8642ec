#pragma once

#include <string>
#include <string_view>

#include "desktop/DesktopScreen.h"
#include "forms/Form.h"
#include "host/MainWindow.h"

namespace ovalia::host {

class BeepingScreen : public desktop::DesktopScreen {
 public:
  void beep() override { ++beeps; }
  int beeps = 0;
};

// The one who sits at the desk and does with mouse and keys what a line says:
//
//   property 12                   the lists are of that property from now on
//   open grdNota 4                the card of a list's row, by its key; the answer comes with the card
//   new grdNota                   a new card
//   type txtNotas Señal recibida  in place of what stands in the control
//   tool ID_Guardar               a tool of the card's bar
//   key Ctrl+.                    in the window that is in use
//   attach /tmp/plano.pdf         copied in a file manager and pasted on the card
//   press Aceptar                 a button of the box that is up
//   find Notas señal              in the search dialog that is up, from the list's beginning
//   close                         the window on top, by its close box
//   tell ...                      says what is asked (see the table)
//
// The answer is "done", "is ..." to what was asked, or "fail ..." with the reason.
class Clerk {
 public:
  Clerk(MainWindow& window, BeepingScreen& screen);

  std::string obey(const std::string& line);

 private:
  struct Verb;
  struct Question;
  static const Verb verbs[];
  static const Question questions[];

  void property(std::string_view number);
  void open(std::string_view gridAndKey);
  void create(std::string_view grid);
  void type(std::string_view controlAndText);
  void tool(std::string_view id);
  void key(std::string_view sequence);
  void attach(std::string_view path);
  void press(std::string_view button);
  void find(std::string_view fieldAndText);
  void close(std::string_view);

  std::string tell(std::string_view question);
  Text keys(std::string_view grid);
  Text place();

  ListPane& pane(std::string_view grid);

  MainWindow& window_;
  BeepingScreen& screen_;
  std::int32_t property_ = 1;
  ListPane* pane_ = nullptr;  // whose card was opened last
};

}  // namespace ovalia::host
