// The search dialog as its user has it: what it remembers, its keys, its place, its looks.
#include <QAbstractButton>
#include <QCheckBox>
#include <QDir>
#include <set>

#include "tests/desktop/Searching.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;

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
      if (!texts || !each->isVisible() || each == part("mensaje") || each == part("aviso")) continue;
      EXPECT_GE(each->width(), each->sizeHint().width()) << name << ": " << each->metaObject()->className();
    }
    for (auto* told : {part<QLabel>("mensaje"), part<QLabel>("aviso")})
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
