// The search dialog and its card as two windows that are both in use.
#include "desktop/MessageBox.h"
#include "tests/desktop/SampleForm.h"
#include "tests/desktop/Searching.h"

namespace ovalia::desktop {

using deskkit::meanwhile;
using testing::ElementsAre;
using testing::IsEmpty;

class SearchBesideCard : public Searching {
 protected:
  // Shows the note card and the dialog over it, and runs `actions` while both are up.
  void beside(const std::function<void()>& actions) {
    whileShown(*form, [&] {
      behind = windowOf(*form);
      search(actions);
    });
  }
  void turn() { deskkit::press(Qt::Key_F6); }
  bool warns() { return part<QLabel>("aviso")->isVisible(); }
  void cardIs(bool dirty) { form->toolbars().tool(u"ID_Guardar")->setEnabled(dirty); }

  std::shared_ptr<forms::CardForm> form = std::make_shared<forms::CardForm>(forms::frmNota());
  QPointer<CardWindow> behind;
};

TEST_F(SearchBesideCard, is_a_window_of_the_card_that_stays_above_it_and_blocks_nothing) {
  beside([&] {
    EXPECT_EQ(window->windowHandle()->transientParent(), behind->windowHandle());
    EXPECT_FALSE(window->isModal());
    EXPECT_EQ(QApplication::activeModalWidget(), behind);
    EXPECT_EQ(QApplication::activeWindow(), window);
    turn();
    EXPECT_EQ(QApplication::activeWindow(), behind);
    EXPECT_TRUE(window->isVisible());
    deskkit::types("ático");
    EXPECT_EQ(shown(*form, u"txtAsunto"), "ático");
    turn();
    EXPECT_EQ(QApplication::activeWindow(), window);
    deskkit::types("ñ");
    EXPECT_EQ(part<QLineEdit>("texto")->text(), "ñ");
    EXPECT_EQ(shown(*form, u"txtAsunto"), "ático");
  });
}

TEST_F(SearchBesideCard, takes_clicks_of_the_window_system_and_so_does_the_card) {
  beside([&] {
    const auto click = [](QWidget* aimed) {
      QTest::mouseClick(aimed->window()->windowHandle(), Qt::LeftButton, {},
                        aimed->mapTo(aimed->window(), QPoint(8, aimed->height() / 2)));
    };
    click(target(*form, u"txtNotas"));
    EXPECT_EQ(active(*form), u"txtNotas");
    part<QLineEdit>("texto")->setText("x");
    click(button("&Siguiente"));
    EXPECT_THAT(steps, ElementsAre("2: [Asunto] Like '*x*'"));
  });
}

TEST_F(SearchBesideCard, a_hit_is_shown_on_the_card_and_leaves_the_user_in_the_dialog) {
  beside([&] {
    const QSize size = behind->size();
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
    EXPECT_EQ(behind->size(), size);
  });
}

TEST_F(SearchBesideCard, closing_it_turns_to_the_card_which_stays) {
  beside([&] {
    deskkit::press(Qt::Key_Escape);
    EXPECT_EQ(QApplication::activeWindow(), behind);
    EXPECT_TRUE(form->Visible());
  });
}

TEST_F(SearchBesideCard, goes_with_the_card_however_that_goes) {
  const std::function<void()> ways[] = {[&] { form->Hide(); }, [&] { form->Unload(); },
                                        [&] { behind->close(); }};
  for (const auto& go : ways)
    beside([&] {
      go();
      EXPECT_FALSE(form->Visible());
      EXPECT_FALSE(window->isVisible());
    });
  EXPECT_TRUE(eventually([&] { return !behind; }));
}

TEST_F(SearchBesideCard, goes_with_a_card_that_a_step_takes_away) {
  card->answering(u"BuscarElemento", [&](Arguments) {
    form->Unload();
    return Variant(false);
  });
  beside([&] {
    types("x");
    press(Qt::Key_Return);
    EXPECT_FALSE(window->isVisible());
  });
  EXPECT_FALSE(form->loaded());
}

TEST_F(SearchBesideCard, stays_with_a_card_that_refuses_to_close) {
  form->UnLoad.connect([](bool& cancel) { cancel = true; });
  beside([&] {
    behind->close();
    EXPECT_TRUE(form->Visible());
    EXPECT_TRUE(window->isVisible());
  });
}

TEST_F(SearchBesideCard, minimising_the_card_ends_no_search) {
  beside([&] {
    behind->setWindowState(Qt::WindowMinimized);
    QApplication::processEvents();
    EXPECT_TRUE(window->isVisible());
  });
}

TEST_F(SearchBesideCard, a_second_search_of_the_card_brings_the_first_to_the_front_and_returns_at_once) {
  beside([&] {
    types("x");
    button("&Siguiente")->setFocus();
    turn();
    callMember(dialogOver(noteFields()), u"Mostrar");
    QApplication::processEvents();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(QApplication::activeWindow(), window);
    EXPECT_EQ(behind->findChildren<QDialog*>("buscador").size(), 1);
    EXPECT_EQ(part<QLineEdit>("texto")->selectedText(), "x");
    EXPECT_EQ(focus(), "texto");
  });
}

TEST_F(SearchBesideCard, a_card_over_the_first_one_has_a_search_of_its_own) {
  const auto inner = std::make_shared<SampleForm>();
  beside([&] {
    types("una");
    const QPointer<SearchDialog> first = window;
    const auto firstCard = std::exchange(card, std::make_shared<kit::FakeObject>());
    card->answering(u"BuscarElemento", [](Arguments) { return Variant(true); });
    whileShown(*inner, [&] {
      search([&] {
        EXPECT_EQ(window->parentWidget(), windowOf(*inner));
        part<QLineEdit>("texto")->setText("otra");
      });
      EXPECT_TRUE(first->isVisible());
    });
    card = firstCard;
    window = first;
    QApplication::setActiveWindow(window);
    press(Qt::Key_Return);
  });
  EXPECT_THAT(steps, ElementsAre("1: [Asunto] Like '*[uúùûü]n[aáàâäãå]*'"));
}

TEST_F(SearchBesideCard, boxes_block_both_and_belong_to_the_dialog_in_a_step_and_else_to_the_card) {
  const auto box = [&](QWidget* owner) {
    meanwhile([=, this] {
      EXPECT_EQ(QApplication::activeModalWidget()->parentWidget(), owner);
      for (QWidget* blocked : {static_cast<QWidget*>(window), static_cast<QWidget*>(behind)})
        QTest::sendKeyEvent(QTest::Click, blocked->windowHandle(), Qt::Key_A, "a", Qt::NoModifier);
      deskkit::enter();
    });
    showMessageBox("aviso", 48, "Buscar");
  };
  card->answering(u"BuscarElemento", [&](Arguments) {
    for (int i = 0; i < 2; ++i) box(window);
    return Variant(true);
  });
  beside([&] {
    types("x");
    press(Qt::Key_Return);
    box(behind);
    EXPECT_EQ(part<QLineEdit>("texto")->text(), "x");
    EXPECT_EQ(shown(*form, u"txtAsunto"), "");
    EXPECT_TRUE(window->isVisible());
  });
}

TEST_F(SearchBesideCard, says_while_the_card_has_unsaved_changes_that_a_step_would_take_them) {
  beside([&] {
    cardIs(false);
    EXPECT_FALSE(warns());
    cardIs(true);
    EXPECT_TRUE(warns());
    types("x");
    EXPECT_TRUE(warns());
    cardIs(false);
    EXPECT_FALSE(warns());
  });
  whileShown(*form, [&] {
    cardIs(true);
    search([&] { EXPECT_TRUE(warns()); });
  });
}

TEST_F(SearchBesideCard, what_is_half_typed_on_the_card_belongs_to_the_row_that_is_left) {
  here.clock.time = {2026, 3, 9};
  Text before;
  card->answering(u"BuscarElemento", [&](Arguments) {
    before = form->control(u"dtpFechaAlta")->value().text();
    form->control(u"dtpFechaAlta")->put(u"Value", Date{46000});
    return Variant(true);
  });
  beside([&] {
    form->userFocuses(*form->control(u"dtpFechaAlta"));
    turn();
    deskkit::types("5/3");
    turn();
    types("x");
    press(Qt::Key_Return);
    EXPECT_EQ(before, Variant(*dateFrom({2026, 3, 5})).text());
    EXPECT_EQ(shown(*form, u"dtpFechaAlta"), "09/12/25");
  });
}

TEST_F(SearchBesideCard, without_a_modal_card_it_is_modal_itself) {
  search([&] { EXPECT_EQ(QApplication::activeModalWidget(), window); });
  QWidget plain;
  plain.show();
  QApplication::setActiveWindow(&plain);
  search([&] {
    EXPECT_EQ(window->parentWidget(), &plain);
    EXPECT_EQ(QApplication::activeModalWidget(), window);
  });
  EXPECT_THAT(steps, IsEmpty());
}

}  // namespace ovalia::desktop
