#include <array>

#include "tests/forms/FormTest.h"

namespace ovalia::forms {
namespace {

constexpr auto controls = std::to_array<ControlDesign>({
    {u"txtUna", ControlType::TextBox, plain, u"", u"", 0, 0, 1000, 315, 0},
    {u"txtVarias", ControlType::TextBox, multiLine, u"", u"", 0, 400, 1000, 900, 1},
    {u"cmdOtro", ControlType::CommandButton, plain, u"Otro", u"", 0, 1400, 1000, 315, 2},
    {u"cmdSi", ControlType::CommandButton, defaultButton, u"Sí", u"", 0, 1800, 1000, 315, 3},
    {u"cmdNo", ControlType::CommandButton, cancelButton, u"No", u"", 0, 2200, 1000, 315, 4},
});
constexpr FormDesign sample{.name = u"frmTeclas",
                            .caption = u"Teclas",
                            .minimumWidth = 2000,
                            .minimumHeight = 3000,
                            .controls = controls};

class Keys : public Form {
 public:
  Keys() : Form(sample) {}
  Names journal;
  std::function<void(bool&)> check = [](bool&) {};

 protected:
  void onControl(Control& control, ControlEvent event) override {
    if (event == ControlEvent::Click) journal.push_back(control.Name());
  }
  void onValidate(Control& control, bool& cancel) override {
    journal.push_back(u"Validate " + control.Name());
    check(cancel);
  }
  void onKeyPress(Control& control, int& character) override {
    journal.push_back(control.Name() + u" " + toText(character));
    if (character == u'\'') character = 0;
  }
};

class ButtonKeys : public FormTest {
 protected:
  void open(const std::function<void()>& script) {
    desk.whileShown(script);
    form->Show();
  }
  Names clicked(int key, int shift = 0) {
    form->journal.clear();
    user.presses(key, shift);
    return form->journal;
  }
  Text active() const { return form->ActiveControl()->Name(); }
  std::shared_ptr<Keys> form = std::make_shared<Keys>();
};

TEST_F(ButtonKeys, enter_and_escape_stand_for_their_buttons_without_moving_the_focus) {
  open([&] {
    EXPECT_EQ(clicked(kit::User::enter), Names{u"cmdSi"});
    EXPECT_EQ(clicked(kit::User::escape), Names{u"cmdNo"});
    EXPECT_EQ(active(), u"txtUna");
    EXPECT_EQ(clicked(kit::User::enter, kit::User::shiftKey), Names{});
    EXPECT_EQ(clicked(kit::User::keyV), Names{});
  });
}

TEST_F(ButtonKeys, enter_is_left_to_a_box_of_lines_and_to_another_button) {
  open([&] {
    for (const TextView name : {u"txtVarias", u"cmdOtro", u"cmdSi"}) {
      user.enters(name);
      EXPECT_EQ(clicked(kit::User::enter), Names{}) << toUtf8(name);
      EXPECT_EQ(clicked(kit::User::escape), Names{u"cmdNo"});
    }
  });
}

TEST_F(ButtonKeys, a_disabled_button_has_no_key) {
  open([&] {
    form->control(u"cmdSi")->setEnabled(false);
    form->control(u"cmdNo")->setVisible(false);
    EXPECT_EQ(clicked(kit::User::enter), Names{});
    EXPECT_EQ(clicked(kit::User::escape), Names{});
  });
}

TEST_F(ButtonKeys, a_character_is_shown_to_the_form_which_can_keep_it) {
  open([&] {
    user.strikes(u"txtUna", u'a');
    user.strikes(u"txtUna", u'\'');
    user.strikes(u"txtUna", u'ñ');
    EXPECT_EQ(form->as<TextBox>(u"txtUna")->text(), u"añ");
    EXPECT_EQ(form->journal, (Names{u"txtUna 97", u"txtUna 39", u"txtUna 241"}));
  });
}

TEST_F(ButtonKeys, tab_looks_for_its_target_after_the_check) {
  open([&] {
    form->check = [&](bool&) { form->control(u"txtVarias")->setEnabled(false); };
    user.tabs();
    EXPECT_EQ(active(), u"cmdOtro");
    EXPECT_EQ(form->journal, Names{u"Validate txtUna"});
    user.tabs(false);
    EXPECT_EQ(active(), u"txtUna");
    form->check = [&](bool&) { form->control(u"txtVarias")->setEnabled(true); };
    user.tabs();
    EXPECT_EQ(active(), u"txtVarias");
    form->check = [](bool& cancel) { cancel = true; };
    user.tabs();
    EXPECT_EQ(active(), u"txtVarias");
    EXPECT_EQ(desk.focused.back(), u"txtVarias");
    form->check = [](bool&) {};
  });
}

TEST_F(ButtonKeys, a_control_that_the_check_disables_does_not_get_the_focus) {
  open([&] {
    form->check = [&](bool&) { form->control(u"cmdOtro")->setEnabled(false); };
    EXPECT_FALSE(user.enters(u"cmdOtro"));
    EXPECT_EQ(active(), u"txtUna");
    EXPECT_EQ(desk.focused.back(), u"txtUna");
    form->control(u"cmdOtro")->setEnabled(true);
    form->journal.clear();
    user.clicks(u"cmdOtro");
    EXPECT_EQ(form->journal, Names{u"Validate txtUna"}) << "nor is it clicked";
  });
}

}  // namespace
}  // namespace ovalia::forms
