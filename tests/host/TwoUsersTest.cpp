// One row, two connections: what a save sees of the other user, and what it leaves alone.

#include "cards/Navigation.h"
#include "tests/host/SavingOverAgency.h"

namespace ovalia::host {
namespace {

class TwoUsers : public SavingOverAgency {
 protected:
  static constexpr TextView staleText =
      u"La ficha acaba de ser modificada por otro usuario.\r\n"
      u"Sus cambios son cancelados y se visualiza la última modificación.";
  static constexpr int yes = 6;

  Text question(const KindOfList& kind) {
    struct Row {
      TextView table, thing;
    };
    constexpr Row rows[] = {{u"NotaIP", u"la nota"},
                            {u"VisitaIP", u"la visita"},
                            {u"AnuncioIP", u"el anuncio"},
                            {u"LlamadaAIP", u"la llamada"}};
    for (const Row& row : rows)
      if (row.table == kind.table) return join(u"¿Desea guardar los cambios realizados en ", row.thing, u"?");
    return {};
  }

  // The other one writes the text and, where there is one, the count of documents, at 10:00 of the same day.
  void otherWrites(const KindOfList& kind) {
    const TextView documents = kind.table == u"LlamadaAIP" ? u"" : u", NArchivos = 7";
    other->Execute(join(u"UPDATE ", kind.table, u" SET Notas = 'De otro', FechaActualizacion = ",
                        u"#03/09/26 10:00:00#", documents));
  }

  void expectDocuments(const KindOfList& kind) {
    if (kind.table != u"LlamadaAIP") {
      EXPECT_EQ(theirs(u"NArchivos").toLong(), 7);
    }
  }
};

TEST_F(TwoUsers, the_save_command_sees_the_others_write_and_shows_it_instead) {
  for (const KindOfList& kind : kindsOfLists) {
    SCOPED_TRACE(toUtf8(kind.table));
    onCard(kind, [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      otherWrites(kind);
      const std::vector<Text> before = theirRow();
      expectBox(Text(staleText), 48, u"Guardar");
      save();
      EXPECT_EQ(theirRow(), before);
      EXPECT_EQ(shown(u"txtNotas"), u"De otro");
      EXPECT_EQ(shown(u"lblActualizacion"), u"09/03/2026 10:00:00");
      EXPECT_EQ(state(), limpia);
      change({{u"txtNotas", u"Nuevo texto"}});
      save();
      EXPECT_EQ(theirs(u"Notas").text(), u"Nuevo texto");
      EXPECT_EQ(theirs(u"FechaActualizacion").text(), u"09/03/2026 10:20:30");
      expectDocuments(kind);
    });
  }
}

TEST_F(TwoUsers, a_write_of_the_same_second_goes_unnoticed_but_for_the_columns_no_card_shows) {
  onCard(kindsOfLists[0], [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    other->Execute(u"UPDATE NotaIP SET Notas = 'De otro', NArchivos = 7");
    save();
    EXPECT_EQ(theirs(u"Notas").text(), u"Nuevo texto");
    expectDocuments(kindsOfLists[0]);
  });
}

TEST_F(TwoUsers, a_closing_saves_over_the_others_write) {
  for (const KindOfList& kind : kindsOfLists) {
    SCOPED_TRACE(toUtf8(kind.table));
    onCard(kind, [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      otherWrites(kind);
      expectBox(question(kind), 35, u"Guardar", yes);
      user.clicks(u"ID_Salir");
      EXPECT_FALSE(instance->card().Visible());
      EXPECT_EQ(theirs(u"Notas").text(), u"Nuevo texto");
      expectDocuments(kind);
    });
  }
}

TEST_F(TwoUsers, a_move_saves_over_the_others_write) {
  ASSERT_GT(list(u"grdNota").count(), 1);
  for (const auto move : {Primero, Anterior, Siguiente, Ultimo}) {
    list(u"grdNota").recordset()->setAbsolutePosition(move == Siguiente || move == Ultimo ? 0 : 1);
    onCard(kindsOfLists[0], [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      otherWrites(kindsOfLists[0]);
      expectBox(question(kindsOfLists[0]), 35, u"Guardar", yes);
      move(*instance);
      EXPECT_EQ(theirs(u"Notas").text(), u"Nuevo texto");
      expectDocuments(kindsOfLists[0]);
      EXPECT_EQ(shown(u"txtNotas"), u"De otro") << "the row that it went to";
    });
  }
}

TEST_F(TwoUsers, a_row_that_the_other_deleted_is_told_and_what_was_typed_stays_on_the_card) {
  for (const KindOfList& kind : {kindsOfLists[0], kindsOfLists[1], kindsOfLists[3]}) {
    SCOPED_TRACE(toUtf8(kind.table));
    onCard(kind, [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      instance->card().toolbars().tool(u"ID_Guardar")->setEnabled(true);
      const TextView attachments = annotationTable(kind.table).attachments;
      if (!attachments.empty()) other->Execute(join(u"DELETE * FROM ", attachments));
      other->Execute(join(u"DELETE * FROM ", kind.table));
      EXPECT_GT(other->RecordsAffected(), 0);
      expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
                u"Error");
      expectReport(u"dNota_Menu de CNota", failure::noSuchMember);
      user.clicks(u"ID_Guardar");
      EXPECT_EQ(state(), modificada);
      EXPECT_EQ(shown(u"txtNotas"), u"Nuevo texto");
      EXPECT_FALSE(pending());
    });
  }
}

}  // namespace
}  // namespace ovalia::host
