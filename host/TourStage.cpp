#include "host/TourStage.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <array>
#include <utility>

#include "desktop/QtText.h"
#include "platform/Failure.h"

namespace ovalia::host {

using desktop::fromQt;
using desktop::toQt;
namespace fs = std::filesystem;

namespace {

constexpr int lookEveryMilliseconds = 20;
constexpr int mostLooks = 10'000 / lookEveryMilliseconds;  // at a dialog that does not go

// Of a combo or a picker the part that is typed into.
QWidget* inputOf(QWidget* drawn) {
  if (auto* input = drawn->findChild<QLineEdit*>()) return input;
  return drawn;
}

QString textIn(QWidget& drawn) {
  if (auto* check = qobject_cast<QCheckBox*>(&drawn))
    return check->isChecked() ? QStringLiteral("sí") : QStringLiteral("no");
  if (auto* combo = qobject_cast<QComboBox*>(&drawn)) return combo->currentText();
  if (auto* lines = qobject_cast<QPlainTextEdit*>(&drawn))
    return lines->toPlainText().replace(u'\n', QStringLiteral("⏎"));
  auto* line = qobject_cast<QLineEdit*>(inputOf(&drawn));
  return line ? line->text() : QString();
}

// The dialog that the user has before them: a modal one, else one that stands beside its card.
QDialog* dialogUp() {
  QWidget* modal = QApplication::activeModalWidget();
  if (!modal) return nullptr;
  if (auto* dialog = qobject_cast<QDialog*>(modal)) return dialog;
  for (auto* dialog : modal->findChildren<QDialog*>(Qt::FindDirectChildrenOnly))
    if (dialog->isVisible()) return dialog;
  return nullptr;
}

QWidget* windowOf(const std::shared_ptr<forms::Form>& form) {
  if (!form || !form->Visible()) return nullptr;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && window->objectName() == toQt(form->Name())) return window;
  return nullptr;
}

void click(QWidget& aimed, const QPointF& at) {
  const QPointer<QWidget> kept(&aimed);
  for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    if (!kept) return;
    const bool down = type == QEvent::MouseButtonPress;
    QMouseEvent event(type, at, aimed.mapToGlobal(at), Qt::LeftButton, down ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(kept, &event);
  }
}

void click(QWidget& drawn) {
  auto* area = qobject_cast<QAbstractScrollArea*>(&drawn);
  QWidget& aimed = area ? *area->viewport() : drawn;
  click(aimed, QPointF(4, aimed.height() / 2));
}

}  // namespace

TourStage::TourStage(TourBook& book, fs::path folder) : book_(book), folder_(std::move(folder)) {
  QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { look(); });
  watch_.start(lookEveryMilliseconds);
}

TourStage::FormRef TourStage::form() const {
  return over_ ? over_->lock() : forms::Runtime::current().activeForm();
}

forms::Form& TourStage::card() {
  const FormRef up = form();
  if (!up) throw Failure(failure::objectNotSet);
  return *up;
}

QWidget* TourStage::window() const { return windowOf(form()); }

QWidget* TourStage::widget(TextView control) {
  QWidget* found = window() ? window()->findChild<QWidget*>(toQt(control)) : nullptr;
  if (!found) throw Failure(failure::noSuchControl, Text(control));
  return found;
}

bool TourStage::isUp(const FormRef& form) const {
  QWidget* window = windowOf(form);
  return window && QApplication::activeModalWidget() == window;
}

void TourStage::withCard(const std::function<void()>& opening, const std::function<void()>& onCard) {
  whileUp([this] { return form(); }, opening, onCard);
}

void TourStage::withForm(TextView name, const std::function<void()>& opening,
                         const std::function<void()>& onForm) {
  const auto before = over_;
  const auto wanted = [name] {
    for (const FormRef& each : forms::Runtime::current().loadedForms())
      if (each->Name() == name) return each;
    return FormRef();
  };
  whileUp(wanted, opening, [&] {
    over_ = wanted();
    onForm();
  });
  over_ = before;
}

void TourStage::whileUp(const std::function<FormRef()>& wanted, const std::function<void()>& opening,
                        const std::function<void()>& onForm) {
  bool opened = false;
  QTimer wait;
  QObject::connect(&wait, &QTimer::timeout, &wait, [&] {
    if (!isUp(wanted())) return;
    wait.stop();
    opened = true;
    try {
      onForm();
    } catch (const Failure& failure) {
      book_.fail(u"el recorrido no puede seguir: " + failure.description());
    }
    leave();
  });
  wait.start(lookEveryMilliseconds);
  opening();
  if (!opened) book_.fail(u"la ficha no se ha abierto");
}

void TourStage::leave() {
  if (!window()) return;
  book_.fail(u"la ficha no se ha cerrado");
  card().Hide();
}

QString TourStage::shown(TextView control) { return textIn(*widget(control)); }

void TourStage::describe() {
  using enum forms::ControlType;
  constexpr std::array told{TextBox, ComboBox, CheckBox, DTPicker};
  book_.line(u"Título: " + fromQt(window()->windowTitle()));
  for (const forms::ControlRef& control : card().controls()) {
    if (std::ranges::find(told, control->type()) == told.end() || !control->Visible()) continue;
    QWidget* drawn = widget(control->Name());
    book_.line(u"  " + fromQt(drawn->accessibleName()) + u" (" + control->Name() + u"): " +
               fromQt(textIn(*drawn)));
  }
}

void TourStage::press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  const QPointer<QWidget> kept(&widget);
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, modifiers, text);
    if (kept) QApplication::sendEvent(kept, &event);
  }
}

void TourStage::type(QWidget& widget, const QString& text) {
  press(widget, Qt::Key_A, Qt::ControlModifier);
  for (const QChar letter : text) press(widget, letter.toUpper().unicode(), Qt::NoModifier, letter);
}

void TourStage::types(TextView control, const QString& text) {
  QWidget* input = inputOf(widget(control));
  click(*input);
  type(*input, text);
}

void TourStage::clicks(TextView control) { click(*widget(control)); }

void TourStage::presses(TextView tool) {
  const auto* bar = window() ? window()->findChild<QToolBar*>() : nullptr;
  if (!bar) return book_.fail(u"falta la barra de herramientas");
  for (QToolButton* button : bar->findChildren<QToolButton*>()) {
    const QAction* action = button->defaultAction();
    if (!action || action->objectName() != toQt(tool)) continue;
    if (!button->isEnabled()) return book_.fail(u"la herramienta " + Text(tool) + u" está desactivada");
    return button->click();
  }
  book_.fail(u"falta la herramienta " + Text(tool));
}

void TourStage::chooses(TextView tool, TextView menu) {
  if (!menu.empty()) card().toolbars().userOpensMenu(menu);
  card().toolbars().userSelects(tool);
}

QWidget& TourStage::drawn(TextView control) { return *widget(control); }

void TourStage::clickItem(QListWidget& list, int row) {
  list.scrollToItem(list.item(row));
  click(*list.viewport(), list.visualItemRect(list.item(row)).center());
}

void TourStage::clickButton(QDialog& dialog, const QString& name) {
  auto* button = dialog.findChild<QAbstractButton*>(name);
  if (!button) throw Failure(failure::noSuchControl, fromQt(name));
  button->click();
}

void TourStage::closes() {
  if (QWidget* shown = window()) shown->close();
}

void TourStage::answers(const QString& text, const QString& button, const char* pictureName,
                        const std::function<void()>& doing) {
  const auto isIt = [=](QDialog& dialog) {
    auto* box = qobject_cast<QMessageBox*>(&dialog);
    return box && box->text().contains(text);
  };
  const auto handle = [=, this](QDialog& dialog) {
    book_.line(u"Cuadro «" + fromQt(dialog.windowTitle()) + u"»: " +
               fromQt(qobject_cast<QMessageBox*>(&dialog)->text().replace(u'\n', QStringLiteral("⏎"))));
    if (pictureName) picture(pictureName);
    for (QAbstractButton* each : dialog.findChildren<QAbstractButton*>()) {
      if (each->text().remove(u'&') != button) continue;
      book_.line(u"Respuesta: " + fromQt(button));
      return each->click();
    }
    refuse(dialog);
  };
  meet({isIt, handle, text}, doing);
}

void TourStage::uses(const QString& name, const std::function<void(QDialog&)>& use,
                     const std::function<void()>& doing) {
  const auto isIt = [=](QDialog& dialog) {
    return dialog.objectName() == name || dialog.windowTitle() == name;
  };
  meet({isIt, use, name}, doing);
}

void TourStage::meet(Meeting meeting, const std::function<void()>& doing) {
  Meeting* const before = std::exchange(due_, &meeting);
  const QPointer<QDialog> below = met_;
  doing();
  due_ = before;
  met_ = below;
  if (!meeting.came) book_.fail(u"no ha aparecido «" + fromQt(meeting.what) + u"»");
}

// The handling waits for the event loop, so that the watch goes on meanwhile.
void TourStage::look() {
  QDialog* dialog = dialogUp();
  if (!dialog || !dialog->isVisible()) return met_.clear();
  if (dialog == met_) {
    if (++looks_ == mostLooks) refuse(*dialog);
    return;
  }
  if (!due_ || due_->came || !due_->isIt(*dialog)) return refuse(*dialog);
  met_ = dialog;
  looks_ = 0;
  due_->came = true;
  QTimer::singleShot(0, dialog, [this, dialog, handle = due_->handle] {
    try {
      handle(*dialog);
    } catch (const Failure& failure) {
      book_.fail(u"el recorrido no puede seguir: " + failure.description());
      dialog->done(QDialog::Rejected);
    }
  });
}

void TourStage::refuse(QDialog& dialog) {
  auto* box = qobject_cast<QMessageBox*>(&dialog);
  book_.fail(u"cuadro inesperado «" + fromQt(dialog.windowTitle()) + u"»: " +
             (box ? fromQt(box->text()) : Text()));
  picture("aviso.png");
  dialog.done(QDialog::Rejected);
}

void TourStage::save(const QPixmap& drawn, const std::string& name) {
  if (drawn.save(QString::fromStdString((folder_ / name).string())))
    book_.line(u"Imagen: " + fromUtf8(name));
  else
    book_.fail(u"no se puede escribir la imagen " + fromUtf8(name));
}

void TourStage::pictureOf(QWidget& window, const std::string& name) {
  QApplication::processEvents();
  save(window.grab(), name);
}

void TourStage::picture(const std::string& name) {
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  QList<QWidget*> windows;
  for (QWidget* each : {window(), static_cast<QWidget*>(dialogUp())})
    if (each && !windows.contains(each)) windows.append(each);
  QRect whole;
  for (const QWidget* each : windows) whole |= each->geometry();
  const qreal sharpness = qApp->devicePixelRatio();
  QPixmap drawn(whole.size() * sharpness);
  drawn.setDevicePixelRatio(sharpness);
  drawn.fill(Qt::lightGray);
  QPainter painter(&drawn);
  for (QWidget* each : windows) {
    const QRect place = each->geometry().translated(-whole.topLeft());
    painter.drawPixmap(place.topLeft(), each->grab());
    painter.drawRect(place.adjusted(0, 0, -1, -1));
  }
  painter.end();
  save(drawn, name);
}

}  // namespace ovalia::host
