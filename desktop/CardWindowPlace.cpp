#include <QApplication>
#include <QLayout>
#include <QScreen>

#include "desktop/CardWindow.h"
#include "desktop/Scale.h"
#include "desktop/WholeDesk.h"

namespace ovalia::desktop {

bool CardWindow::freelyPlaced() const {
  return !(windowState() & (Qt::WindowMinimized | Qt::WindowMaximized));
}

void CardWindow::resizeArea(QSize size) {
  layout()->activate();
  QSize around(0, 0);
  if (bars_) {
    const QMenuBar& menu = *bars_->menuBar();
    const int wrapped = menu.heightForWidth(size.width());
    around.setHeight((wrapped > 0 ? wrapped : menu.sizeHint().height()) +
                     bars_->toolBar()->sizeHint().height());
  }
  resize(size + around);
  layout()->activate();
  if (area_->size() != size) resize(this->size() + size - area_->size());
}

void CardWindow::followPlace() {
  if (!freelyPlaced()) return;
  ++following_;
  const Scale scale = Scale::of(*this);
  const QPoint place =
      wholeDesk().topLeft() + QPoint(scale.pixels(form_->Left()), scale.pixels(form_->Top()));
  const QSize size(scale.pixels(form_->ScaleWidth()), scale.pixels(form_->ScaleHeight()));
  askedPlace_ = {place, form_->Left(), form_->Top()};
  askedSize_ = {size, form_->Width(), form_->Height()};
  if (area_->size() != size) resizeArea(size);
  if (frameGeometry().topLeft() != place) move(place);
  reportedPlace_ = frameGeometry().topLeft();
  reportedSize_ = area_->size();
  --following_;
}

void CardWindow::followState() {
  if (!isVisible()) return;
  constexpr Qt::WindowState states[] = {Qt::WindowNoState, Qt::WindowMinimized, Qt::WindowMaximized};
  ++following_;
  setWindowState((windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized)) |
                 states[form_->WindowState()]);
  --following_;
}

// A window without bars remembers no place: it comes up over the one from which it was opened.
bool CardWindow::centred(const QWidget* owner) {
  if (std::exchange(placed_, true) || bars_ || !owner) return false;
  ++following_;
  // The window gets its size when it is shown; without bars it is that of its area.
  move(owner->frameGeometry().center() - QRect(QPoint(), askedSize_.pixels).center());
  --following_;
  reportedPlace_ = frameGeometry().topLeft();
  const Scale scale = Scale::of(*this);
  const QPoint onDesk = reportedPlace_ - wholeDesk().topLeft();
  form_->userMoves(scale.twips(onDesk.x()), scale.twips(onDesk.y()));
  return true;
}

// A place kept from another set of screens must not hide the window.
void CardWindow::keepOnScreen() {
  const QRect frame = frameGeometry();
  QScreen* screen = QApplication::screenAt(frame.center());
  if (!screen) screen = QApplication::screenAt(frame.topLeft());
  if (!screen) screen = QApplication::primaryScreen();
  const QRect room = screen->availableGeometry();
  ++following_;
  move(std::max(room.left(), std::min(frame.left(), room.right() + 1 - frame.width())),
       std::max(room.top(), std::min(frame.top(), room.bottom() + 1 - frame.height())));
  --following_;
  reportedPlace_ = frameGeometry().topLeft();
}

void CardWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (following_ || !form_ || !isVisible() || !freelyPlaced()) return;
  const QPoint place = frameGeometry().topLeft();
  if (place == reportedPlace_) return;
  reportedPlace_ = place;
  const Scale scale = Scale::of(*this);
  const QPoint onDesk = place - wholeDesk().topLeft();
  if (place == askedPlace_.pixels)
    form_->userMoves(askedPlace_.first, askedPlace_.second);
  else
    form_->userMoves(scale.twips(onDesk.x()), scale.twips(onDesk.y()));
}

void CardWindow::areaResized() {
  if (following_ || !isVisible() || (windowState() & Qt::WindowMinimized)) return;
  const QSize size = area_->size();
  if (size == reportedSize_) return;
  reportedSize_ = size;
  const Scale scale = Scale::of(*this);
  if (size == askedSize_.pixels)
    form_->userResizes(askedSize_.first, askedSize_.second);
  else
    form_->userResizes(scale.twips(size.width()) + forms::frameWidth,
                       scale.twips(size.height()) + form_->design().frame);
}

void CardWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || following_ || !form_ || !isVisible()) return;
  const Qt::WindowStates state = windowState();
  form_->userSetsWindowState(state & Qt::WindowMinimized ? 1 : state & Qt::WindowMaximized ? 2 : 0);
}

}  // namespace ovalia::desktop
