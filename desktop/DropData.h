#pragma once

#include <QDropEvent>
#include <QMimeData>
#include <vector>

#include "forms/Control.h"

namespace ovalia::desktop {

// The files that data from another program or the clipboard names, "\"-separated; addresses that are no files
// are left out.
std::vector<Text> filesOf(const QMimeData* data);

// Those files as the object that a drag hands on: `GetFormat(15)`, `Files.Count`, `Files(1..n)`.
ObjectRef dragData(const QMimeData& data);

// Files dragged over a control and dropped on it, asked and told to its form.
class FileDrops {
 public:
  explicit FileDrops(forms::ControlRef control) : control_(std::move(control)) {}

  // False when the data holds no files and is the widget's own matter.
  bool over(QDropEvent& event);
  bool dropped(QDropEvent& event);

 private:
  forms::ControlRef control_;
};

}  // namespace ovalia::desktop
