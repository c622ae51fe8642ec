#include <gtest/gtest-spi.h>

#include "cards/Filling.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

using kit::guiltyControls;
using kit::on;

// The stage itself: what a test does wrong on it is found.
class Stage : public kit::CardTest {
 protected:
  std::vector<Text> selected(TextView sql) {
    std::vector<Text> values;
    const auto rows = database->OpenRecordset(sql);
    for (; !rows->isEOF(); rows->MoveNext()) values.push_back(rows->fields().at(0)->Value().text());
    return values;
  }
};

// Something that the control does not show as it stands.
Variant other(const forms::Control& control) {
  switch (control.type()) {
    case forms::ControlType::DTPicker:
      return control.has(forms::timeOfDay) ? u"03:04:05" : u"01/01/01";
    case forms::ControlType::CheckBox:
      return 1 - control.value().toLong();
    default:
      return control.Name() == u"txtNotas" ? Variant(u"otra cosa") : Variant();
  }
}

TEST_F(Stage, the_walker_names_the_control_that_differs_from_its_field) {
  for (const TextView tipo : {u"Nota", u"Visita", u"Anuncio", u"Llamada"})
    openCard(tipo, {}, [&] {
      EXPECT_TRUE(guiltyControls(instance).empty());
      const Filling filling(form());
      instance.EstadoFicha = cargando;
      for (const forms::ControlRef& shown : form().controls()) {
        const Variant different = other(*shown);
        if (different.isEmpty()) continue;
        const Variant before = shown->value();
        shown->setValue(different);
        const auto guilty = guiltyControls(instance);
        ASSERT_EQ(guilty.size(), 1u) << toUtf8(shown->Name());
        EXPECT_TRUE(guilty[0].starts_with(toUtf8(shown->Name()))) << guilty[0];
        shown->setValue(before);
      }
      instance.EstadoFicha = limpia;
    });
}

TEST_F(Stage, a_script_that_never_ran_fails_the_test) {
  desk.whileShown([] {});
  EXPECT_NONFATAL_FAILURE(desk.verify(), "never came");
}

TEST_F(Stage, a_closing_that_nobody_expected_to_be_refused_fails_the_test) {
  const auto card = std::make_shared<forms::CardForm>(forms::frmNota());
  card->UnLoad.connect([](bool& cancel) { cancel = true; });
  EXPECT_NONFATAL_FAILURE(card->Show(), "refused");
  EXPECT_FALSE(card->Visible());
  desk.whileShown([] {}).staysOpen();
  card->Show();
}

TEST_F(Stage, a_closing_that_was_expected_to_be_refused_and_was_not_fails_the_test) {
  const auto card = std::make_shared<forms::CardForm>(forms::frmNota());
  desk.whileShown([] {}).staysOpen();
  EXPECT_NONFATAL_FAILURE(card->Show(), "accepted");
}

TEST_F(Stage, a_user_cannot_do_what_a_user_cannot) {
  openCard(u"Nota", {{u"Aviso", false}}, [&] {
    EXPECT_NONFATAL_FAILURE(user.enters(u"dtpFechaAviso"), "disabled");
    EXPECT_NONFATAL_FAILURE(user.picks(u"cboUsuario", u"Nadie"), "does not offer");
    EXPECT_NONFATAL_FAILURE(user.unticks(u"chkAvisoNota"), "already");
    form().toolbars().tool(u"ID_Guardar")->setEnabled(false);
    EXPECT_NONFATAL_FAILURE(user.clicks(u"ID_Guardar"), "disabled");
    putAway();
  });
}

TEST_F(Stage, a_field_that_the_list_lacks_fails_the_test) {
  EXPECT_NONFATAL_FAILURE(givenList(u"Nota", {{{u"Asuntillo", u"x"}}}), "no column Asuntillo");
}

TEST_F(Stage, the_agencys_tables_answer_a_select) {
  EXPECT_EQ(selected(u"SELECT Nombre FROM Usuario WHERE IdUsuario = 2"), std::vector<Text>{u"Benito Gil"});
  EXPECT_EQ(selected(u"SELECT IdUsuario FROM Usuario WHERE Nombre='CARMEN SOLER'"), std::vector<Text>{u"3"});
  EXPECT_EQ(selected(u"SELECT Nombre FROM Usuario WHERE Nombre='O''Hara'"), std::vector<Text>{});
  database->tableNamed(u"Usuario")->add({4, u"O'Hara"});
  EXPECT_EQ(selected(u"SELECT Nombre FROM Usuario WHERE Nombre='O''Hara'"), std::vector<Text>{u"O'Hara"});
  database->tableNamed(u"Cliente")->add({23, u"Abad", u"611"});
  EXPECT_EQ(selected(u"SELECT Alias FROM Cliente ORDER BY Alias ASC;"),
            (std::vector<Text>{u"Abad", u"Eva Núñez", u"Luis Pérez"}));
}

TEST_F(Stage, another_users_write_is_seen_with_its_stamp_a_minute_later) {
  givenList(u"Nota", {{}, {}});
  standOn(2);
  otherUser.writes(u"Asunto", u"Ya devueltas");
  EXPECT_EQ(nota.crs->value(u"Asunto").text(), u"Ya devueltas");
  EXPECT_EQ(partsOf(nota.crs->value(u"FechaActualizacion").toDate()), partsOf(on(2026, 3, 5, 18, 31, 15)));
  EXPECT_EQ(stored(u"Asunto", 1).text(), u"Llaves en portería");
}

TEST_F(Stage, the_host_agrees_until_the_test_has_it_otherwise) {
  Text chosen;
  bool ok = false;
  nota.VerClientes(u"Luis Pérez", chosen);
  EXPECT_EQ(chosen, u"Luis Pérez");
  nota.ChkClientes(u"Nadie", chosen, ok);
  EXPECT_TRUE(ok);
  host.answers.VerClientes = [](const Text&, Text& answer) { answer = u"Eva Núñez"; };
  nota.VerClientes(u"Luis Pérez", chosen);
  EXPECT_EQ(chosen, u"Eva Núñez");
  EXPECT_EQ(host.events, (std::vector<Text>{u"VerClientes(Luis Pérez)", u"ChkClientes(Nadie)",
                                            u"VerClientes(Luis Pérez)"}));
}

TEST_F(Stage, the_hosts_objects_are_where_the_contract_wants_them) {
  const ObjectRef form = objectAt(nota.frmBase, {u"ActiveForm"});
  EXPECT_EQ(getMember(objectAt(form, {u"vClase"}), u"IdRegistro").toLong(), 120);
  EXPECT_EQ(getMember(getMember(objectAt(form, {u"vClase"}), u"Registros").toObject(), u"", {u"Id"}).toLong(),
            120);
  EXPECT_EQ(getMember(objectAt(form, {u"vClase"}), u"Registros", {u"Id"}).toLong(), 120);
  putMember(getMember(objectAt(nota.frmBase, {u"StatusBar1"}), u"Panels", {1}).toObject(), u"Text", u"Listo");
  EXPECT_EQ(host.panel->property(u"Text").text(), u"Listo");
  callMember(form, u"Ajuste_N_Notas");
  EXPECT_EQ(host.calls(*host.FichaInm, u"Ajuste_N_Notas"), 1);
}

}  // namespace
}  // namespace ovalia
