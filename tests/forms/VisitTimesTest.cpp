#include "forms/VisitTimes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/Regional.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia::forms {
namespace {

constexpr TextView refusal = u"La fecha de finalización indicada es anterior a la fecha de comienzo.";

class VisitTimes : public kit::LogicTest {
 protected:
  void SetUp() override {
    here.screen.activeFormOf = [this] { return card; };
    show(u"07/03/05", u"10:00:00", u"07/03/05", u"11:00:00");
  }

  // As a record is shown, without the rules.
  void show(TextView startDate, TextView startHour, TextView endDate, TextView endHour) {
    card->setFilling(true);
    card->control(u"dtpFechaAlta")->setValue(startDate);
    card->control(u"dtpHoraAlta")->setValue(startHour);
    card->control(u"dtpFechaFin")->setValue(endDate);
    card->control(u"dtpHoraFin")->setValue(endHour);
    card->setFilling(false);
  }

  void userSets(TextView picker, TextView value) {
    card->as<DTPicker>(picker)->userSets(Variant(value).toDate());
  }

  Text shown() {
    Text all;
    for (const TextView picker : {u"dtpFechaAlta", u"dtpHoraAlta", u"dtpFechaFin", u"dtpHoraFin"})
      all += (all.empty() ? u"" : u" ") + card->as<DTPicker>(picker)->text();
    return all;
  }

  kit::FakeScreen::Expectation& expectRefusal() { return expectBox(Text(refusal), 64); }

  std::shared_ptr<CardForm> card = std::make_shared<CardForm>(frmVisita());
};

TEST_F(VisitTimes, half_an_hour_later_is_exact_to_the_second) {
  const Date start = dateFrom({1899, 12, 30, 10, 20, 30}).value();
  EXPECT_EQ(halfHourAfter(start), dateFrom({1899, 12, 30, 10, 50, 30}).value());
  for (int second = 0; second < 86'400 - 1'800; second += 61) {
    const Date later = halfHourAfter(Date{second / 86'400.0});
    ASSERT_EQ(later.days, (second + 1'800) / 86'400.0) << second;
  }
}

TEST_F(VisitTimes, half_an_hour_before_midnight_is_the_next_days_quarter_past) {
  const Date late = dateFrom({1899, 12, 30, 23, 45, 0}).value();
  EXPECT_EQ(halfHourAfter(late), dateFrom({1899, 12, 31, 0, 15, 0}).value());
}

TEST_F(VisitTimes, moving_the_start_date_past_the_end_drags_the_end_date_along_in_silence) {
  userSets(u"dtpFechaAlta", u"09/03/2005");
  EXPECT_EQ(shown(), u"09/03/2005 10:00:00 09/03/2005 11:00:00");
}

TEST_F(VisitTimes, moving_the_start_date_onto_the_end_date_with_a_later_hour_moves_the_end_hour_in_silence) {
  show(u"06/03/05", u"15:00:00", u"07/03/05", u"11:00:00");
  userSets(u"dtpFechaAlta", u"07/03/2005");
  EXPECT_EQ(shown(), u"07/03/2005 15:00:00 07/03/2005 15:30:00");
}

TEST_F(VisitTimes, moving_the_start_date_past_the_end_with_a_later_hour_lets_the_end_date_complain_once) {
  show(u"07/03/05", u"15:00:00", u"08/03/05", u"11:00:00");
  expectRefusal();
  userSets(u"dtpFechaAlta", u"09/03/2005");
  EXPECT_EQ(shown(), u"09/03/2005 15:00:00 09/03/2005 15:30:00");
}

TEST_F(VisitTimes, moving_the_start_hour_behind_the_end_moves_the_end_hour_in_silence) {
  userSets(u"dtpHoraAlta", u"12:10:05");
  EXPECT_EQ(shown(), u"07/03/2005 12:10:05 07/03/2005 12:40:05");
}

TEST_F(VisitTimes, a_start_hour_on_the_end_hour_is_no_later) {
  userSets(u"dtpHoraAlta", u"11:00:00");
  EXPECT_EQ(shown(), u"07/03/2005 11:00:00 07/03/2005 11:00:00");
}

TEST_F(VisitTimes, a_later_start_hour_on_an_earlier_day_moves_nothing) {
  show(u"06/03/05", u"10:00:00", u"07/03/05", u"11:00:00");
  userSets(u"dtpHoraAlta", u"23:00:00");
  EXPECT_EQ(shown(), u"06/03/2005 23:00:00 07/03/2005 11:00:00");
}

TEST_F(VisitTimes, a_later_start_hour_with_the_start_date_behind_the_end_moves_nothing) {
  show(u"09/03/05", u"10:00:00", u"07/03/05", u"11:00:00");
  userSets(u"dtpHoraAlta", u"23:00:00");
  EXPECT_EQ(shown(), u"09/03/2005 23:00:00 07/03/2005 11:00:00");
}

TEST_F(VisitTimes, an_end_date_before_the_start_is_refused_and_corrected) {
  expectRefusal();
  userSets(u"dtpFechaFin", u"05/03/2005");
  EXPECT_EQ(shown(), u"07/03/2005 10:00:00 07/03/2005 10:30:00");
}

TEST_F(VisitTimes, a_refusal_is_told_before_anything_is_corrected) {
  expectRefusal().whileUp([&] { EXPECT_EQ(shown(), u"07/03/2005 10:00:00 05/03/2005 11:00:00"); });
  userSets(u"dtpFechaFin", u"05/03/2005");
  show(u"07/03/05", u"10:00:00", u"07/03/05", u"11:00:00");
  expectRefusal().whileUp([&] { EXPECT_EQ(shown(), u"07/03/2005 10:00:00 07/03/2005 9:00:00"); });
  userSets(u"dtpHoraFin", u"9:00:00");
}

TEST_F(VisitTimes, a_refusal_that_cannot_be_shown_is_reported_and_the_end_corrected_all_the_same) {
  here.faults.failNext("Screen.messageBox", failure::internalError);
  expectReport(u"MostrarMensaje() de RutinasErr", failure::internalError);
  userSets(u"dtpFechaFin", u"05/03/2005");
  EXPECT_EQ(shown(), u"07/03/2005 10:00:00 07/03/2005 10:30:00");
}

TEST_F(VisitTimes, an_end_date_before_the_start_with_an_earlier_hour_is_refused_twice) {
  show(u"07/03/05", u"10:00:00", u"08/03/05", u"09:00:00");
  expectRefusal();
  expectRefusal();
  userSets(u"dtpFechaFin", u"05/03/2005");
  EXPECT_EQ(shown(), u"07/03/2005 10:00:00 07/03/2005 10:30:00");
}

TEST_F(VisitTimes, an_end_date_on_the_start_date_with_an_earlier_hour_is_refused_once) {
  show(u"07/03/05", u"10:00:00", u"08/03/05", u"09:00:00");
  expectRefusal();
  userSets(u"dtpFechaFin", u"07/03/2005");
  EXPECT_EQ(shown(), u"07/03/2005 10:00:00 07/03/2005 10:30:00");
}

TEST_F(VisitTimes, an_end_hour_before_the_start_on_the_same_day_is_refused_once) {
  expectRefusal();
  userSets(u"dtpHoraFin", u"9:59:59");
  EXPECT_EQ(shown(), u"07/03/2005 10:00:00 07/03/2005 10:30:00");
}

TEST_F(VisitTimes, an_earlier_end_hour_on_a_later_day_is_fine) {
  show(u"07/03/05", u"10:00:00", u"08/03/05", u"11:00:00");
  userSets(u"dtpHoraFin", u"9:00:00");
  EXPECT_EQ(shown(), u"07/03/2005 10:00:00 08/03/2005 9:00:00");
}

TEST_F(VisitTimes, an_earlier_end_hour_is_no_matter_of_its_own_while_the_end_date_is_wrong_already) {
  show(u"09/03/05", u"10:00:00", u"07/03/05", u"11:00:00");
  userSets(u"dtpHoraFin", u"9:00:00");
  EXPECT_EQ(shown(), u"09/03/2005 10:00:00 07/03/2005 9:00:00");
}

TEST_F(VisitTimes, an_end_past_midnight_keeps_its_day_part_and_is_later_than_the_start) {
  userSets(u"dtpHoraAlta", u"23:45:00");
  EXPECT_EQ(shown(), u"07/03/2005 23:45:00 07/03/2005 0:15:00");
  EXPECT_EQ(card->control(u"dtpHoraFin")->value().toDate(), dateFrom({1899, 12, 31, 0, 15, 0}).value());
  userSets(u"dtpHoraAlta", u"23:50:00");
  EXPECT_EQ(shown(), u"07/03/2005 23:50:00 07/03/2005 0:15:00") << "the next day's quarter past is later";
}

TEST_F(VisitTimes, setting_the_value_that_is_there_already_does_nothing) {
  show(u"09/03/05", u"10:00:00", u"07/03/05", u"11:00:00");
  userSets(u"dtpFechaFin", u"07/03/2005");
  EXPECT_EQ(shown(), u"09/03/2005 10:00:00 07/03/2005 11:00:00");
}

TEST_F(VisitTimes, filling_a_card_runs_no_rule) {
  show(u"09/03/05", u"10:00:00", u"30-12-99", u"00:00:00");
  EXPECT_EQ(shown(), u"09/03/2005 10:00:00 30-12-99 0:00:00");
  show(u"07/03/05", u"10:00:00", u"05/03/05", u"9:00:00");
  EXPECT_EQ(shown(), u"07/03/2005 10:00:00 05/03/2005 9:00:00");
}

TEST_F(VisitTimes, cambio_is_raised_before_the_rule_and_for_each_correction_and_while_filling) {
  std::vector<Text> heard;
  card->Cambio.connect([&](ControlRef& control, Text& field) {
    heard.push_back((control ? control->Name() : Text(u"-")) + u" " + field + u": " + shown());
  });
  userSets(u"dtpFechaAlta", u"09/03/2005");
  EXPECT_EQ(heard, (std::vector<Text>{
                       u"dtpFechaAlta FechaComienzo: 09/03/2005 10:00:00 07/03/2005 11:00:00",
                       u"dtpFechaAlta FechaFin: 09/03/2005 10:00:00 09/03/2005 11:00:00",
                   }))
      << "the second names the field that changed and the control that has the focus";
  heard.clear();
  card->setFilling(true);
  card->control(u"dtpHoraFin")->setValue(u"8:00:00");
  card->setFilling(false);
  EXPECT_EQ(heard.size(), 1u);
}

TEST_F(VisitTimes, the_start_pickers_of_the_other_cards_have_no_rule) {
  for (const FormDesign& design : {frmNota(), frmAnuncio(), frmLlamada()}) {
    const auto other = std::make_shared<CardForm>(design);
    int heard = 0;
    other->Cambio.connect([&](ControlRef&, Text&) { ++heard; });
    other->as<DTPicker>(u"dtpFechaAlta")->userSets(Variant(u"09/03/2005").toDate());
    EXPECT_EQ(heard, 1) << toUtf8(design.name);
  }
}

TEST_F(VisitTimes, other_names_do_nothing) {
  show(u"09/03/05", u"10:00:00", u"07/03/05", u"11:00:00");
  linkVisitTimes(*card, u"txtAsunto");
  EXPECT_EQ(shown(), u"09/03/2005 10:00:00 07/03/2005 11:00:00");
}

}  // namespace
}  // namespace ovalia::forms
