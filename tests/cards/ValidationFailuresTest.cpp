#include <gtest/gtest.h>

#include "cards/CardLists.h"
#include "cards/Saving.h"
#include "cards/Validation.h"
#include "tests/cardkit/FailingCard.h"

namespace ovalia {
namespace {

using kit::RecordingScreen;
using Lines = std::vector<Text>;

// A control with a text to be checked, and what each call that its check makes leaves behind when it fails,
// in their order: who reported, the answer, the text, the state.
struct FailingCheck {
  TextView tipo, control, typed;
  Lines failed;  // for a database that is locked
  Lines gone;    // for a row that is gone
};

void PrintTo(const FailingCheck& check, std::ostream* out) { *out << toUtf8(check.control); }

class ValidationFailures : public kit::FailingCardTest {
 protected:
  void onControl(TextView name, TextView text) {
    ASSERT_TRUE(user.enters(name));
    change({{name, text}});
  }

  static Text who(const RecordingScreen& screen) {
    Text names;
    for (const Text& name : reporters(screen)) names += name.substr(0, name.find_first_of(u" ("));
    return names;
  }

  Lines failingEach(const FailingCheck& check, std::int32_t number) {
    Lines seen;
    Text answer;
    std::vector<Variant> before;
    failEachCallIn(
        check.tipo, number,
        {.before =
             [&] {
               onControl(check.control, check.typed);
               before = rowNow(2);
             },
         .statement =
             [&] {
               answer = u"thrown";
               try {
                 answer = ComprobarCambio(instance, true) ? u"good" : u"refused";
               } catch (const Failure& failure) {
                 answer += toText(failure.number());
               }
             },
         .check =
             [&](const RecordingScreen& screen) {
               seen.push_back(join(who(screen), u": ", answer, u", ", card(check.control), u", ", state()));
               EXPECT_EQ(form().ActiveControl()->Name(), check.control);
               EXPECT_TRUE(same(rowNow(2), before));
               EXPECT_EQ(crs().updates, 0);
             }});
    return seen;
  }
};

class EachCheck : public ValidationFailures, public testing::WithParamInterface<FailingCheck> {};

TEST_P(EachCheck, that_fails_counts_as_good_unless_something_spoke_against_it_before) {
  EXPECT_EQ(failingEach(GetParam(), dao::failure::locked), GetParam().failed);
}

// The card on top cannot load its records again: 438 for the next trap.
TEST_P(EachCheck, that_meets_a_deleted_row_fails_into_the_next_trap) {
  EXPECT_EQ(failingEach(GetParam(), dao::failure::recordDeleted), GetParam().gone);
}

INSTANTIATE_TEST_SUITE_P(
    , EachCheck,
    testing::Values(
        // The record's name; the telephone: look-up, row, number, end.
        FailingCheck{u"Visita",
                     u"txtCliente",
                     u"Eva Núñez",
                     {u"ComprobarCliFicha: good, Eva Núñez, 2", u"TelefonoCliente: good, Eva Núñez, 2",
                      u"TelefonoCliente: good, Eva Núñez, 2", u"TelefonoCliente: good, Eva Núñez, 2",
                      u"TelefonoCliente: good, Eva Núñez, 2"},
                     Lines(5, u"ComprobarCambio: good, Eva Núñez, 2")},
        FailingCheck{u"Visita",
                     u"txtOtraAgencia",
                     u"Fincas López",
                     {u"ComprobarAgeFicha: good, Fincas López, 2"},
                     {u"ComprobarCambio: good, Fincas López, 2"}},
        // Look-up, row.
        FailingCheck{u"Nota", u"cboAcceso", u"Correo", Lines(2, u"ComprobarCambio: good, Correo, 2"),
                     Lines(2, u": thrown438, Correo, 2")},
        // Look-up, row, the table's spelling; then what follows from its change: the key of the name (three),
        // the field, the tools (two).
        FailingCheck{
            u"Visita",
            u"cboComercial",
            u"ANA RUIZ",
            {u"ComprobarTrabajadores: good, ANA RUIZ, 2", u"ComprobarTrabajadores: good, ANA RUIZ, 2",
             u"ComprobarTrabajadores: good, ANA RUIZ, 2", u"dNota_Cambio: good, Ana Ruiz, 2",
             u"dNota_Cambio: good, Ana Ruiz, 2", u"dNota_Cambio: good, Ana Ruiz, 2",
             u"NuevoEstado: good, Ana Ruiz, 0", u"CambiarMenu: good, Ana Ruiz, 2",
             u"CambiarMenu: good, Ana Ruiz, 2"},
            {u"ComprobarComercial: good, ANA RUIZ, 2", u"ComprobarComercial: good, ANA RUIZ, 2",
             u"ComprobarComercial: good, ANA RUIZ, 2", u"ComprobarCambio: good, Ana Ruiz, 2",
             u"ComprobarCambio: good, Ana Ruiz, 2", u"ComprobarCambio: good, Ana Ruiz, 2",
             u"dNota_Cambio: good, Ana Ruiz, 2", u"NuevoEstado: good, Ana Ruiz, 0",
             u"NuevoEstado: good, Ana Ruiz, 0"}},
        // Look-up, row, the box.
        FailingCheck{u"Visita",
                     u"cboComercial",
                     u"Nadie",
                     {u"ComprobarTrabajadores: good, Nadie, 2", u"ComprobarTrabajadores: good, Nadie, 2",
                      u"MostrarMensaje: refused, Nadie, 2"},
                     {u"ComprobarComercial: good, Nadie, 2", u"ComprobarComercial: good, Nadie, 2",
                      u"ComprobarTrabajadores: refused, Nadie, 2"}},
        FailingCheck{u"Anuncio",
                     u"txtNDias",
                     u"300",
                     {u"MostrarMensaje: refused, 300, 2"},
                     {u"ComprobarByte: refused, 300, 2"}}));

TEST_F(ValidationFailures, of_the_telephone_leave_none_but_after_it_was_read) {
  Lines telephones;
  failEachCallIn(u"Visita", dao::failure::locked,
                 {.before = [&] { onControl(u"txtCliente", u"Luis Pérez"); },
                  .statement = [&] { ComprobarCambio(instance, true); },
                  .check = [&](const RecordingScreen&) { telephones.push_back(card(u"txtTfnoCliente")); }});
  EXPECT_EQ(telephones, (Lines{u"600 111 222", u"", u"", u"", u"600 111 222"}));
}

TEST_F(ValidationFailures, of_a_look_up_let_the_card_be_saved) {
  openOn(u"Nota", [&] {
    onControl(u"cboAcceso", u"Visita");
    here.faults.onNext("Field.Value",
                       [&] { here.faults.failNext("Database.OpenRecordset", dao::failure::unknownTable); });
    expectReport(u"ComprobarCambio de CNota", dao::failure::unknownTable);
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(state(), limpia);
    EXPECT_EQ(at(2, u"IdTipoAccNota").toLong(), 3);
  });
}

TEST_F(ValidationFailures, that_leave_the_check_reach_the_command_that_asked_for_it) {
  openOn(u"Nota", [&] {
    onControl(u"cboAcceso", u"Visita");
    here.faults.onNext("Field.Value",
                       [&] { here.faults.failNext("Database.OpenRecordset", dao::failure::recordDeleted); });
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
    expectReport(u"Guardar de CNota", failure::noSuchMember);
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(crs().updates, 0);
  });
}

// The hosts' answers, in an event of theirs that fails half-way.

TEST_F(ValidationFailures, of_the_host_after_it_rewrote_the_control_keep_what_it_wrote) {
  openOn(u"Nota", [&] {
    host.answers.ChkListadoMx = [](bool& ok, ObjectRef box, const Text&, const Text&) {
      putMember(box, u"Text", u"reescrito");
      ok = false;
      throw Failure(failure::internalError);
    };
    onControl(u"txtCategorias", u"Urgente");
    expectReport(u"ComprobarCambio de CNota", failure::internalError);
    EXPECT_TRUE(ComprobarCambio(instance, true));
    EXPECT_EQ(card(u"txtCategorias"), u"reescrito");
  });
}

TEST_F(ValidationFailures, of_the_host_after_it_proposed_a_name_lose_the_proposal) {
  openOn(u"Visita", [&] {
    host.answers.ChkClientes = [](const Text&, Text& proposal, bool& ok) {
      proposal = u"Eva Núñez";
      ok = false;
      throw Failure(failure::internalError);
    };
    onControl(u"txtCliente", u"Eva");
    expectReport(u"ComprobarCliFicha de CNota", failure::internalError);
    EXPECT_TRUE(ComprobarCambio(instance, true));
    EXPECT_EQ(card(u"txtCliente"), u"Eva");
  });
}

// The lists.

TEST_F(ValidationFailures, of_each_call_of_the_list_of_access_types_keep_the_typed_text) {
  host.answers.ChkTipoAccNota = [](bool& ok, const Text&, Text& name) {
    name = u"Correo";
    ok = true;
  };
  int runs = 0;
  failEachCallIn(u"Nota", dao::failure::locked,
                 {.before =
                      [&] {
                        change({{u"cboAcceso", u"Visi"}});
                        control(u"txtNotas").Tag.clear();
                      },
                  .statement = [&] { ListaAcceso(instance); },
                  .check =
                      [&](const RecordingScreen& screen) {
                        ++runs;
                        EXPECT_EQ(reporters(screen), Lines{u"ListaAcceso de CNota"});
                        EXPECT_EQ(card(u"cboAcceso"), u"Visi");
                        EXPECT_EQ(form().ActiveControl()->Name(), u"txtNotas");
                        EXPECT_EQ(state(), modificada);
                        EXPECT_LE(form().as<forms::ComboBox>(u"cboAcceso")->entries().size(), 3u);
                      }});
  EXPECT_GT(runs, 10) << "table, statement, three rows and their end";
}

TEST_F(ValidationFailures, of_each_call_of_the_list_of_clients_keep_the_chosen_one) {
  host.answers.VerClientes = [](const Text&, Text& chosen) { chosen = u"Eva Núñez"; };
  Lines seen;
  failEachCallIn(u"Visita", dao::failure::locked,
                 {.before = [&] { change({}); },
                  .statement = [&] { ListaCliente(instance); },
                  .check =
                      [&](const RecordingScreen& screen) {
                        seen.push_back(who(screen));
                        EXPECT_EQ(card(u"txtCliente"), u"Eva Núñez");
                        EXPECT_EQ(card(u"txtTfnoCliente"), u"");
                        EXPECT_EQ(form().ActiveControl()->Name(), u"txtCliente");
                      }});
  EXPECT_EQ(seen, Lines(4, u"TelefonoCliente"));
}

}  // namespace
}  // namespace ovalia
