// The underlined letters of the cards.
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <map>

#include "tests/desktop/Desk.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const forms::FormDesign& (*const designs[])() = {forms::frmNota, forms::frmVisita, forms::frmAnuncio,
                                                 forms::frmLlamada};

class Letters : public DeskTest {
 protected:
  using Card = std::shared_ptr<forms::CardForm>;

  void onEachCard(const std::function<void(forms::CardForm&, CardWindow&)>& actions) {
    for (const auto design : designs) {
      const auto card = std::make_shared<forms::CardForm>(design());
      whileShown(*card, [&] { actions(*card, *windowOf(*card)); });
    }
  }

  static QChar letterOf(const QString& caption) {
    const QKeySequence letter = QKeySequence::mnemonic(caption);
    return letter.isEmpty() ? QChar() : QChar(letter[0].key());
  }

  // "D: Documentos, Donde"
  static std::vector<std::string> shared(const QStringList& captions) {
    std::map<QChar, QStringList> byLetter;
    for (const QString& caption : captions)
      if (const QChar letter = letterOf(caption); !letter.isNull())
        byLetter[letter] << spoken(fromQt(caption));
    std::vector<std::string> found;
    for (const auto& [letter, names] : byLetter)
      if (names.size() > 1) found.push_back((letter + QStringLiteral(": ") + names.join(", ")).toStdString());
    return found;
  }

  static QStringList captionsOf(const QWidget& bar) {
    QStringList captions;
    for (const QAction* action : bar.actions()) captions << action->text();
    return captions;
  }

  static void press(CardWindow& window, Qt::Key letter) {
    QTest::keyClick(window.focusWidget(), letter, Qt::AltModifier);
  }
};

// The captions are given; where one letter stands twice, below is told what it does.
TEST_F(Letters, of_menus_and_buttons_are_shared_on_two_cards_only) {
  std::vector<std::string> found;
  onEachCard([&](forms::CardForm& card, CardWindow& window) {
    QStringList captions = captionsOf(*window.findChild<QMenuBar*>());
    for (const QPushButton* button : window.findChildren<QPushButton*>()) captions << button->text();
    for (const std::string& pair : shared(captions)) found.push_back(toUtf8(card.Name()) + " " + pair);
  });
  EXPECT_THAT(found,
              ElementsAre("frmVisita D: Documentos, Crear Demanda", "frmAnuncio D: Documentos, Donde"));
}

TEST_F(Letters, within_a_menu_are_shared_in_one_only) {
  std::set<std::string> found;
  onEachCard([&](forms::CardForm& card, CardWindow& window) {
    for (const TextView popup : {u"ID_mnuLsv", u"ID_mnuLsvEnDoc"}) {
      card.toolbars().PopupMenu(popup);
      QApplication::activePopupWidget()->close();
    }
    for (const QMenu* menu : window.findChildren<QMenu*>())
      for (const std::string& pair : shared(captionsOf(*menu)))
        found.insert(menu->objectName().toStdString() + " " + pair);
  });
  EXPECT_THAT(found, ElementsAre("ID_mnuLsvEnDoc C: Copiar, Crear Modelo"));
}

TEST_F(Letters, open_each_menu_of_the_bar) {
  onEachCard([&](forms::CardForm& card, CardWindow& window) {
    for (const QAction* action : window.findChild<QMenuBar*>()->actions()) {
      if (card.Name() == u"frmAnuncio" && action->menu()->objectName() == "ID_mnuDocumentos") continue;
      press(window, static_cast<Qt::Key>(letterOf(action->text()).unicode()));
      EXPECT_TRUE(action->menu()->isVisible()) << toUtf8(card.Name()) << " " << action->text().toStdString();
      action->menu()->close();
    }
  });
}

TEST_F(Letters, press_each_button_on_which_something_hangs_every_time) {
  std::vector<std::string> pressed;
  onEachCard([&](forms::CardForm& card, CardWindow& window) {
    card.VerLista.connect(
        [&] { pressed.push_back(toUtf8(card.Name() + u" " + card.ActiveControl()->Name())); });
    for (const QPushButton* button : window.findChildren<QPushButton*>()) {
      if (button->objectName() == "cmdCreaDemanda") continue;
      for (int time = 0; time < 2; ++time) {
        const std::size_t before = pressed.size();
        press(window, static_cast<Qt::Key>(letterOf(button->text()).unicode()));
        EXPECT_TRUE(eventually([&] { return pressed.size() > before; })) << button->text().toStdString();
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
      }
    }
  });
  EXPECT_THAT(pressed,
              ElementsAre("frmNota cmdCategorias", "frmNota cmdCategorias", "frmVisita cmdCategorias",
                          "frmVisita cmdCategorias", "frmAnuncio cmdMedioPubli", "frmAnuncio cmdMedioPubli",
                          "frmAnuncio cmdCategorias", "frmAnuncio cmdCategorias"));
}

TEST_F(Letters, of_the_button_that_does_nothing_are_the_menus) {
  const auto card = std::make_shared<forms::CardForm>(forms::frmVisita());
  whileShown(*card, [&] {
    CardWindow& window = *windowOf(*card);
    for (int time = 0; time < 2; ++time) {
      press(window, Qt::Key_D);
      QMenu* menu = window.findChild<QMenu*>("ID_mnuDocumentos");
      EXPECT_TRUE(menu->isVisible());
      menu->close();
    }
    EXPECT_NE(active(*card), u"cmdCreaDemanda");
  });
}

TEST_F(Letters, alt_alone_leads_into_the_menu_bar_and_escape_out_of_it_not_of_the_card) {
  const auto card = std::make_shared<forms::CardForm>(forms::frmNota());
  whileShown(*card, [&] {
    int keys = 0;
    card->setKeyPreview(true);
    card->KeyDown.connect([&](std::int16_t&, std::int16_t&) { ++keys; });
    CardWindow& window = *windowOf(*card);
    QTest::keyClick(window.focusWidget(), Qt::Key_Alt);
    auto* bar = window.findChild<QMenuBar*>();
    ASSERT_TRUE(bar->hasFocus());
    keys = 0;
    QTest::keyClick(bar, Qt::Key_Escape);
    EXPECT_FALSE(bar->hasFocus());
    EXPECT_TRUE(target(*card, u"txtAsunto")->hasFocus());
    EXPECT_EQ(keys, 0);
  });
}

}  // namespace

}  // namespace ovalia::desktop
