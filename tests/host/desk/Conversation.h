#pragma once

#include <QWidget>
#include <functional>
#include <istream>
#include <string>
#include <vector>

namespace ovalia::host {

// The talk with whoever started the program: each line that comes in is a command, and each is answered by
// one line. A command that brings up a window is answered with that window, and the commands that follow are
// given over it until it is gone; then what was waiting for the window goes on, and its end is the answer to
// the command that put the window away. So the other side always knows what stands on the desk, and nothing
// on this one happens while it makes up its mind.
//
// A line never has a line end in it: "⏎" stands for one, in both directions.
class Conversation {
 public:
  using Obey = std::function<std::string(const std::string& command)>;

  // What `obey` gives is the answer to its command. `answers` is a file descriptor.
  Conversation(std::istream& commands, int answers, Obey obey);

  // Returns when the window is gone or, the commands being at their end, at once.
  void over(QWidget& window, const std::string& greeting);

 private:
  class Watch;

  void perform(const std::string& command, std::string& result);
  void answer(const std::string& line);

  std::istream& commands_;
  int answers_;
  Obey obey_;
  bool owed_ = false;                    // a command has come and its answer has not gone
  std::vector<const QWidget*> windows_;  // that are talked over, one above the other
};

// The window that the user has to deal with before any other: a box, a dialog, a card; null when there is
// none.
QWidget* windowOnTop();

}  // namespace ovalia::host
