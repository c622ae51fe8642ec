#include "tests/forms/FormTest.h"

namespace ovalia::forms {
namespace {

class Items : public FormTest {
 protected:
  void list(const FormDesign& design, const std::function<void(Card&)>& script) {
    shown(design, [&](Card& card) {
      card.as<ListView>(u"LsvDocu")->Add({u"a1.doc", u"Carta", u"doc"});
      user.enters(u"LsvDocu");
      script(card);
    });
  }
  Names popups() const {
    Names menus;
    for (const kit::Popup& popup : desk.popups) {
      menus.push_back(popup.menu);
      EXPECT_FALSE(popup.at) << "where the mouse is";
    }
    return menus;
  }
};

TEST_F(Items, a_double_click_on_one_opens_it) {
  for (const auto* design : {&frmNota(), &frmAnuncio()})
    list(*design, [&](Card& card) {
      EXPECT_EQ(card.raisedBy([&] { user.doubleClicksItem(1); }), Names{u"Menu Documentos ID_Abrir"});
      EXPECT_EQ(card.as<ListView>(u"LsvDocu")->selectedIndex(), 1);
    });
}

TEST_F(Items, a_double_click_beside_them_opens_nothing) {
  list(frmNota(), [&](Card& card) { EXPECT_EQ(card.raisedBy([&] { user.doubleClicksItem(0); }), Names{}); });
}

TEST_F(Items, a_double_click_beside_them_opens_the_one_that_a_plain_click_had_pressed) {
  list(frmNota(), [&](Card& card) {
    user.clicksItem(1);
    EXPECT_EQ(card.raisedBy([&] { user.doubleClicksItem(0); }), Names{u"Menu Documentos ID_Abrir"});
    EXPECT_EQ(card.raisedBy([&] { user.doubleClicksItem(0); }), Names{}) << "once";
  });
}

TEST_F(Items, the_right_button_shows_the_menu_of_items_on_one_and_that_of_the_list_beside_them) {
  for (const auto* design : {&frmNota(), &frmAnuncio()})
    list(*design, [&](Card& card) {
      desk.popups.clear();
      EXPECT_EQ(card.raisedBy([&] { user.rightClicksItem(1); }), Names{u"Menu ListView ID_mnuLsvEnDoc"})
          << "the menu reports itself before it shows";
      EXPECT_EQ(card.raisedBy([&] { user.rightClicksItem(0); }), Names{u"Menu ListView ID_mnuLsv"});
      EXPECT_EQ(popups(), (Names{u"ID_mnuLsvEnDoc", u"ID_mnuLsv"}));
    });
}

TEST_F(Items, a_plain_click_makes_the_next_right_click_beside_them_show_the_menu_of_items) {
  list(frmNota(), [&](Card&) {
    user.clicksItem(1);
    user.rightClicksItem(0);
    user.rightClicksItem(0);
    EXPECT_EQ(popups(), (Names{u"ID_mnuLsvEnDoc", u"ID_mnuLsv"}));
  });
}

TEST_F(Items, an_item_selected_by_keyboard_counts_as_pressed) {
  list(frmNota(), [&](Card& card) {
    card.as<ListView>(u"LsvDocu")->userSelects(1);
    user.rightClicksItem(0);
    EXPECT_EQ(popups(), Names{u"ID_mnuLsvEnDoc"});
  });
}

TEST_F(Items, each_button_gives_way_to_the_message_loop_after_its_menu) {
  int yields = 0;
  here.screen.yielding = [&] { ++yields; };
  list(frmNota(), [&](Card&) {
    user.clicksItem(1);
    user.clicksItem(0);
    EXPECT_EQ(yields, 2);
    here.screen.yielding = [&] { EXPECT_EQ(desk.popups.size(), 1u); };
    user.rightClicksItem(1);
  });
}

TEST_F(Items, the_card_may_close_while_the_message_loop_runs) {
  here.screen.yielding = [&] { user.closes(); };
  list(frmNota(), [&](Card& card) {
    user.rightClicksItem(1);
    EXPECT_FALSE(card.loaded());
  });
}

TEST_F(Items, neither_double_click_nor_right_button_does_anything_on_visits_and_calls) {
  int yields = 0;
  here.screen.yielding = [&] { ++yields; };
  for (const auto* design : {&frmVisita(), &frmLlamada()})
    list(*design, [&](Card& card) {
      EXPECT_EQ(card.raisedBy([&] {
        user.clicksItem(1);
        user.doubleClicksItem(1);
        user.rightClicksItem(1);
        user.rightClicksItem(0);
      }),
                Names{});
      EXPECT_TRUE(popups().empty());
      EXPECT_EQ(yields, 0);
    });
}

TEST_F(Items, a_new_name_is_handed_on_while_the_item_still_has_the_old_one) {
  list(frmNota(), [&](Card& card) {
    ListView& documents = *card.as<ListView>(u"LsvDocu");
    user.clicksItem(1);
    Text before;
    card.ActualizaDocs.connect([&](Text&) { before = documents.item(documents.selectedIndex()).text; });
    EXPECT_EQ(card.raisedBy([&] { user.renamesItem(u"Contrato"); }), Names{u"ActualizaDocs Contrato"});
    EXPECT_EQ(before, u"Carta");
    EXPECT_EQ(documents.item(1).text, u"Contrato");
  });
}

TEST_F(Items, are_renamed_on_the_note_only) {
  for (const auto* design : {&frmVisita(), &frmAnuncio(), &frmLlamada()})
    list(*design, [&](Card& card) {
      user.clicksItem(1);
      EXPECT_EQ(card.raisedBy([&] { user.renamesItem(u"Contrato"); }), Names{});
      EXPECT_EQ(card.as<ListView>(u"LsvDocu")->item(1).text, u"Carta");
    });
}

TEST_F(Items, are_not_renamed_while_none_is_selected) {
  list(frmNota(),
       [&](Card& card) { EXPECT_EQ(card.raisedBy([&] { user.renamesItem(u"Contrato"); }), Names{}); });
}

TEST_F(Items, may_be_refilled_while_one_is_renamed) {
  list(frmNota(), [&](Card& card) {
    ListView& documents = *card.as<ListView>(u"LsvDocu");
    user.clicksItem(1);
    card.ActualizaDocs.connect([&](Text&) {
      documents.Clear();
      documents.Add({u"b1.doc", u"Otra", u"doc"});
    });
    user.renamesItem(u"Contrato");
    EXPECT_EQ(documents.item(1).text, u"Otra");
  });
}

}  // namespace
}  // namespace ovalia::forms
