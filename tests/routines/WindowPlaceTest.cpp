#include "routines/WindowPlace.h"

#include <gtest/gtest.h>

#include "tests/kit/FakeObject.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia {
namespace {

using kit::FakeObject;
using Lines = std::vector<Text>;

class WindowPlace : public kit::LogicTest {
 protected:
  WindowPlace() {
    here.screen.screenWidth = 15000;
    here.screen.screenHeight = 11000;
    form->with(u"WindowState", 0).with(u"Top", 500.0).with(u"Left", 600.0);
    form->with(u"Width", 9000.0).with(u"Height", 6000.0);
  }
  void store(TextView state, TextView top, TextView left, TextView width, TextView height) {
    here.settings.put(u"Agencia", u"frmNota", u"Estado", state);
    here.settings.put(u"Agencia", u"frmNota", u"Top", top);
    here.settings.put(u"Agencia", u"frmNota", u"Left", left);
    here.settings.put(u"Agencia", u"frmNota", u"Width", width);
    here.settings.put(u"Agencia", u"frmNota", u"Height", height);
  }
  Lines restored() {
    form->journal.clear();
    RestaurarVentana(form);
    return form->journal;
  }

  std::shared_ptr<FakeObject> form = kit::named(u"frmNota");
};

TEST_F(WindowPlace, is_read_in_order_and_given_to_the_form_in_order) {
  store(u"0", u"100", u"200", u"8000", u"5000");
  EXPECT_EQ(restored(),
            (Lines{u"Top = 100", u"Left = 200", u"Width = 8000", u"Height = 5000", u"WindowState = 0"}));
  EXPECT_EQ(here.settings.asked, (Lines{u"Estado", u"Top", u"Left", u"Width", u"Height"}));
}

TEST_F(WindowPlace, without_stored_values_is_the_forms_own) {
  form->with(u"WindowState", 2);
  EXPECT_EQ(restored(),
            (Lines{u"Top = 500", u"Left = 600", u"Width = 9000", u"Height = 6000", u"WindowState = 0"}));
}

struct Place {
  TextView name;
  Lines stored;    // top, left, width, height
  Lines expected;  // top, left, width, height
};

class Fitting : public WindowPlace, public testing::WithParamInterface<Place> {};

TEST_P(Fitting, onto_the_screen) {
  const Lines& values = GetParam().stored;
  store(u"0", values[0], values[1], values[2], values[3]);
  const Lines& wanted = GetParam().expected;
  EXPECT_EQ(restored(), (Lines{u"Top = " + wanted[0], u"Left = " + wanted[1], u"Width = " + wanted[2],
                               u"Height = " + wanted[3], u"WindowState = 0"}))
      << toUtf8(GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(
    WindowPlace, Fitting,
    testing::Values(
        Place{u"before the edges", {u"-10", u"-20", u"8000", u"5000"}, {u"0", u"0", u"8000", u"5000"}},
        Place{u"too small", {u"0", u"0", u"50", u"99"}, {u"0", u"0", u"100", u"100"}},
        Place{u"negative size", {u"0", u"0", u"-50", u"-1"}, {u"0", u"0", u"100", u"100"}},
        Place{u"larger than the screen", {u"0", u"0", u"20000", u"12000"}, {u"0", u"0", u"15000", u"11000"}},
        Place{u"larger and moved", {u"300", u"300", u"20000", u"12000"}, {u"0", u"0", u"15000", u"11000"}},
        Place{u"beyond the far edges",
              {u"9000", u"14000", u"8000", u"5000"},
              {u"6000", u"7000", u"8000", u"5000"}},
        Place{u"exactly at the far edges",
              {u"6000", u"7000", u"8000", u"5000"},
              {u"6000", u"7000", u"8000", u"5000"}},
        Place{u"on a larger screen",
              {u"40000", u"50000", u"100", u"100"},
              {u"10900", u"14900", u"100", u"100"}}));

TEST_F(WindowPlace, is_read_as_whole_numbers_with_comma_or_point) {
  store(u"0", u"100,5", u"200.4", u"8000.0", u"5001,5");
  EXPECT_EQ(restored(),
            (Lines{u"Top = 100", u"Left = 200", u"Width = 8000", u"Height = 5002", u"WindowState = 0"}));
}

TEST_F(WindowPlace, is_read_with_comma_or_point_under_other_settings_too) {
  here.platform.regional.decimal = u'.';
  here.platform.regional.grouping = u',';
  store(u"0", u"100,5", u"200.4", u"8000.0", u"5001,5");
  EXPECT_EQ(restored(),
            (Lines{u"Top = 100", u"Left = 200", u"Width = 8000", u"Height = 5002", u"WindowState = 0"}));
}

TEST_F(WindowPlace, may_lie_beyond_16_bits) {
  here.screen.screenWidth = 60000;
  store(u"0", u"0", u"40000", u"15000", u"5000");
  EXPECT_EQ(restored()[1], u"Left = 40000");
}

TEST_F(WindowPlace, of_a_maximised_form_comes_back_maximised_with_the_last_normal_place_behind_it) {
  GuardarVentana(form);
  form->with(u"WindowState", 2).with(u"Top", -60.0).with(u"Left", -60.0);
  form->with(u"Width", 15120.0).with(u"Height", 11120.0);
  GuardarVentana(form);
  EXPECT_EQ(restored(),
            (Lines{u"Top = 500", u"Left = 600", u"Width = 9000", u"Height = 6000", u"WindowState = 2"}));
}

TEST_F(WindowPlace, of_a_form_closed_minimised_comes_back_minimised) {
  form->with(u"WindowState", 1);
  GuardarVentana(form);
  EXPECT_EQ(restored().back(), u"WindowState = 1");
}

TEST_F(WindowPlace, is_saved_in_order_as_text) {
  form->with(u"Left", 600.5);
  GuardarVentana(form);
  EXPECT_EQ(here.settings.saved, (Lines{u"frmNota|Estado=0", u"frmNota|Top=500", u"frmNota|Left=600,5",
                                        u"frmNota|Height=6000", u"frmNota|Width=9000"}));
}

TEST_F(WindowPlace, that_is_not_normal_saves_the_state_alone) {
  for (const std::int32_t state : {1, 2}) {
    here.settings.saved.clear();
    form->with(u"WindowState", state);
    GuardarVentana(form);
    EXPECT_EQ(here.settings.saved, (Lines{u"frmNota|Estado=" + toText(state)}));
  }
}

TEST_F(WindowPlace, is_kept_for_each_form_apart) {
  GuardarVentana(form);
  EXPECT_EQ(here.settings.stored(u"Agencia", u"frmNota", u"Top"), u"500");
  EXPECT_EQ(here.settings.stored(u"Agencia", u"frmVisita", u"Top"), std::nullopt);
}

TEST_F(WindowPlace, that_is_no_number_is_reported_and_the_form_left_alone) {
  store(u"0", u"arriba", u"200", u"8000", u"5000");
  expectReport(u"RestaurarVentana() de RutinasErr", 13);
  EXPECT_TRUE(restored().empty());
}

TEST_F(WindowPlace, that_cannot_be_saved_is_reported_and_keeps_what_was_saved_before) {
  here.faults.failNth("Settings.save", 3, 70);
  expectReport(u"GuardarVentana() de RutinasErr", 70);
  GuardarVentana(form);
  EXPECT_EQ(here.settings.saved, (Lines{u"frmNota|Estado=0", u"frmNota|Top=500"}));
}

}  // namespace
}  // namespace ovalia
