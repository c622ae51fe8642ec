#pragma once

#include <QPointer>

#include "forms/Form.h"

namespace ovalia::desktop {

class CardWindow;

// Draws a form in a window of the toolkit: widgets, menus, toolbar. The window is modal to the program; each
// modal show runs a loop of its own.
class CardView : public forms::FormView {
 public:
  explicit CardView(forms::Form& form);
  ~CardView() override;

  void show() override;
  void runModal() override;
  void hide() override;
  void activate() override;
  void formChanged(forms::FormProperty property) override;
  void controlChanged(forms::Control& control, forms::Property property) override;
  void toolChanged(forms::ActiveToolBars& bars, TextView id) override;
  void focusChanged() override;
  void popupMenu(forms::ActiveToolBars& bars, TextView menu, const std::optional<forms::Point>& at) override;

 private:
  QPointer<CardWindow> window_;
};

// From now on this thread's forms are drawn by CardView.
void installViews();

}  // namespace ovalia::desktop
