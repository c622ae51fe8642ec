#include "desktop/CardView.h"

#include "desktop/CardWindow.h"

namespace ovalia::desktop {

CardView::CardView(forms::Form& form) : window_(new CardWindow(form)) {}

CardView::~CardView() {
  if (!window_) return;
  window_->release();
  window_->retire();
}

void CardView::show() { window_->showForm(); }

void CardView::runModal() {
  if (window_->isVisible()) window_->runModal();
}

void CardView::hide() {
  window_->endModal();
  window_->hide();
}

void CardView::activate() {
  window_->raise();
  window_->activateWindow();
}

void CardView::formChanged(forms::FormProperty property) {
  switch (property) {
    case forms::FormProperty::Caption:
      return window_->followCaption();
    case forms::FormProperty::Place:
      return window_->followPlace();
    case forms::FormProperty::WindowState:
      return window_->followState();
  }
}

void CardView::controlChanged(forms::Control& control, forms::Property property) {
  window_->followControl(control, property);
}

void CardView::toolChanged(forms::ActiveToolBars&, TextView id) { window_->followTool(id); }
void CardView::focusChanged() { window_->followFocus(); }

void CardView::popupMenu(forms::ActiveToolBars&, TextView menu, const std::optional<forms::Point>& at) {
  window_->popUp(menu, at);
}

void installViews() {
  forms::Runtime::current().setViewFactory(
      [](forms::Form& form) { return std::make_shared<CardView>(form); });
}

}  // namespace ovalia::desktop
