#include <gmock/gmock.h>

#include "engines/Open.h"
#include "tests/host/CardsOverAgency.h"
#include "tests/host/StatementTrace.h"

namespace ovalia::host {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

Shapes joined(Shapes first, const Shapes& more) {
  first.insert(first.end(), more.begin(), more.end());
  return first;
}

// What a list and a card of each kind ask for beside the row itself.
struct KindRow {
  TextView grid;
  std::string table;
  int accessLists, userLists;  // combos that the card fills when it comes up
  Shapes shown;                // look-ups of a fill
  Shapes saved;                // and of a save
  Shapes hosts;                // rows of the host's other lists that a save looks at
};

const KindRow kinds[] = {
    {u"grdNota", "NotaIP", 1, 2, {}, {"SELECT TipoAccNota"}, {}},
    {u"grdVisita",
     "VisitaIP",
     1,
     2,
     {"SELECT Cliente", "SELECT Usuario"},
     {"SELECT TipoAccNota", "SELECT Usuario"},
     {}},
    {u"grdAnuncio", "AnuncioIP", 1, 1, {}, {"SELECT TipoAccNota"}, {}},
    {u"grdLlamada", "LlamadaAIP", 0, 1, {}, {}, {"SELECT AnuncioIP"}},
};

}  // namespace

// How often a card asks the engine.
class StatementsOfCards : public StatementTrace, public CardsOverAgency {
 protected:
  std::size_t rows(TextView table) {
    return static_cast<std::size_t>(one(u"SELECT Count(*) FROM " + Text(table)).toLong());
  }

  // Stands on the second row of each kind's list and opens its card.
  void onCards(const std::function<void(const KindRow&)>& part) {
    for (const KindRow& kind : kinds) {
      SCOPED_TRACE(kind.table);
      open(u"FichaInm");
      AnnotationList& annotations = list(kind.grid);
      annotations.recordset()->MoveFirst();
      annotations.recordset()->MoveNext();
      taken();
      desk.whileShown([&] { part(kind); });
      annotations.openCard();
    }
  }

  static Shapes writtenAndRead(const KindRow& kind) {
    return {"UPDATE " + kind.table, "SELECT " + kind.table};
  }

  // Another user, who writes where no card looks.
  void othersWrite() {
    others_->Execute(u"INSERT INTO Materia (Nombre) VALUES ('De otro')");
    taken();
  }
  // Every note reminds somebody, every visit has its client and its salesperson, and nothing has documents.
  void SetUp() override {
    CardsOverAgency::SetUp();
    database().Execute(u"UPDATE NotaIP SET IdUsuarioAviso = 1, NArchivos = 0");
    database().Execute(u"UPDATE VisitaIP SET IdCliente = 1, IdComercial = 1, NArchivos = 0");
    database().Execute(u"UPDATE AnuncioIP SET NArchivos = 0");
  }
  void TearDown() override {
    others_.reset();
    CardsOverAgency::TearDown();
  }

 private:
  dao::DatabaseRef others_ = engines::open(database().Name());
};

TEST_F(StatementsOfCards, to_show_one_are_its_lists_and_look_ups_where_the_list_has_just_read_the_row) {
  const std::size_t users = rows(u"Usuario"), accesses = rows(u"TipoAccNota");
  onCards([&](const KindRow& kind) {
    Shapes lists;
    for (int i = 0; i < kind.accessLists; ++i) lists.insert(lists.end(), 1 + accesses, "SELECT TipoAccNota");
    for (int i = 0; i < kind.userLists; ++i) lists.insert(lists.end(), 1 + users, "SELECT Usuario");
    EXPECT_EQ(askedForRows(), joined(lists, kind.shown));
  });
}

TEST_F(StatementsOfCards, to_move_on_are_the_next_row_and_its_look_ups) {
  onCards([&](const KindRow& kind) {
    for (const TextView tool : {u"ID_Siguiente", u"ID_Anterior", u"ID_Ultimo", u"ID_Primero"}) {
      taken();
      user.clicks(tool);
      EXPECT_EQ(asked(), joined({"SELECT " + kind.table}, kind.shown)) << toUtf8(tool);
    }
  });
}

TEST_F(StatementsOfCards, for_a_keystroke_are_none) {
  onCards([&](const KindRow&) {
    taken();
    user.enters(u"txtNotas");
    EXPECT_THAT(asked(), IsEmpty());
    user.types(u"txtNotas", u"U");
    user.types(u"txtNotas", u"Un");
    EXPECT_THAT(asked(), IsEmpty());
    EXPECT_TRUE(desk.top().toolbars().tool(u"ID_Guardar")->Enabled()) << "and yet it was compared";
    user.clicks(u"ID_DeshacerCambios");
  });
}

TEST_F(StatementsOfCards, for_a_keystroke_after_anothers_write_are_one_for_the_row) {
  onCards([&](const KindRow& kind) {
    user.enters(u"txtNotas");
    othersWrite();
    user.types(u"txtNotas", u"U");
    EXPECT_THAT(asked(), ElementsAre("SELECT " + kind.table));
    user.types(u"txtNotas", u"Un");
    EXPECT_THAT(asked(), IsEmpty());
    user.clicks(u"ID_DeshacerCambios");
  });
}

TEST_F(StatementsOfCards, to_save_are_its_look_ups_one_update_and_the_row_as_it_is_then) {
  onCards([&](const KindRow& kind) {
    user.types(u"txtNotas", u"Cambiada");
    taken();
    user.clicks(u"ID_Guardar");
    EXPECT_EQ(askedForRows(), joined(kind.saved, writtenAndRead(kind)));
  });
}

TEST_F(StatementsOfCards, to_save_after_anothers_write_are_one_more_for_each_row_in_sight) {
  onCards([&](const KindRow& kind) {
    user.types(u"txtNotas", u"Cambiada");
    othersWrite();
    user.clicks(u"ID_Guardar");
    const Shapes readAgain = joined({"SELECT " + kind.table}, kind.hosts);
    EXPECT_EQ(askedForRows(), joined(readAgain, joined(kind.saved, writtenAndRead(kind))));
  });
}

}  // namespace ovalia::host
