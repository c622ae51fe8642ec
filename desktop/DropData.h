#pragma once

#include <QDropEvent>
#include <QMimeData>
#include <QWidget>
#include <vector>

#include "forms/Control.h"

namespace ovalia::desktop {

// The files that data from another program or the clipboard names, "\"-separated; as a list of addresses or,
// where there is none, by the marks of the file managers that bring no such list. Left out are addresses of
// other machines and those whose names cannot be written in a path of the logic.
std::vector<Text> filesOf(const QMimeData* data);

// Those files as the object that a drag hands on: `GetFormat(15)`, `Files.Count`, `Files(1..n)`.
ObjectRef dragData(const QMimeData& data);

// Files dragged over a control and dropped on it, asked and told to its form. All else is refused: what names
// no file, what may not be copied, what comes from the same window, and everything while a command with files
// runs.
class FileDrops {
 public:
  FileDrops(forms::ControlRef control, const QWidget& widget)
      : control_(std::move(control)), widget_(widget) {}

  void over(QDropEvent& event);
  void dropped(QDropEvent& event);

 private:
  bool possible(const QDropEvent& event) const;

  forms::ControlRef control_;
  const QWidget& widget_;
};

}  // namespace ovalia::desktop
