// The models over an engine: what its statements give, order, and lose.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "engines/Open.h"
#include "models/CreatingModels.h"
#include "models/ModelList.h"
#include "models/ModelListForm.h"
#include "routines/ModuleValues.h"
#include "tests/cardkit/Attachments.h"
#include "tests/kit/TemporaryFolder.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int yes = 6, no = 7;

// Six models in an agency's database, each with its file:
//
//   1 carta.doc "Oferta de venta" Ventas, Oferta    4 Álbum.doc (no notes) Alquiler, Oferta
//   2 Aviso.doc "50% de fianza" Alquiler, Fianza    5 ñandú.doc "a|b d'Ors" (no subject)
//   3 nota.doc "cien [100]" Ventas                  6 Zona.doc "OFERTA" Ventas, Fianza (of another subject)
class ModelRows : public kit::AttachmentsTest {
 protected:
  void SetUp() override {
    AttachmentsTest::SetUp();
    engine = connect();
    for (const TextView statement : schema) engine->Execute(statement);
    moduleValues().cgDB = engine;
    attached(u"120F00.doc", u"Nuevo.doc", u"texto");
    for (const TextView name :
         {u"carta.doc", u"Aviso.doc", u"nota.doc", u"Álbum.doc", u"ñandú.doc", u"Zona.doc"})
      here.files.putFile(join(models, u"\\", name));
    host.FichaInm->with(u"Controls", ObjectRef(nothing));
    nothing->failing(u"", failure::noSuchControl);
  }

  dao::DatabaseRef connect() {
    return engines::open(fromUtf8((place.path() / "agencia.db").string()),
                         {.create = true, .busyMilliseconds = 50});
  }

  void choose(const std::function<void()>& script, TextView subject = {}, TextView part = {}) {
    desk.whileShown(script);
    SelecModelo(instance, Text(subject), Text(part), nota.AppDirUser, name, folder);
  }

  ModelListForm& form() const { return dynamic_cast<ModelListForm&>(desk.top()); }
  forms::Grid& grid() const { return *form().as<forms::Grid>(u"grdPlantilla"); }
  std::vector<Text> shown(std::size_t column = 1) const {
    std::vector<Text> cells;
    for (std::int32_t row = 0; row < grid().Rows(); ++row) cells.push_back(grid().row(row).cells.at(column));
    return cells;
  }
  int placeOf(TextView model) const {
    const auto all = shown();
    return static_cast<int>(std::ranges::find(all, Text(model)) - all.begin());
  }
  std::vector<Text> column(TextView sql) {
    std::vector<Text> values;
    for (const auto rows = engine->OpenRecordset(sql, dao::dbOpenSnapshot); !rows->isEOF();
         rows->MoveNext()) {
      Text line;
      for (std::size_t i = 0; i < rows->fields().count(); ++i) {
        const Variant value = rows->fields().at(i)->Value();
        line += join(i == 0 ? u"" : u" ", value.isNull() ? Text(u"Null") : value.text());
      }
      values.push_back(line);
    }
    return values;
  }
  std::vector<Text> filtered(TextView subject, TextView part, TextView notes) {
    std::vector<Text> names;
    choose(
        [&] {
          if (!notes.empty()) user.types(u"txtNotas", notes);
          user.clicks(u"cmdSel");
          names = shown();
        },
        subject, part);
    return names;
  }
  void expectDeletion(bool several = false) {
    expectBox(several ? u"Ha seleccionado varios modelos.\r\n\r\n¿Desea borrar los modelos marcados?"
                      : u"¿Desea borrar el modelo marcado?",
              68, u"Borrar", yes);
  }

  static constexpr TextView schema[] = {
      u"CREATE TABLE Materia (IdMateria INTEGER PRIMARY KEY AUTOINCREMENT, Nombre VARCHAR(50) NOT NULL)",
      u"CREATE TABLE TipoMateria (IdTipoMateria INTEGER PRIMARY KEY AUTOINCREMENT, Nombre VARCHAR(50) NOT "
      u"NULL, "
      u"IdMateria INTEGER NOT NULL REFERENCES Materia)",
      u"CREATE TABLE Plantilla (IdPlantilla INTEGER PRIMARY KEY AUTOINCREMENT, Nombre VARCHAR(255) NOT NULL, "
      u"Notas MEMO TEXT, IdMateria INTEGER REFERENCES Materia, IdTipoMateria INTEGER REFERENCES TipoMateria)",
      u"INSERT INTO Materia (Nombre) VALUES ('Ventas')",
      u"INSERT INTO Materia (Nombre) VALUES ('Alquiler')",
      u"INSERT INTO TipoMateria (Nombre, IdMateria) VALUES ('Oferta', 1)",
      u"INSERT INTO TipoMateria (Nombre, IdMateria) VALUES ('Fianza', 2)",
      u"INSERT INTO TipoMateria (Nombre, IdMateria) VALUES ('Oferta', 2)",
      u"INSERT INTO Plantilla (Nombre,Notas,IdMateria,IdTipoMateria) VALUES ('carta.doc', 'Oferta de venta', "
      u"1, 1)",
      u"INSERT INTO Plantilla (Nombre,Notas,IdMateria,IdTipoMateria) VALUES ('Aviso.doc', '50% de fianza', "
      u"2, 2)",
      u"INSERT INTO Plantilla (Nombre,Notas,IdMateria) VALUES ('nota.doc', 'cien [100]', 1)",
      u"INSERT INTO Plantilla (Nombre,IdMateria,IdTipoMateria) VALUES ('Álbum.doc', 2, 3)",
      u"INSERT INTO Plantilla (Nombre,Notas) VALUES ('ñandú.doc', 'a' + chr(124) + 'b d''Ors')",
      u"INSERT INTO Plantilla (Nombre,Notas,IdMateria,IdTipoMateria) VALUES ('Zona.doc', 'OFERTA', 1, 2)",
  };

  kit::TemporaryFolder place;
  dao::DatabaseRef engine;
  std::shared_ptr<kit::FakeObject> nothing = std::make_shared<kit::FakeObject>();
  const Text models = u"\\Datos\\Agencia\\Plantillas";
  Text name, folder;
};

TEST_F(ModelRows, show_subject_and_sub_matter_by_name_in_the_order_of_the_language) {
  choose([&] {
    EXPECT_THAT(shown(), ElementsAre(u"Álbum.doc", u"Aviso.doc", u"carta.doc", u"nota.doc", u"ñandú.doc",
                                     u"Zona.doc"));
    EXPECT_THAT(shown(0), ElementsAre(u"4", u"2", u"1", u"3", u"5", u"6"));
    EXPECT_THAT(shown(3), ElementsAre(u"Alquiler", u"Alquiler", u"Ventas", u"Ventas", u"", u"Ventas"));
    EXPECT_THAT(shown(4), ElementsAre(u"Oferta", u"Fianza", u"Oferta", u"", u"", u"Fianza"));
    EXPECT_EQ(grid().currentRow(), 0);
  });
}

TEST_F(ModelRows, sort_by_each_heading_and_back) {
  choose([&] {
    user.clicksHeading(1);
    EXPECT_EQ(shown().front(), u"Zona.doc");
    user.clicksHeading(2);
    EXPECT_THAT(shown(2), ElementsAre(u"", u"50% de fianza", u"a|b d'Ors", u"cien [100]", u"OFERTA",
                                      u"Oferta de venta"));
    user.clicksHeading(3);
    EXPECT_THAT(shown(3), ElementsAre(u"", u"Alquiler", u"Alquiler", u"Ventas", u"Ventas", u"Ventas"));
    user.clicksHeading(3);
    EXPECT_THAT(shown(3), ElementsAre(u"Ventas", u"Ventas", u"Ventas", u"Alquiler", u"Alquiler", u""));
    user.clicksHeading(4);
    EXPECT_THAT(shown(4), ElementsAre(u"", u"", u"Fianza", u"Fianza", u"Oferta", u"Oferta"));
  });
}

TEST_F(ModelRows, are_narrowed_by_subject_sub_matter_and_notes) {
  EXPECT_THAT(filtered(u"ventas", u"", u""), ElementsAre(u"carta.doc", u"nota.doc", u"Zona.doc"));
  EXPECT_THAT(filtered(u"", u"Fianza", u""), ElementsAre(u"Aviso.doc", u"Zona.doc"))
      << "the sub-matter alone is that of the model";
  EXPECT_THAT(filtered(u"Alquiler", u"Fianza", u""), ElementsAre(u"Aviso.doc"));
  EXPECT_THAT(filtered(u"", u"", u"oferta"), ElementsAre(u"carta.doc", u"Zona.doc"));
  EXPECT_THAT(filtered(u"Ventas", u"", u"oferta"), ElementsAre(u"carta.doc", u"Zona.doc"));
  EXPECT_THAT(filtered(u"Alquiler", u"", u"oferta"), IsEmpty());
  EXPECT_EQ(filtered(u"", u"", u"").size(), 6u);
}

TEST_F(ModelRows, are_narrowed_by_notes_with_quotes_bars_and_wildcards) {
  EXPECT_THAT(filtered(u"", u"", u"d'Ors"), ElementsAre(u"ñandú.doc"));
  EXPECT_THAT(filtered(u"", u"", u"a|b"), ElementsAre(u"ñandú.doc"));
  EXPECT_THAT(filtered(u"", u"", u"50%"), ElementsAre(u"Aviso.doc"));
  EXPECT_THAT(filtered(u"", u"", u"%"), ElementsAre(u"Aviso.doc"));
  EXPECT_THAT(filtered(u"", u"", u"##"), ElementsAre(u"Aviso.doc", u"nota.doc"));
  EXPECT_THAT(filtered(u"", u"", u"o?erta"), ElementsAre(u"carta.doc", u"Zona.doc"));
  EXPECT_THAT(filtered(u"", u"", u"cien*]"), ElementsAre(u"nota.doc"));
  EXPECT_THAT(filtered(u"", u"", u"[xyz]"), ElementsAre(u"Aviso.doc"));
  EXPECT_THAT(filtered(u"", u"", u"[kw]"), IsEmpty());
}

TEST_F(ModelRows, of_a_subject_show_name_and_notes_and_can_be_chosen) {
  choose([&] {
    user.types(u"txtMateria", u"Ventas");
    user.enters(u"grdPlantilla");
    EXPECT_THAT(shown(), testing::UnorderedElementsAre(u"carta.doc", u"nota.doc", u"Zona.doc"));
    EXPECT_THAT(shown(0), ElementsAre(u"", u"", u""));
    EXPECT_THAT(shown(3), ElementsAre(u"", u"", u""));
    user.types(u"txtTMateria", u"Oferta");
    user.enters(u"grdPlantilla");
    EXPECT_THAT(shown(), ElementsAre(u"carta.doc"));
    user.clicks(u"cmdAceptar");
  });
  EXPECT_EQ(name, u"carta.doc");
}

TEST_F(ModelRows, deleted_through_the_joined_list_leave_subjects_alone) {
  choose([&] {
    user.clicksRow(placeOf(u"carta.doc"));
    expectDeletion();
    user.deletesRows();
    EXPECT_THAT(shown(), ElementsAre(u"Álbum.doc", u"Aviso.doc", u"nota.doc", u"ñandú.doc", u"Zona.doc"));
    EXPECT_EQ(shown()[std::size_t(grid().currentRow())], u"nota.doc");
  });
  EXPECT_THAT(column(u"SELECT IdPlantilla FROM Plantilla ORDER BY IdPlantilla"),
              ElementsAre(u"2", u"3", u"4", u"5", u"6"));
  EXPECT_THAT(column(u"SELECT Nombre FROM Materia ORDER BY IdMateria"), ElementsAre(u"Ventas", u"Alquiler"));
  EXPECT_EQ(column(u"SELECT Nombre FROM TipoMateria").size(), 3u);
  EXPECT_FALSE(here.files.exists(models + u"\\carta.doc"));
}

TEST_F(ModelRows, deleted_several_at_once_leave_the_one_whose_file_is_locked_marked) {
  choose([&] {
    user.clicksRow(placeOf(u"Aviso.doc"));
    user.clicksRow(placeOf(u"carta.doc"), kit::User::ctrlKey);
    user.clicksRow(placeOf(u"ñandú.doc"), kit::User::ctrlKey);
    expectDeletion(true);
    here.faults.onNth("Shell.recycle", 2,
                      [&] { here.shell.nextRecycle = Shell::RecycleResult{.code = 5, .lastError = 5}; });
    expectBox(u"Error devuelto: 5, 5");
    expectBox(u"No se pudo borrar el archivo [\\Datos\\Agencia\\Plantillas\\carta.doc].");
    user.deletesRows();
    EXPECT_THAT(shown(), ElementsAre(u"Álbum.doc", u"carta.doc", u"nota.doc", u"Zona.doc"));
    EXPECT_THAT(grid().markedRows(), ElementsAre(1));
    EXPECT_EQ(shown()[std::size_t(grid().currentRow())], u"Zona.doc");
  });
  EXPECT_THAT(column(u"SELECT IdPlantilla FROM Plantilla ORDER BY IdPlantilla"),
              ElementsAre(u"1", u"3", u"4", u"6"));
}

TEST_F(ModelRows, deleted_by_another_user_are_told_and_take_no_other_with_them) {
  choose([&] {
    user.clicksRow(placeOf(u"carta.doc"));
    connect()->Execute(u"DELETE * FROM Plantilla WHERE IdPlantilla = 1");
    EXPECT_EQ(grid().row(placeOf(u"Aviso.doc") + 1).failure, dao::failure::recordDeleted);
    expectDeletion();
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
    expectReport(u"AntesBorrarPlatilla de ListaModelos", failure::noSuchMember);
    user.deletesRows();
  });
  EXPECT_EQ(column(u"SELECT IdPlantilla FROM Plantilla").size(), 5u);
  EXPECT_TRUE(here.files.exists(models + u"\\carta.doc"));
}

TEST_F(ModelRows, that_other_rows_refer_to_stay_after_a_report) {
  engine->Execute(
      u"CREATE TABLE Uso (IdUso INTEGER PRIMARY KEY AUTOINCREMENT, IdPlantilla INTEGER REFERENCES "
      u"Plantilla)");
  engine->Execute(u"INSERT INTO Uso (IdPlantilla) VALUES (1)");
  choose([&] {
    user.clicksRow(placeOf(u"carta.doc"));
    expectDeletion();
    expectReport(u"AntesBorrarPlantilla2 de ListaModelos", dao::failure::referenced);
    user.deletesRows();
    EXPECT_EQ(shown().size(), 6u);
  });
}

TEST_F(ModelRows, of_a_missing_file_are_deleted_when_the_user_wants_it) {
  here.files.remove(models + u"\\Zona.doc");
  choose([&] {
    user.clicksRow(placeOf(u"Zona.doc"));
    expectBox(u"El modelo seleccionado no existe.\r\n\r\n¿Desea borrar la referencia?", 52, u"Modelo", yes);
    user.clicks(u"cmdAceptar");
    EXPECT_EQ(shown()[std::size_t(grid().currentRow())], u"ñandú.doc");
    user.clicks(u"cmdAceptar");
  });
  EXPECT_EQ(name, u"ñandú.doc");
  EXPECT_EQ(column(u"SELECT IdPlantilla FROM Plantilla").size(), 5u);
}

TEST_F(ModelRows, are_read_one_by_one_from_a_long_list) {
  engine->Execute(u"DELETE * FROM Plantilla");
  for (int i = 0; i < 400; ++i)
    engine->Execute(u"INSERT INTO Plantilla (Nombre,Notas,IdMateria) VALUES ('modelo " + toText(100000 + i) +
                    u"', 'n', 1)");
  choose([&] {
    EXPECT_EQ(grid().Rows(), 400);
    user.clicksRow(398);
    EXPECT_EQ(grid().row(200).cells[1], u"modelo 100200");
    EXPECT_EQ(grid().currentRow(), 398);
    EXPECT_THAT(grid().markedRows(), ElementsAre(398));
  });
}

// A model that is made is written with the keys of its names and found in the list.
TEST_F(ModelRows, made_of_a_document_are_found_with_their_subject) {
  const struct {
    TextView name, notes, subject, part, row;
  } rows[] = {
      {u"Uno.doc", u"d'Ors | 'x'", u"alquiler", u"FIANZA", u"7 Uno.doc d'Ors | 'x' 2 2"},
      {u"Dos.doc", u"", u"", u"oferta", u"8 Dos.doc  Null 1"},
      {u"Tres.doc", u"n", u"Ventas", u"nada", u"9 Tres.doc n 1 Null"},
      {u"Ñu|'?.doc", u"n", u"nada'|", u"", u"10 Ñu.doc n Null Null"},
  };
  for (const auto& row : rows) {
    desk.whileShown([&] {
      user.types(u"txtNombre", row.name);
      if (!row.notes.empty()) user.types(u"txtNotas", row.notes);
      if (!row.subject.empty()) user.types(u"txtMateria", row.subject);
      if (!row.part.empty()) user.types(u"txtSubMateria", row.part);
      user.clicks(u"cmdAceptar");
    });
    CrearModelo(instance, u"120F00.doc", u"Nuevo.doc");
    EXPECT_EQ(column(u"SELECT * FROM Plantilla ORDER BY IdPlantilla").back(), row.row);
  }
  EXPECT_THAT(filtered(u"Alquiler", u"Fianza", u"d'Ors"), ElementsAre(u"Uno.doc"));
}

TEST_F(ModelRows, that_the_database_refuses_leave_the_file_and_take_the_name) {
  engine->Execute(u"CREATE UNIQUE INDEX UnSoloNombre ON Plantilla (Notas)");
  const auto make = [&](const std::function<void()>& script) {
    desk.whileShown([&] {
      user.types(u"txtNotas", u"Oferta de venta");
      script();
      user.clicks(u"cmdAceptar");
    });
    CrearModelo(instance, u"120F00.doc", u"Nuevo.doc");
  };
  make([&] { expectBox(u"Error registrando el modelo."); });
  EXPECT_TRUE(here.files.exists(models + u"\\Nuevo.doc"));
  EXPECT_EQ(column(u"SELECT IdPlantilla FROM Plantilla").size(), 6u);
  make([&] {
    expectBox(u"Existe un modelo con dicho nombre.\r\n\r\nIntroduzca otro nombre.", 68, u"Modelo", no);
  });
}

TEST_F(ModelRows, without_their_table_are_reported) {
  engine->Execute(u"DROP TABLE Plantilla");
  expectReport(u"RefrescoRecordset de ListaModelos", dao::failure::unknownTable);
  choose([&] { EXPECT_EQ(grid().Rows(), 0); });
  desk.whileShown([&] {
    expectReport(u"dlgModelo_Aceptar de CNota", dao::failure::unknownTable);
    user.clicks(u"cmdAceptar");
  });
  CrearModelo(instance, u"120F00.doc", u"Nuevo.doc");
}

}  // namespace
}  // namespace ovalia
