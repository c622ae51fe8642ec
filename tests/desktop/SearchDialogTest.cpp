// How the search dialog is driven, what its steps ask of the card, and what it asks for days.
#include <QCheckBox>

#include "tests/desktop/Searching.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

TEST_F(Searching, a_step_may_take_the_card_and_the_dialog_away) {
  auto* owner = new QWidget;
  owner->show();
  QApplication::setActiveWindow(owner);
  card->answering(u"BuscarElemento", [&](Arguments) {
    steps.push_back("away");
    delete owner;
    return Variant(true);
  });
  search([&] {
    types("x");
    button("&Siguiente")->click();
    EXPECT_FALSE(window);
  });
  EXPECT_THAT(steps, ElementsAre("away"));
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

}  // namespace

}  // namespace ovalia::desktop
