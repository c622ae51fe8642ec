#include "desktop/SearchDialog.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QTimer>
#include <algorithm>
#include <set>

#include "desktop/SearchDialogObject.h"
#include "routines/ModuleValues.h"
#include "routines/TextArray.h"
#include "tests/desktop/Desk.h"
#include "tests/kit/FakeObject.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
      window = dynamic_cast<SearchDialog*>(QApplication::activeModalWidget());
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

// How it is driven.

TEST_F(Searching, offers_the_labels_of_the_fields_and_leaves_out_those_without) {
  search([&] {
    QStringList offered;
    for (int i = 0; i < part<QComboBox>("campo")->count(); ++i)
      offered << part<QComboBox>("campo")->itemText(i);
    EXPECT_EQ(offered, (QStringList{"Asunto", "Categorias", "Fecha Alta", "Fecha Actualización", "Notas"}));
  });
  search([&] { EXPECT_EQ(part<QComboBox>("campo")->count(), 2); },
         fields({{u"Fecha Alta", u"FechaAlta", u"Fecha"},
                 {u"Notas", u"Notas", u"Texto"},
                 {u"", u"FechaActualizacion", u"Fecha"},
                 {u"", u"Notas", u"Texto"}}));
}

TEST_F(Searching, needs_a_card_and_fields) {
  const auto failureOf = [&](const ObjectRef& dialog) {
    try {
      callMember(dialog, u"Mostrar");
    } catch (const Failure& failure) {
      return failure.number();
    }
    return 0;
  };
  EXPECT_EQ(failureOf(makeSearchDialog(wish)), failure::objectNotSet);
  EXPECT_EQ(failureOf(dialogOver(fields({}))), failure::badArgument);
  const ObjectRef dialog = makeSearchDialog(wish);
  putMember(dialog, u"VentanaJefa", card);
  EXPECT_EQ(failureOf(dialog), failure::typeMismatch);
}

TEST_F(Searching, returns_when_the_user_closes_it_and_has_searched_nothing) {
  search([&] { press(Qt::Key_Escape); });
  search([&] { QTest::mouseClick(button("&Cerrar"), Qt::LeftButton); });
  EXPECT_THAT(steps, IsEmpty());
}

// Steps.

TEST_F(Searching, enter_finds_the_first_and_then_the_next) {
  search([&] {
    EXPECT_EQ(focus(), "texto");
    types("llaves");
    press(Qt::Key_Return);
    EXPECT_EQ(message(), "La ficha muestra una coincidencia.");
    press(Qt::Key_Return);
    press(Qt::Key_Enter);
    EXPECT_EQ(focus(), "texto");
  });
  const std::string criterion = "[Asunto] Like '*ll[aáàâäãå]v[eéèêë]s*'";
  EXPECT_THAT(steps, ElementsAre("1: " + criterion, "2: " + criterion, "2: " + criterion));
}

TEST_F(Searching, enter_begins_anew_when_something_else_is_looked_for) {
  const std::function<void()> changes[] = {[&] { types("y"); }, [&] { part<QCheckBox>("completo")->click(); },
                                           [&] { part<QCheckBox>("acentos")->click(); },
                                           [&] { choose("campo", "Notas"); }};
  for (const auto& change : changes) {
    search([&] {
      part<QCheckBox>("acentos")->setChecked(false);
      part<QLineEdit>("texto")->setText("x");
      press(Qt::Key_Return);
      change();
      EXPECT_EQ(message(), "");
      steps.clear();
      part("texto")->setFocus();
      press(Qt::Key_Return);
      EXPECT_EQ(steps.at(0).substr(0, 2), "1:");
    });
  }
}

TEST_F(Searching, a_search_without_a_hit_is_told_in_the_dialog_and_enter_tries_the_first_again) {
  found = false;
  search([&] {
    types("x");
    press(Qt::Key_Return);
    EXPECT_EQ(message(), "No se ha encontrado en ninguna ficha de la lista.");
    press(Qt::Key_Return);
  });
  EXPECT_THAT(steps, ElementsAre("1: [Asunto] Like '*x*'", "1: [Asunto] Like '*x*'"));
}

TEST_F(Searching, the_end_in_each_direction_is_told_and_the_dialog_stays) {
  search([&] {
    types("x");
    press(Qt::Key_Return);
    found = false;
    press(Qt::Key_Return);
    EXPECT_EQ(message(), "No hay más hacia delante: la ficha es la misma.");
    press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(message(), "No hay más hacia atrás: la ficha es la misma.");
    found = true;
    press(Qt::Key_Return);
    EXPECT_EQ(message(), "La ficha muestra una coincidencia.");
    EXPECT_TRUE(window->isVisible());
  });
  EXPECT_EQ(steps.back().substr(0, 2), "2:");
}

TEST_F(Searching, buttons_have_letters_and_f3_goes_on_and_back) {
  search([&] {
    types("x");
    letter(Qt::Key_P);
    letter(Qt::Key_S);
    letter(Qt::Key_A);
    press(Qt::Key_F3);
    press(Qt::Key_F3, Qt::ShiftModifier);
    letter(Qt::Key_C);
    EXPECT_FALSE(window && window->isVisible());
  });
  std::string modes;
  for (const std::string& step : steps) modes += step[0];
  EXPECT_EQ(modes, "12323");
}

TEST_F(Searching, after_a_click_on_the_first_enter_goes_on) {
  search([&] {
    types("x");
    QTest::mouseClick(button("&Primero"), Qt::LeftButton);
    EXPECT_EQ(focus(), "&Siguiente");
    press(Qt::Key_Return);
  });
  EXPECT_EQ(steps.back().substr(0, 2), "2:");
}

TEST_F(Searching, enter_on_a_button_means_that_button) {
  search([&] {
    types("x");
    press(Qt::Key_Return);
    button("&Anterior")->setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "&Anterior");
  });
  EXPECT_EQ(steps.back().substr(0, 2), "3:");
}

TEST_F(Searching, a_step_that_fails_is_told_in_the_dialog_and_logged) {
  card->failing(u"BuscarElemento", failure::noSuchMember);
  here.expectLogEntry(u"Buscar", failure::noSuchMember);
  search([&] {
    types("x");
    press(Qt::Key_Return);
    EXPECT_THAT(message(), testing::StartsWith("No se ha podido buscar: "));
    EXPECT_TRUE(window->isVisible());
  });
}

TEST_F(Searching, looks_for_the_whole_field_and_for_accents_as_ticked) {
  search([&] {
    types("O'Donnell*|é");
    part<QCheckBox>("completo")->click();
    part<QCheckBox>("acentos")->click();
    press(Qt::Key_Return);
  });
  EXPECT_THAT(steps, ElementsAre("1: [Asunto] Like 'O''Donnell[*]' + chr(124) + 'é'"));
}

TEST_F(Searching, lines_that_are_pasted_are_looked_for_as_they_are_stored) {
  search([&] {
    part<QCheckBox>("acentos")->click();
    QApplication::clipboard()->setText("uno\ndos");
    part<QLineEdit>("texto")->paste();
    press(Qt::Key_Return);
  });
  EXPECT_THAT(steps, ElementsAre("1: [Asunto] Like '*uno\r\ndos*'"));
}

TEST_F(Searching, without_a_text_or_a_date_nothing_is_searched_and_the_user_is_put_there) {
  search([&] {
    letter(Qt::Key_S);
    EXPECT_EQ(message(), "Escriba el texto que busca.");
    EXPECT_EQ(focus(), "texto");
    choose("campo", "Fecha Alta");
    EXPECT_EQ(message(), "");
    letter(Qt::Key_P);
    EXPECT_EQ(message(), "Escriba la fecha que busca.");
    EXPECT_EQ(focus(), "primera");
    choose("periodo", "Entre el");
    types("01/02/26");
    press(Qt::Key_Return);
    EXPECT_EQ(message(), "Escriba también la segunda fecha.");
    EXPECT_EQ(focus(), "segunda");
  });
  EXPECT_THAT(steps, IsEmpty());
}

// Dates.

TEST_F(Searching, a_date_field_asks_for_days_in_place_of_a_text) {
  search([&] {
    EXPECT_TRUE(part("texto")->isVisible());
    EXPECT_FALSE(part("periodo")->isVisible());
    const QSize size = window->size();
    choose("campo", "Fecha Actualización");
    for (const char* name : {"texto", "completo", "acentos"}) EXPECT_FALSE(part(name)->isVisible()) << name;
    EXPECT_TRUE(part("periodo")->isVisible());
    EXPECT_TRUE(part("primera")->isVisible());
    EXPECT_FALSE(part("segunda")->isVisible());
    choose("periodo", "Entre el");
    EXPECT_TRUE(part("segunda")->isVisible());
    QApplication::processEvents();
    EXPECT_EQ(window->size(), size);
    choose("campo", "Notas");
    EXPECT_TRUE(part("texto")->isVisible());
    EXPECT_FALSE(part("segunda")->isVisible());
  });
}

TEST_F(Searching, days_are_looked_for_singly_and_as_ranges) {
  const struct {
    const char *period, *criterion;
  } cases[] = {{"El día", "[FechaAlta] >= #02/01/2026# And [FechaAlta] < #02/02/2026#"},
               {"Desde el", "[FechaAlta] >= #02/01/2026#"},
               {"Hasta el", "[FechaAlta] < #02/02/2026#"},
               {"Entre el", "[FechaAlta] >= #02/01/2026# And [FechaAlta] < #03/09/2026#"}};
  for (const auto& expected : cases) {
    steps.clear();
    search([&] {
      choose("campo", "Fecha Alta");
      choose("periodo", expected.period);
      day("primera")->setFocus();
      day("primera")->selectAll();
      types("01/02/26");
      day("segunda")->setFocus();
      day("segunda")->selectAll();
      types("8/3");
      press(Qt::Key_Return);
    });
    EXPECT_THAT(steps, ElementsAre("1: " + std::string(expected.criterion)));
  }
}

TEST_F(Searching, a_short_day_counts_when_enter_or_a_button_follows) {
  search([&] {
    choose("campo", "Fecha Alta");
    day("primera")->setFocus();
    types("5/3");
    press(Qt::Key_Return);
    EXPECT_EQ(day("primera")->text(), "05/03/26");
    day("primera")->selectAll();
    types("7");
    letter(Qt::Key_S);
    EXPECT_EQ(day("primera")->text(), "07/03/26");
  });
  EXPECT_THAT(steps, ElementsAre("1: [FechaAlta] >= #03/05/2026# And [FechaAlta] < #03/06/2026#",
                                 "2: [FechaAlta] >= #03/07/2026# And [FechaAlta] < #03/08/2026#"));
}

TEST_F(Searching, days_have_the_keys_that_they_have_on_a_card) {
  search([&] {
    choose("campo", "Fecha Alta");
    day("primera")->setFocus();
    press(Qt::Key_H);
    EXPECT_EQ(day("primera")->text(), "09/03/26");
    press(Qt::Key_Up);
    EXPECT_EQ(day("primera")->text(), "10/03/26");
    day("primera")->selectAll();
    press(Qt::Key_Delete);
    EXPECT_EQ(day("primera")->text(), "");
    press(Qt::Key_Return);
    EXPECT_EQ(message(), "Escriba la fecha que busca.");
  });
  EXPECT_THAT(steps, IsEmpty());
}

// The user at it.

TEST_F(Searching, begins_with_what_was_looked_for_last) {
  search([&] {
    choose("campo", "Notas");
    part("texto")->setFocus();
    types("agua");
    part<QCheckBox>("acentos")->click();
    press(Qt::Key_Return);
  });
  search([&] {
    EXPECT_EQ(part<QComboBox>("campo")->currentText(), "Notas");
    EXPECT_EQ(part<QLineEdit>("texto")->selectedText(), "agua");
    EXPECT_FALSE(part<QCheckBox>("acentos")->isChecked());
    EXPECT_EQ(focus(), "texto");
    press(Qt::Key_F3);
  });
  EXPECT_THAT(steps, ElementsAre("1: [Notas] Like '*agua*'", "2: [Notas] Like '*agua*'"));
  search([&] { EXPECT_EQ(part<QComboBox>("campo")->currentText(), "Donde"); },
         fields({{u"Donde", u"Donde", u"Texto"}}));
}

TEST_F(Searching, tab_goes_from_top_to_bottom_and_then_to_the_buttons) {
  const auto order = [&] {
    std::vector<std::string> names;
    part("campo")->setFocus();
    do {
      names.push_back(focus());
      press(Qt::Key_Tab);
    } while (focus() != "campo" && names.size() < 20);
    return names;
  };
  search([&] {
    EXPECT_THAT(order(), ElementsAre("campo", "texto", "completo", "acentos", "&Primero", "&Siguiente",
                                     "&Anterior", "&Cerrar"));
    choose("campo", "Fecha Alta");
    choose("periodo", "Entre el");
    EXPECT_THAT(order(), ElementsAre("campo", "periodo", "primera", "segunda", "&Primero", "&Siguiente",
                                     "&Anterior", "&Cerrar"));
  });
}

TEST_F(Searching, no_two_letters_are_the_same_and_every_input_has_a_name) {
  search([&] {
    std::set<QChar> letters;
    const auto add = [&](const QString& text) {
      const qsizetype mark = text.indexOf('&');
      if (mark < 0) return;
      EXPECT_TRUE(letters.insert(text[mark + 1].toLower()).second) << text.toStdString();
    };
    for (auto* each : window->findChildren<QAbstractButton*>()) add(each->text());
    for (auto* each : window->findChildren<QLabel*>()) add(each->text());
    EXPECT_EQ(letters.size(), 10u);
    for (QWidget* input : std::initializer_list<QWidget*>{part("campo"), part("texto"), part("periodo"),
                                                          day("primera"), day("segunda")})
      EXPECT_FALSE(input->accessibleName().isEmpty()) << input->objectName().toStdString();
    choose("periodo", "Hasta el");
    EXPECT_EQ(day("primera")->accessibleName(), "Hasta el");
    choose("periodo", "Entre el");
    EXPECT_EQ(day("primera")->accessibleName(), "Entre el");
  });
}

TEST_F(Searching, stands_above_a_modal_card_takes_its_input_and_leaves_it_in_view) {
  const auto form = std::make_shared<forms::CardForm>(forms::frmNota());
  whileShown(*form, [&] {
    CardWindow* behind = windowOf(*form);
    const QSize size = behind->size();
    search([&] {
      EXPECT_EQ(QApplication::activeModalWidget(), window);
      EXPECT_EQ(window->parentWidget(), behind);
      EXPECT_TRUE(behind->isVisible());
      card->answering(u"BuscarElemento", [&](Arguments) {
        form->control(u"txtAsunto")->put(u"Text", u"Llaves");
        form->control(u"txtNotas")->SetFocus();
        return Variant(true);
      });
      types("x");
      press(Qt::Key_Return);
      EXPECT_EQ(shown(*form, u"txtAsunto"), "Llaves");
      EXPECT_EQ(QApplication::activeWindow(), window);
      EXPECT_EQ(focus(), "texto");
    });
    EXPECT_TRUE(behind->isVisible());
    EXPECT_EQ(behind->size(), size);
  });
}

TEST_F(Searching, does_not_go_with_a_window_that_has_closed) {
  auto* closed = new QWidget;
  closed->show();
  QApplication::setActiveWindow(closed);
  closed->hide();
  QApplication::setActiveWindow(closed);
  ASSERT_EQ(QApplication::activeWindow(), closed);
  closed->deleteLater();
  search([&] { EXPECT_EQ(window->parentWidget(), nullptr); });
}

TEST(SearchPlace, is_beside_the_card_where_there_is_room) {
  const QRect desk(0, 0, 1000, 800);
  const QSize size(300, 200);
  EXPECT_EQ(placeBeside(QRect(100, 50, 500, 400), size, desk), QPoint(600, 50));
  EXPECT_EQ(placeBeside(QRect(400, 700, 500, 100), size, desk), QPoint(100, 600));
  EXPECT_EQ(placeBeside(QRect(200, 50, 600, 400), size, desk), QPoint(200, 450));
  EXPECT_EQ(placeBeside(QRect(200, 300, 600, 450), size, desk), QPoint(200, 100));
  EXPECT_EQ(placeBeside(QRect(50, 50, 900, 700), size, desk), QPoint(700, 600));
}

TEST(SearchPlace, stays_on_the_desk) {
  const QRect desk(100, 100, 800, 600);
  EXPECT_EQ(placeBeside(QRect(-50, 20, 400, 300), QSize(300, 200), desk), QPoint(350, 100));
  EXPECT_EQ(placeBeside(QRect(100, 100, 800, 600), QSize(2000, 2000), desk), QPoint(100, 100));
}

// Pictures for whoever wants to look at them.
TEST_F(Searching, no_text_is_cut) {
  QDir().mkpath("pictures");
  const auto picture = [&](const char* name) {
    QApplication::processEvents();
    EXPECT_TRUE(window->grab().save(QStringLiteral("pictures/buscador_%1.png").arg(name)));
    for (auto* each : window->findChildren<QWidget*>()) {
      const bool texts =
          qobject_cast<QLabel*>(each) || qobject_cast<QPushButton*>(each) || qobject_cast<QCheckBox*>(each);
      if (!texts || !each->isVisible() || each->objectName() == "mensaje") continue;
      EXPECT_GE(each->width(), each->sizeHint().width()) << name << ": " << each->metaObject()->className();
    }
    auto* told = part<QLabel>("mensaje");
    EXPECT_LE(told->heightForWidth(told->width()), told->height()) << name;
  };
  search([&] {
    types("camión de mudanzas");
    press(Qt::Key_Return);
    picture("texto");
    found = false;
    press(Qt::Key_Return);
    picture("nada_mas");
    choose("campo", "Fecha Actualización");
    day("primera")->setFocus();
    types("01/02/26");
    picture("dia");
    choose("periodo", "Entre el");
    day("segunda")->setFocus();
    types("08/03/26");
    press(Qt::Key_Return);
    picture("entre");
  });
}

}  // namespace

}  // namespace ovalia::desktop
