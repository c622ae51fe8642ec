#include "tests/forms/FormTest.h"

namespace ovalia::forms {
namespace {

class DocumentList : public FormTest {
 protected:
  std::shared_ptr<Card> note = made(frmNota());
  ListView& list = *note->as<ListView>(u"LsvDocu");
  void SetUp() override {
    list.Add({u"a1.doc", u"Carta", u"doc"});
    list.Add({u"a2.txt", u"Apuntes", u"txt"});
  }
};

TEST_F(DocumentList, keeps_items_under_their_keys) {
  EXPECT_EQ(list.items().size(), 2u);
  EXPECT_EQ(list.item(2).text, u"Apuntes");
  EXPECT_EQ(failureOf([&] { list.Add({u"a1.doc", u"Otra", u"doc"}); }), failure::keyNotUnique);
  EXPECT_EQ(failureOf([&] { list.item(0); }), failure::indexOutOfBounds);
  EXPECT_EQ(failureOf([&] { list.item(3); }), failure::indexOutOfBounds);
  list.Clear();
  EXPECT_TRUE(list.items().empty());
}

TEST_F(DocumentList, has_nothing_selected_until_somebody_selects) {
  EXPECT_EQ(list.selectedIndex(), 0);
  EXPECT_FALSE(list.get(u"SelectedItem").toObject());
  list.select(2);
  const ObjectRef item = list.get(u"SelectedItem").toObject();
  EXPECT_EQ(getMember(item, u"Key").text(), u"a2.txt");
  EXPECT_EQ(getMember(item, u"Text").text(), u"Apuntes");
  EXPECT_EQ(getMember(item, u"Index").toLong(), 2);
  EXPECT_EQ(failureOf([&] { list.select(3); }), failure::indexOutOfBounds);
  list.Clear();
  EXPECT_FALSE(list.get(u"SelectedItem").toObject());
}

TEST_F(DocumentList, gives_its_items_by_place) {
  EXPECT_EQ(getMember(getMember(note->control(u"LsvDocu"), u"ListItems", {1}).toObject(), u"Text").text(),
            u"Carta");
  EXPECT_EQ(failureOf([&] { getMember(note->control(u"LsvDocu"), u"ListItems", {3}); }),
            failure::indexOutOfBounds);
}

TEST_F(DocumentList, has_three_views_and_starts_with_the_first) {
  EXPECT_EQ(list.View(), 0);
  list.put(u"View", 2);
  EXPECT_EQ(list.get(u"View").toLong(), 2);
  EXPECT_EQ(failureOf([&] { list.setView(3); }), failure::badArgument);
  EXPECT_EQ(failureOf([&] { list.setView(-1); }), failure::badArgument);
}

TEST_F(DocumentList, shows_or_hides_by_its_own_setting_whatever_the_form_does) {
  EXPECT_TRUE(list.Visible()) << "on a form that is not shown";
  desk.whileShown([&] {
    list.setVisible(false);
    note->Hide();
    EXPECT_FALSE(list.Visible());
    list.setVisible(true);
    EXPECT_TRUE(list.Visible());
  });
  note->Show();
}

TEST_F(DocumentList, tells_the_view) {
  desk.changes.clear();
  list.select(1);
  list.select(1);
  list.setView(1);
  list.Clear();
  EXPECT_EQ(desk.changes, (std::vector<std::pair<Text, Property>>{{u"LsvDocu", Property::SelectedItem},
                                                                  {u"LsvDocu", Property::View},
                                                                  {u"LsvDocu", Property::Items}}));
}

TEST_F(DocumentList, only_on_the_note_are_items_renamed) {
  for (const FormDesign* design : allCardDesigns())
    for (const ControlDesign& control : design->controls)
      EXPECT_EQ((control.style & labelEdit) != 0, design == &frmNota() && control.name == u"LsvDocu");
}

}  // namespace
}  // namespace ovalia::forms
