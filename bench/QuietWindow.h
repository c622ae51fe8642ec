#pragma once

#include <functional>

#include "forms/Form.h"
#include "forms/View.h"

namespace ovalia::bench {

// While one lives, forms are shown by nobody: a modal show runs the work it was given and is over.
class QuietWindow {
 public:
  explicit QuietWindow(std::function<void()> whileShown) : whileShown_(std::move(whileShown)) {
    forms::Runtime::current().setViewFactory(
        [this](forms::Form& form) { return std::make_shared<View>(*this, form); });
  }
  ~QuietWindow() { forms::Runtime::current().setViewFactory({}); }
  QuietWindow(const QuietWindow&) = delete;
  QuietWindow& operator=(const QuietWindow&) = delete;

 private:
  class View : public forms::FormView {
   public:
    View(QuietWindow& window, forms::Form& form) : window_(window), form_(form) {}
    void show() override {}
    void runModal() override {
      window_.whileShown_();
      form_.Hide();
    }
    void hide() override {}
    void activate() override {}
    void formChanged(forms::FormProperty) override {}
    void controlChanged(forms::Control&, forms::Property) override {}
    void toolChanged(forms::ActiveToolBars&, TextView) override {}
    void focusChanged() override {}
    void popupMenu(forms::ActiveToolBars&, TextView, const std::optional<forms::Point>&) override {}

   private:
    QuietWindow& window_;
    forms::Form& form_;
  };

  std::function<void()> whileShown_;
};

}  // namespace ovalia::bench
