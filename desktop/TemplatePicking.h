#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/Text.h"

namespace ovalia::desktop {

// Where a print is to go.
struct PrintWish {
  enum class Where { screen, pdf, printer };
  Where where = Where::screen;
  Text printer = {};  // its name

  bool operator==(const PrintWish&) const = default;
};

// What the program and the chooser of templates say to each other. One a thread; the thread is the one that
// runs the windows.
struct TemplatePicking {
  static TemplatePicking& current();

  // A line about a template, by its path in the system's form, that the chooser shows. May be empty.
  std::function<Text(TextView nativePath)> describe;

  // The names of the printers, the usual one first; those of the system while it is empty.
  std::function<std::vector<Text>()> printers;

  // Where the user wants their prints; nothing until they have chosen a template to print with.
  std::optional<PrintWish> wish;

  // The template chosen last, which is selected when its folder is shown again.
  Text chosen;
};

}  // namespace ovalia::desktop
