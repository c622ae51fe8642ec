#pragma once

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <functional>
#include <map>

#include "forms/Toolbars.h"

namespace ovalia::desktop {

// The menu bar, the toolbar and the pop-up menus of a form: one action a tool, wherever it stands. None of
// them takes the focus.
class CardBars : public QObject {
 public:
  // `before` runs before any choice of the user reaches the form.
  CardBars(std::shared_ptr<forms::ActiveToolBars> bars, QWidget* window, std::function<void()> before);

  QMenuBar* menuBar() const { return menuBar_; }
  QToolBar* toolBar() const { return toolBar_; }

  void follow(TextView id);  // draws the state of the tool
  void popUp(TextView menu, const QPoint& global);

 private:
  QAction* action(const Text& id);
  QMenu* menu(const Text& id);
  void fill(QWidget& bar, TextView contents);
  void addSplitButton(const Text& id);
  void choose(const std::function<void(forms::ActiveToolBars&)>& doing);

  std::shared_ptr<forms::ActiveToolBars> bars_;
  QWidget* window_;
  std::function<void()> before_;
  QMenuBar* menuBar_;
  QToolBar* toolBar_;
  std::map<Text, QAction*> actions_;
  std::map<Text, QMenu*> menus_;
  std::map<Text, QAction*> placements_;  // of widgets of our own on the toolbar
  QMenu* popping_ = nullptr;             // reported by whoever pops it up
};

}  // namespace ovalia::desktop
