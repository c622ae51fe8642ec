#pragma once

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <array>

#include "desktop/SearchDialog.h"
#include "desktop/SearchDialogObject.h"
#include "routines/TextArray.h"
#include "tests/desktop/Desk.h"
#include "tests/kit/FakeObject.h"

namespace ovalia::desktop {

// The dialog over a card that answers as told; the clock stands at 9 March 2026.
class Searching : public DeskTest {
 protected:
  void SetUp() override {
    DeskTest::SetUp();
    card->answering(u"BuscarElemento", [this](Arguments arguments) {
      steps.push_back(toUtf8(join(arguments[0], u": ", arguments[1])));
      return Variant(found);
    });
  }

  static ObjectRef fields(std::vector<std::array<TextView, 3>> columns) {
    auto array = std::make_shared<TextArray>(std::initializer_list<std::size_t>{3, 5});
    for (std::size_t column = 0; column < columns.size(); ++column)
      for (std::size_t row = 0; row < 3; ++row) array->at({row, column}) = columns[column][row];
    return array;
  }
  static ObjectRef noteFields() {
    return fields({{u"Asunto", u"Asunto", u"Texto"},
                   {u"Categorias", u"Categorias", u"Texto"},
                   {u"Fecha Alta", u"FechaAlta", u"Fecha"},
                   {u"Fecha Actualización", u"FechaActualizacion", u"Fecha"},
                   {u"Notas", u"Notas", u"Texto"}});
  }

  ObjectRef dialogOver(const ObjectRef& array) {
    const ObjectRef dialog = makeSearchDialog(wish);
    putMember(dialog, u"ErrLogPath", u"\\datos\\ErrLog.txt");
    putMember(dialog, u"VentanaJefa", card);
    putMember(dialog, u"BuscarEn", array);
    return dialog;
  }

  // Shows the dialog, runs `actions` on it and closes it when they left it open.
  void search(const std::function<void()>& actions, const ObjectRef& array = noteFields()) {
    bool ran = false;
    const ObjectRef dialog = dialogOver(array);
    QTimer::singleShot(0, [&] {
      window = SearchDialog::of(card);
      ASSERT_NE(window, nullptr);
      ran = true;
      QApplication::setActiveWindow(window);
      QApplication::processEvents();
      actions();
      if (window) window->reject();
    });
    callMember(dialog, u"Mostrar");
    EXPECT_TRUE(ran);
    EXPECT_FALSE(window);
  }

  template <class Widget = QWidget>
  Widget* part(const char* name) {
    return window->findChild<Widget*>(name);
  }
  QLineEdit* day(const char* name) { return part<QWidget>(name)->findChild<QLineEdit*>(); }
  QPushButton* button(const char* text) {
    for (auto* each : window->findChildren<QPushButton*>())
      if (each->text() == QString::fromUtf8(text)) return each;
    return nullptr;
  }
  void press(int code, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(code), modifiers);
  }
  // A button's letter: the button goes down for a moment first.
  void letter(int code) {
    press(code, Qt::AltModifier);
    EXPECT_TRUE(eventually([&] {
      return !window || !window->isVisible() ||
             std::ranges::none_of(window->findChildren<QPushButton*>(), &QPushButton::isDown);
    }));
  }
  void types(const QString& text) { typeText(QApplication::focusWidget(), text); }
  void choose(const char* combo, const char* entry) {
    part<QComboBox>(combo)->setCurrentText(QString::fromUtf8(entry));
    ASSERT_EQ(part<QComboBox>(combo)->currentText(), QString::fromUtf8(entry));
  }
  std::string message() { return part<QLabel>("mensaje")->text().toStdString(); }
  std::string focus() {
    QWidget* widget = QApplication::focusWidget();
    if (auto* pressed = qobject_cast<QPushButton*>(widget)) return pressed->text().toStdString();
    while (widget && widget->objectName().isEmpty()) widget = widget->parentWidget();
    return widget ? widget->objectName().toStdString() : "";
  }

  std::shared_ptr<kit::FakeObject> card = std::make_shared<kit::FakeObject>();
  std::shared_ptr<SearchWish> wish = std::make_shared<SearchWish>();
  QPointer<SearchDialog> window;
  bool found = true;
  std::vector<std::string> steps;
};

}  // namespace ovalia::desktop
