#pragma once

#include <QEventLoop>
#include <QPointer>
#include <QWidget>
#include <map>
#include <memory>
#include <optional>

#include "desktop/CardBars.h"
#include "desktop/ControlWidget.h"
#include "forms/Form.h"

namespace ovalia::desktop {

// The window of a loaded form. It outlives the view that made it until the event loop comes round, because
// the form may go while the window handles the very event that ended it; from `release` on it knows no form.
class CardWindow : public QWidget {
 public:
  explicit CardWindow(forms::Form& form);
  ~CardWindow() override;

  // Forgets the form and hides. `retire` deletes the window as soon as no handler of its widgets can be
  // running.
  void release();
  void retire();

  void showForm();
  void runModal();
  void endModal();

  void followCaption();
  void followPlace();
  void followState();
  void followControl(forms::Control& control, forms::Property property);
  void followTool(TextView id);
  void followFocus();
  void popUp(TextView menu, const std::optional<forms::Point>& at);

  // What the user has typed half-way goes to the form.
  void commit();

  bool eventFilter(QObject* object, QEvent* event) override;

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void buildControls();
  void describe(ControlWidget& drawn);
  QString captionOf(TextView control) const;
  ControlWidget* widgetOf(const forms::Control* control) const;
  ControlWidget* widgetAt(QWidget* widget) const;
  ControlWidget* activeWidget() const;

  bool mousePressed(QWidget& receiver);
  bool keyPressed(QWidget& receiver, QKeyEvent& event);
  QString accepted(const QString& text);
  void composed(QInputMethodEvent& event);
  void focusArrived(QWidget& receiver);
  void areaResized();
  void resizeArea(QSize size);
  void keepOnScreen();
  bool centred(const QWidget* owner);
  bool freelyPlaced() const;

  // A place that the form asked for, and the pixels that came of it: going back to those pixels gives the
  // form its own numbers back.
  template <class Pixels>
  struct Asked {
    Pixels pixels{};
    double first = 0, second = 0;
  };

  forms::Form* form_;
  std::unique_ptr<CardBars> bars_;
  QWidget* area_;
  std::map<const forms::Control*, ControlWidgetPtr> controls_;
  std::map<const QWidget*, ControlWidget*> byWidget_;
  QEventLoop* loop_ = nullptr;
  int loopLevel_ = 0;  // of the modal show
  Asked<QPoint> askedPlace_;
  Asked<QSize> askedSize_;
  QPoint reportedPlace_;
  QSize reportedSize_;
  bool placed_ = false;   // shown once, so where it stands is its place
  int following_ = 0;     // what happens now is the model's doing
  int blocked_ = 0;       // how often a modal window came over this one
  bool swallow_ = false;  // the release that belongs to a refused press
};

}  // namespace ovalia::desktop
