// Saving while the disk, the file or its other users stand in the way.

#include "cards/Navigation.h"
#include "cards/Validation.h"
#include "tests/host/SavingOverAgency.h"

namespace ovalia::host {
namespace {

namespace f = dao::failure;

class SavingInHardTimes : public SavingOverAgency {
 protected:
  // Something that keeps rows from being written, and how it goes away again.
  struct Hindrance {
    std::function<void()> comes, goes;
    std::int32_t number;
  };

  Hindrance fullDisk() {
    return {[this] { database().Execute(u"PRAGMA max_page_count = 1"); },
            [this] { database().Execute(u"PRAGMA max_page_count = 1000000"); }, failure::diskFull};
  }
  Hindrance readOnlyFile() {
    return {[this] { database().Execute(u"PRAGMA query_only = 1"); },
            [this] { database().Execute(u"PRAGMA query_only = 0"); }, f::readOnly};
  }
  Hindrance lockedByAnother() {
    return {[this] {
              database().Execute(u"PRAGMA busy_timeout = 1");
              other->Execute(u"BEGIN IMMEDIATE");
            },
            [this] { other->Execute(u"ROLLBACK"); }, f::locked};
  }

  // What the file has no room for unless it grows, a second later each time.
  Text longText;
  void typeLongText() {
    here.clock.time.second += 1;
    longText += Text(100'000, u'x') + u" fin";
    change({{u"txtNotas", longText}});
  }

  void expectKept(const std::vector<Text>& before) {
    EXPECT_EQ(theirRow(), before);
    EXPECT_EQ(state(), modificada);
    EXPECT_TRUE(pending());
    EXPECT_TRUE(instance->card().control(u"txtNotas")->value().text() == longText);
    EXPECT_EQ(here.screen.pointer, 0);
  }

  void expectSaved() {
    EXPECT_TRUE(theirs(u"Notas").text() == longText);
    const Text stamp = Variant(here.clock.now()).text();
    EXPECT_EQ(theirs(u"FechaActualizacion").text(), stamp);
    EXPECT_EQ(shown(u"lblActualizacion"), stamp);
    EXPECT_EQ(state(), limpia);
    EXPECT_FALSE(pending());
  }

  // A table goes, as another program would take it, and comes back.
  void take(TextView table) { other->Execute(join(u"ALTER TABLE ", table, u" RENAME TO Apartada")); }
  void giveBack(TextView table) { other->Execute(join(u"ALTER TABLE Apartada RENAME TO ", table)); }
};

TEST_F(SavingInHardTimes,
       a_database_that_stops_taking_rows_in_the_middle_of_a_write_keeps_the_card_until_it_does) {
  for (const Hindrance& hindrance : {fullDisk(), readOnlyFile(), lockedByAnother()}) {
    for (const KindOfList& kind : kindsOfLists) {
      SCOPED_TRACE(toUtf8(kind.table) + " " + std::to_string(hindrance.number));
      onCard(kind, [&] {
        typeLongText();
        const std::vector<Text> before = theirRow();
        whileWriting(hindrance.comes);
        expectReport(u"GrabaRegistro de CNota", hindrance.number);
        save();
        expectKept(before);
        expectReport(u"GrabaRegistro de CNota", hindrance.number);
        save();
        expectKept(before);
        hindrance.goes();
        save();
        expectSaved();
      });
    }
  }
  EXPECT_EQ(theirOne(u"PRAGMA integrity_check").text(), u"ok");
}

TEST_F(SavingInHardTimes, such_a_card_can_be_left_without_saving) {
  onCard(kindsOfLists[0], [&] {
    const Text notes = theirs(u"Notas").text();
    typeLongText();
    whileWriting([&] { database().Execute(u"PRAGMA query_only = 1"); });
    expectReport(u"GrabaRegistro de CNota", f::readOnly);
    save();
    expectBox(u"¿Desea guardar los cambios realizados en la nota?", 35, u"Guardar", 7);
    user.clicks(u"ID_Salir");
    EXPECT_FALSE(instance->card().Visible());
    EXPECT_EQ(state(), limpia);
    EXPECT_EQ(theirs(u"Notas").text(), notes);
  });
  database().Execute(u"PRAGMA query_only = 0");
}

TEST_F(SavingInHardTimes, the_other_users_writes_to_other_columns_survive_a_write_that_failed_first) {
  onCard(kindsOfLists[0], [&] {
    typeLongText();
    whileWriting([&] { database().Execute(u"PRAGMA query_only = 1"); });
    expectReport(u"GrabaRegistro de CNota", f::readOnly);
    save();
    other->Execute(u"UPDATE NotaIP SET NArchivos = 7");
    database().Execute(u"PRAGMA query_only = 0");
    save();
    expectSaved();
    EXPECT_EQ(theirs(u"NArchivos").toLong(), 7);
  });
}

TEST_F(SavingInHardTimes, undo_after_a_write_that_failed_shows_what_is_pending_until_the_list_moves) {
  ASSERT_GT(list(u"grdNota").count(), 1);
  list(u"grdNota").recordset()->MoveFirst();
  onCard(kindsOfLists[0], [&] {
    const Text notes = theirs(u"Notas").text();
    typeLongText();
    whileWriting([&] { database().Execute(u"PRAGMA query_only = 1"); });
    expectReport(u"GrabaRegistro de CNota", f::readOnly);
    save();
    put(u"txtNotas", u"Todavía otro");
    DeshacerCambios(*instance);
    EXPECT_TRUE(shown(u"txtNotas") == longText);
    EXPECT_EQ(state(), limpia);
    Siguiente(*instance);
    Anterior(*instance);
    EXPECT_EQ(shown(u"txtNotas"), notes);
    EXPECT_EQ(theirs(u"Notas").text(), notes);
    database().Execute(u"PRAGMA query_only = 0");
  });
}

// Look-up tables that are gone: the list joins them, so that its row cannot be read again.

TEST_F(SavingInHardTimes, a_look_up_table_that_vanished_before_the_save_keeps_the_card_until_it_is_back) {
  const struct {
    KindOfList kind;
    TextView table;
  } cases[] = {{kindsOfLists[0], u"TipoAccNota"},
               {kindsOfLists[0], u"Usuario"},
               {kindsOfLists[1], u"Cliente"},
               {kindsOfLists[1], u"Agencia"},
               {kindsOfLists[3], u"Usuario"}};
  for (const auto& row : cases) {
    SCOPED_TRACE(toUtf8(row.kind.table) + " " + toUtf8(row.table));
    onCard(row.kind, [&] {
      typeLongText();
      const std::vector<Text> before = theirRow();
      take(row.table);
      expectReport(u"Guardar de CNota", f::unknownTable);
      save();
      EXPECT_EQ(theirRow(), before);
      EXPECT_EQ(state(), modificada);
      EXPECT_FALSE(pending());
      EXPECT_TRUE(instance->card().control(u"txtNotas")->value().text() == longText);
      giveBack(row.table);
      save();
      expectSaved();
    });
  }
}

TEST_F(SavingInHardTimes,
       a_look_up_table_that_vanishes_in_the_middle_of_a_write_keeps_the_card_until_it_is_back) {
  onCard(kindsOfLists[1], [&] {
    const Variant another = one(u"SELECT Max(IdCliente) FROM Cliente");
    typeLongText();
    change({{u"txtCliente", one(join(u"SELECT Alias FROM Cliente WHERE IdCliente = ", another)).text()}});
    const std::vector<Text> before = theirRow();
    whileWriting([&] { take(u"Cliente"); });
    expectReport(u"GrabaRegistro de CNota", f::unknownTable);
    save();
    expectKept(before);
    giveBack(u"Cliente");
    save();
    expectSaved();
    EXPECT_EQ(theirs(u"IdCliente").toLong(), another.toLong());
  });
}

TEST_F(SavingInHardTimes, a_look_up_table_that_vanishes_while_the_host_is_asked_stops_the_save) {
  onCard(kindsOfLists[0], [&] {
    ASSERT_TRUE(user.enters(u"txtCategorias"));
    typeLongText();
    change({{u"txtCategorias", u""}});
    const std::vector<Text> before = theirRow();
    const auto event = instance->nota.ChkListadoMx.connect(
        [&](bool&, ObjectRef, const Text&, const Text&) { take(u"TipoAccNota"); });
    expectReport(u"GrabaRegistro de CNota", f::unknownTable);
    expectReport(u"AvisoCambio de CNota", f::unknownTable);
    save();
    instance->nota.ChkListadoMx.disconnect(event);
    EXPECT_EQ(theirRow(), before);
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(here.screen.pointer, 11);
    giveBack(u"TipoAccNota");
    save();
    expectSaved();
  });
}

TEST_F(SavingInHardTimes, an_access_type_that_cannot_be_looked_up_counts_as_good_and_may_be_left) {
  onCard(kindsOfLists[0], [&] {
    typeOn(u"cboAcceso", u"Ninguno");
    take(u"TipoAccNota");
    expectReport(u"ComprobarCambio de CNota", f::unknownTable);
    EXPECT_TRUE(ComprobarCambio(*instance, true));
    giveBack(u"TipoAccNota");
    EXPECT_FALSE(ComprobarCambio(*instance, false));
  });
}

TEST_F(SavingInHardTimes, a_salesperson_a_client_and_its_telephone_that_cannot_be_looked_up_count_as_good) {
  onCard(kindsOfLists[1], [&] {
    typeOn(u"cboComercial", u"Nadie");
    take(u"Usuario");
    expectReport(u"ComprobarTrabajadores de CNota", f::unknownTable);
    EXPECT_TRUE(ComprobarCambio(*instance, true));
    giveBack(u"Usuario");
    instance->EstadoFicha = limpia;
    typeOn(u"txtCliente", u"Nadie de aquí");
    take(u"Cliente");
    expectReport(u"ComprobarCliFicha de CNota", f::unknownTable);
    expectReport(u"TelefonoCliente de CNota", f::unknownTable);
    EXPECT_TRUE(ComprobarCambio(*instance, true));
    EXPECT_EQ(shown(u"txtTfnoCliente"), u"");
    EXPECT_EQ(shown(u"txtCliente"), u"Nadie de aquí");
    giveBack(u"Cliente");
  });
}

}  // namespace
}  // namespace ovalia::host
