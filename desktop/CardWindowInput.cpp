#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScrollBar>

#include "desktop/CardWindow.h"
#include "desktop/DropData.h"
#include "desktop/KeyCodes.h"
#include "desktop/Progress.h"

namespace ovalia::desktop {

namespace {

// The box in which a list's label is edited: a window of its own in the eyes of the form.
bool isLabelEditor(const QWidget& widget) {
  const QWidget* viewport = widget.parentWidget();
  return viewport && dynamic_cast<QAbstractItemView*>(viewport->parentWidget()) &&
         !widget.inherits("QScrollBar") && widget.focusPolicy() != Qt::NoFocus &&
         static_cast<QAbstractItemView*>(viewport->parentWidget())->viewport() == viewport;
}

// Copied files are the form's; to a box they would be so many paths.
bool holdsFiles() { return !filesOf(QGuiApplication::clipboard()->mimeData()).empty(); }

// The toolkit knows the key that bears a menu, not this one.
void asksForMenu(QWidget& widget) {
  const QPoint middle = widget.rect().center();
  QContextMenuEvent menu(QContextMenuEvent::Keyboard, middle, widget.mapToGlobal(middle));
  QApplication::sendEvent(&widget, &menu);
}

bool isInput(const QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
      return true;
    default:
      return false;
  }
}

}  // namespace

// Everything passes here before it reaches a widget: the form decides about keys and the focus first.
bool CardWindow::eventFilter(QObject* object, QEvent* event) {
  if (!form_) return false;
  if (Progress::current().breathing() && isInput(*event)) return true;
  if (!object->isWidgetType()) return false;
  auto& receiver = *static_cast<QWidget*>(object);
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      swallow_ = false;
      return receiver.window() == this && (swallow_ = mousePressed(receiver));
    case QEvent::MouseButtonRelease:
      return receiver.window() == this && std::exchange(swallow_, false);
    case QEvent::KeyPress:
      return receiver.window() == this && keyPressed(receiver, *static_cast<QKeyEvent*>(event));
    case QEvent::InputMethod:
      if (receiver.window() == this && widgetAt(&receiver)) composed(*static_cast<QInputMethodEvent*>(event));
      return false;
    case QEvent::FocusIn:
      if (receiver.window() == this && !following_) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
            reason != Qt::MenuBarFocusReason)
          focusArrived(receiver);
      }
      return false;
    case QEvent::Resize:
      if (&receiver == area_) areaResized();
      return false;
    default:
      return false;
  }
}

// True when the press must not reach the widget: the focus was refused, or a dialog came between press and
// release.
bool CardWindow::mousePressed(QWidget& receiver) {
  ControlWidget* drawn = widgetAt(&receiver);
  if (!drawn || dynamic_cast<QScrollBar*>(&receiver)) return false;
  const auto target = form_->control(drawn->control().Name(), drawn->control().design().index);
  if (!target->takesFocus() || form_->ActiveControl() == target) return false;
  const QPointer<CardWindow> self(this);
  const int blocked = blocked_;
  commit();
  if (!self || !form_) return true;
  if (drawn->asksForFocus()) return false;
  const bool moved = form_->userFocuses(*target);
  return !self || !form_ || !moved || blocked != blocked_;
}

bool CardWindow::keyPressed(QWidget& receiver, QKeyEvent& event) {
  if (qobject_cast<QMenuBar*>(&receiver)) return false;  // walked by keys, after Alt
  const QWidget* holder = focusWidget();
  // An unused key climbs to the parents: it has been seen.
  if (holder && &receiver != holder && receiver.isAncestorOf(holder)) return false;
  if (isLabelEditor(receiver)) return false;

  const QPointer<CardWindow> self(this);
  const bool tab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
  if (tab && !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
    commit();
    if (self && form_)
      form_->userTabs(event.key() == Qt::Key_Tab && !(event.modifiers() & Qt::ShiftModifier));
    return true;
  }
  if (event.text().isEmpty() || !event.text().at(0).isPrint()) {
    if (event.key() != Qt::Key_Backspace && event.key() != Qt::Key_Delete && event.key() < Qt::Key_Home)
      commit();
    if (!self || !form_) return true;
  }
  if (const int code = virtualKey(event.key(), event.modifiers()))
    form_->userKey(code, shiftMask(event.modifiers()));
  if (!self || !form_ || !form_->Visible()) return true;
  if (event.matches(QKeySequence::Paste) && holdsFiles()) return true;
  if (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier)
    return asksForMenu(receiver), true;
  if (widgetAt(&receiver) && !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) &&
      accepted(event.text()) != event.text())
    return true;
  if (!self || !form_) return true;
  for (ControlWidget* drawn = widgetAt(&receiver); drawn; drawn = widgetAt(drawn->widget()->parentWidget())) {
    if (drawn->takesKey(event)) return true;
    if (!self || !form_) return true;
  }
  return false;
}

// What the form lets through of a text that is about to be typed.
QString CardWindow::accepted(const QString& text) {
  const QPointer<CardWindow> self(this);
  QString kept;
  for (const QChar unit : text) {
    const bool typed = unit.isPrint() || unit.isSurrogate();
    if (self && form_ && (!typed || form_->userPresses(unit.unicode()))) kept += unit;
  }
  return kept;
}

// Signs of several keys, a letter with its accent for one, come as a text.
void CardWindow::composed(QInputMethodEvent& event) {
  const QString text = event.commitString(), kept = accepted(text);
  if (kept != text) event.setCommitString(kept, event.replacementStart(), event.replacementLength());
}

// The focus came some other way: the form is asked all the same, and a refusal sends it back.
void CardWindow::focusArrived(QWidget& receiver) {
  ControlWidget* drawn = widgetAt(&receiver);
  if (!drawn || !form_->ActiveControl() || form_->ActiveControl().get() == &drawn->control()) return;
  const auto target = form_->control(drawn->control().Name(), drawn->control().design().index);
  const QPointer<CardWindow> self(this);
  commit();
  if (!self || !form_) return;
  form_->userFocuses(*target);
  if (self && form_) followFocus();
}

}  // namespace ovalia::desktop
