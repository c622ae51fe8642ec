#include <gtest/gtest.h>

#include <ostream>
#include <string_view>
#include <vector>

#include "cards/EditTracking.h"
#include "routines/ModuleValues.h"
#include "tests/cards/CardPicture.h"
#include "tests/cards/TrackedCard.h"

namespace ovalia {
namespace {

// Everything that the tracking of an edit asks of its surroundings, failing in turn on a card that counts as
// changed while its control shows its field.
class FailingTracking;

struct Failing {
  const char* what;
  TextView tipo, control;
  TextView field;  // of the change; "" where the control is entered
  void (*arrange)(FailingTracking& test);
  std::int32_t number;
  TextView report;
  std::int32_t state = modificada;
};

void PrintTo(const Failing& row, std::ostream* out) { *out << row.what; }

class FailingTracking : public kit::TrackedCard, public testing::WithParamInterface<Failing> {
 public:
  using TrackedCard::here;
  using TrackedCard::host;
  using TrackedCard::nota;

  void failNth(std::string_view operation, int nth) {
    here.faults.failNth(operation, nth, dao::failure::locked);
  }
  void showOnTop(const ObjectRef& form) {
    here.screen.activeFormOf = [form] { return form; };
  }
  void loseColumn(TextView name) { list->columns.at(list->column(name)).name = u"Otra"; }
};

TEST_P(FailingTracking, is_reported_and_leaves_the_card_and_its_tools_as_they_were) {
  const Failing& row = GetParam();
  with(row.tipo, {}, [&] {
    const auto before = kit::pictureOf(form());
    const auto own = here.screen.activeFormOf;
    setState(modificada);
    control(row.control).Tag = HacerAlgo;
    form().toolbars().tool(u"ID_Guardar")->setEnabled(true);
    row.arrange(*this);
    expectReport(Text(row.report), row.number);
    if (row.field.empty())
      dNota_CogerFoco(instance, ref(row.control));
    else
      dNota_Cambio(instance, ref(row.control), row.field);
    here.screen.activeFormOf = own;
    EXPECT_EQ(state(), row.state);
    EXPECT_EQ(tag(row.control), HacerAlgo);
    EXPECT_TRUE(enabled(u"ID_Guardar"));
    EXPECT_EQ(kit::changesOf(before, kit::pictureOf(form())), u"");
    EXPECT_EQ(stored(u"Notas").text(), u"Tiene prisa por vender.");
  });
}

constexpr TextView change = u"dNota_Cambio de CNota";
constexpr TextView entry = u"dNota_CogerFoco de CNota";
constexpr TextView comparison = u"NuevoEstado de CNota";  // a comparison that fails makes the card clean

const Failing failing[] = {
    {"the form on top, for a date", u"Nota", u"dtpFechaAlta", u"FechaAlta",
     [](FailingTracking& t) { t.failNth("Screen.activeForm", 1); }, dao::failure::locked, change},
    {"the form on top, for the hour beside it", u"Nota", u"dtpFechaAlta", u"FechaAlta",
     [](FailingTracking& t) { t.failNth("Screen.activeForm", 2); }, dao::failure::locked, change},
    {"no form on top", u"Visita", u"dtpHoraFin", u"FechaFin",
     [](FailingTracking& t) { t.showOnTop(nullptr); }, failure::objectNotSet, change},
    {"a form on top that has no such picker", u"Anuncio", u"dtpHoraEnvio", u"FechaEnvio",
     [](FailingTracking& t) { t.showOnTop(t.host.FichaInm); }, failure::noSuchMember, change},
    {"the connection", u"Visita", u"cboComercial", u"IdComercial",
     [](FailingTracking&) { moduleValues().cgDB.reset(); }, failure::objectNotSet, change},
    {"the look-up of a name", u"Visita", u"cboComercial", u"IdComercial",
     [](FailingTracking& t) { t.failNth("Database.OpenRecordset", 1); }, dao::failure::locked, change},
    {"the key of a name", u"Visita", u"cboComercial", u"IdComercial",
     [](FailingTracking& t) { t.failNth("Field.Value", 1); }, dao::failure::locked, change},
    {"the field after a look-up", u"Visita", u"cboComercial", u"IdComercial",
     [](FailingTracking& t) { t.failNth("Field.Value", 2); }, dao::failure::locked, comparison, limpia},
    {"the list", u"Nota", u"txtAsunto", u"Asunto", [](FailingTracking& t) { t.nota.crs.reset(); },
     failure::objectNotSet, change},
    {"a field that the list lacks", u"Nota", u"txtAsunto", u"Ninguno", [](FailingTracking&) {},
     dao::failure::notInCollection, change},
    {"the field", u"Nota", u"txtAsunto", u"Asunto", [](FailingTracking& t) { t.failNth("Field.Value", 1); },
     dao::failure::locked, comparison, limpia},
    {"the field of a list at its end", u"Nota", u"txtAsunto", u"Asunto",
     [](FailingTracking& t) { t.nota.crs->MoveNext(); }, dao::failure::noCurrentRecord, comparison, limpia},

    {"the form on top, for a date that is entered", u"Visita", u"dtpFechaFin", u"",
     [](FailingTracking& t) { t.failNth("Screen.activeForm", 1); }, dao::failure::locked, entry},
    {"the form on top, for the hour beside one that is entered", u"Visita", u"dtpFechaFin", u"",
     [](FailingTracking& t) { t.failNth("Screen.activeForm", 2); }, dao::failure::locked, entry},
    {"no form on top of a picker that is entered", u"Anuncio", u"dtpFechaInicio", u"",
     [](FailingTracking& t) { t.showOnTop(nullptr); }, failure::objectNotSet, entry},
    {"the list, for a picker that is entered", u"Nota", u"dtpHoraAlta", u"",
     [](FailingTracking& t) { t.nota.crs.reset(); }, failure::objectNotSet, entry},
    {"a field that the list lacks, for a picker that is entered", u"Anuncio", u"dtpFechaInicio", u"",
     [](FailingTracking& t) { t.loseColumn(u"FechaInicio"); }, dao::failure::notInCollection, entry},
    {"the field of a picker that is entered", u"Anuncio", u"dtpFechaEnvio", u"",
     [](FailingTracking& t) { t.failNth("Field.Value", 1); }, dao::failure::locked, comparison, limpia},
    {"the field of a picker that is entered at the end of the list", u"Nota", u"dtpFechaAlta", u"",
     [](FailingTracking& t) { t.nota.crs->MoveNext(); }, dao::failure::noCurrentRecord, comparison, limpia},
};

INSTANTIATE_TEST_SUITE_P(EditTracking, FailingTracking, testing::ValuesIn(failing));

class EditTrackingFailures : public kit::TrackedCard {
 protected:
  // With a card on top, the reload that the report of a deleted record asks for finds no controller, and the
  // report ends in the next trap.
  void expectDeleted(TextView nextTrap) {
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
    expectReport(Text(nextTrap), failure::noSuchMember);
  }
};

TEST_F(EditTrackingFailures, typing_on_a_row_that_another_user_deleted_is_told_and_keeps_the_state) {
  with(u"Nota", {}, [&] {
    user.types(u"txtAsunto", u"Otro");
    otherUser.deletesTheRow();
    expectDeleted(u"dNota_Cambio de CNota");
    user.types(u"txtAsunto", u"Otro más");
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(card(u"txtAsunto"), u"Otro más");
  });
}

TEST_F(EditTrackingFailures,
       entering_a_picker_of_a_row_that_another_user_deleted_is_told_and_keeps_the_state) {
  with(u"Nota", {}, [&] {
    otherUser.deletesTheRow();
    expectDeleted(u"dNota_CogerFoco de CNota");
    focus(u"dtpFechaAlta");
    EXPECT_EQ(state(), limpia);
    EXPECT_EQ(tag(u"dtpFechaAlta"), HacerAlgo);
    setState(modificada);
    expectDeleted(u"dNota_CogerFoco de CNota");
    dNota_CogerFoco(instance, ref(u"dtpFechaAlta"));
    EXPECT_EQ(state(), modificada);
  });
}

TEST_F(EditTrackingFailures, tools_that_fail_to_follow_do_not_change_the_new_state) {
  with(u"Nota", {}, [&] {
    user.enters(u"txtAsunto");
    const dao::RecordsetRef kept = nota.crs;
    const auto asunto = kept->fields().item(u"Asunto");
    nota.crs.reset();
    expectReport(u"CambiarMenu de CNota", failure::objectNotSet);
    EXPECT_EQ(NuevoEstado(instance, limpia, u"Otro", asunto), modificada);
    EXPECT_TRUE(enabled(u"ID_Guardar")) << "what came before the failure is done";
    nota.crs = kept;
  });
}

TEST_F(EditTrackingFailures, without_an_active_control_a_change_is_reported) {
  givenList(u"Nota");
  openCard();  // closed again: no window, and nothing has the focus
  form().control(u"txtAsunto");
  expectReport(u"dNota_Cambio de CNota", failure::objectNotSet);
  form().control(u"txtAsunto")->setValue(u"Otro");
  expectReport(u"dNota_CogerFoco de CNota", failure::objectNotSet);
  dNota_CogerFoco(instance, nullptr);
  setState(cargando);
  form().control(u"txtAsunto")->setValue(u"Otro más");
  setState(limpia);
}

// A reminder's companions are enabled one after the other, before the comparison.

TEST_F(EditTrackingFailures, a_companion_out_of_reach_leaves_those_after_it_and_the_comparison_undone) {
  const std::vector<TextView> companions = {u"dtpFechaAviso", u"lblA", u"cboUsuarioAviso"};
  for (int nth = 1; nth <= 3; ++nth) {
    with(u"Nota", {}, [&] {
      for (const TextView companion : companions) control(companion).setEnabled(false);
      setState(modificada);
      control(u"chkAvisoNota").Tag = HacerAlgo;
      otherUser.writes(u"Aviso", 1);  // the box agrees with its field: a comparison would clean the card
      here.faults.failNth("Screen.activeForm", nth, dao::failure::locked);
      expectReport(u"dNota_Cambio de CNota", dao::failure::locked);
      dNota_Cambio(instance, ref(u"chkAvisoNota"), u"Aviso");
      for (int i = 0; i < 3; ++i) EXPECT_EQ(enabled(companions.at(i)), i + 1 < nth) << nth << " " << i;
      EXPECT_EQ(state(), modificada);
    });
  }
  with(u"Visita", {}, [&] {
    control(u"cboTiempoAviso").setEnabled(false);
    setState(modificada);
    control(u"chkAviso").Tag = HacerAlgo;
    otherUser.writes(u"Aviso", 1);
    here.faults.failNext("Screen.activeForm", dao::failure::locked);
    expectReport(u"dNota_Cambio de CNota", dao::failure::locked);
    dNota_Cambio(instance, ref(u"chkAviso"), u"Aviso");
    EXPECT_FALSE(enabled(u"cboTiempoAviso"));
    EXPECT_EQ(state(), modificada);
    dNota_Cambio(instance, ref(u"chkAviso"), u"Aviso");
    EXPECT_TRUE(enabled(u"cboTiempoAviso"));
    EXPECT_EQ(state(), limpia) << "as it would have been";
  });
}

TEST_F(EditTrackingFailures, without_a_form_on_top_companions_are_reported) {
  with(u"Visita", {}, [&] {
    user.enters(u"chkAviso");
    const auto own = here.screen.activeFormOf;
    here.screen.activeFormOf = [] { return nullptr; };
    expectReport(u"dNota_Cambio de CNota", failure::objectNotSet);
    user.clicks(u"chkAviso");
    EXPECT_TRUE(enabled(u"cboTiempoAviso")) << "the box is empty now";
    EXPECT_EQ(state(), limpia) << "an empty box against a field that is set would have changed it";
    here.screen.activeFormOf = own;
  });
}

}  // namespace
}  // namespace ovalia
