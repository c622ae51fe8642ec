#include "tests/exchange/PassedMarks.h"
#include "tests/models/ModelList.h"

namespace ovalia {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

class ModelDeletion : public kit::ModelListTest {
 protected:
  void expectOne(int answer = yes) { expectBox(u"¿Desea borrar el modelo marcado?", 68, u"Borrar", answer); }
  void expectSeveral(int answer = yes) {
    expectBox(u"Ha seleccionado varios modelos.\r\n\r\n¿Desea borrar los modelos marcados?", 68, u"Borrar",
              answer);
  }

  // The bin leaves the file of the next model where it is.
  void binRefuses() {
    here.shell.nextRecycle = Shell::RecycleResult{.code = 5, .lastError = 5};
    expectBox(u"Error devuelto: 5, 5");
  }
  void expectStays(TextView file) {
    expectBox(join(u"No se pudo borrar el archivo [\\Datos\\Agencia\\Plantillas\\", file, u"]."));
  }
  void mark(std::vector<int> places) {
    bool first = true;
    for (const int place : places)
      user.clicksRow(place, std::exchange(first, false) ? 0 : kit::User::ctrlKey);
  }
};

TEST_F(ModelDeletion, sends_the_document_to_the_bin_and_deletes_the_row) {
  choose([&] {
    mark({1});
    expectOne();
    user.deletesRows();
    EXPECT_THAT(names(), ElementsAre(u"carta.doc", u"perdido.doc", u"Ñapa.doc"));
    EXPECT_EQ(current(), u"perdido.doc");
    EXPECT_THAT(grid().SelBookmarks(), IsEmpty());
    EXPECT_EQ(rows().criteria, std::vector<Text>{u"IdPlantilla = 2"});
    EXPECT_TRUE(grid().Redraw());
  });
  EXPECT_THAT(here.shell.recycled, ElementsAre(models + u"\\fianza.doc"));
}

TEST_F(ModelDeletion, asks_first_and_does_nothing_on_no) {
  choose([&] {
    mark({1});
    expectOne(no);
    user.deletesRows();
    mark({1, 0});
    expectSeveral(no);
    user.deletesRows();
    EXPECT_EQ(names().size(), 4u);
    EXPECT_EQ(grid().SelBookmarks().size(), 2u);
  });
  EXPECT_THAT(here.shell.recycled, IsEmpty());
}

TEST_F(ModelDeletion, without_a_marked_row_does_nothing) {
  choose([&] {
    user.deletesRows();
    mark({1});
    user.clicksRow(1, kit::User::ctrlKey);
    user.deletesRows();
    EXPECT_EQ(names().size(), 4u);
  });
}

TEST_F(ModelDeletion, of_the_only_model_empties_the_list) {
  database->tableNamed(u"Plantilla")->rows.resize(1);
  choose([&] {
    mark({0});
    expectOne();
    user.deletesRows();
    EXPECT_EQ(grid().Rows(), 0);
  });
}

TEST_F(ModelDeletion, of_the_last_row_leaves_no_current_one) {
  choose([&] {
    mark({3});
    expectOne();
    user.deletesRows();
    EXPECT_EQ(grid().currentRow(), -1);
    expectReport(u"cmdAceptar_Click de ListaModelos", dao::failure::noCurrentRecord);
    user.clicks(u"cmdAceptar");
    user.clicks(u"cmdCancelar");
  });
}

TEST_F(ModelDeletion, of_several_goes_on_past_one_whose_file_stays_and_keeps_that_one_marked) {
  choose([&] {
    mark({0, 1, 3});
    expectSeveral();
    here.faults.onNth("Recordset.Find", 2, [&] { binRefuses(), expectStays(u"fianza.doc"); });
    user.deletesRows();
    EXPECT_THAT(names(), ElementsAre(u"fianza.doc", u"perdido.doc"));
    EXPECT_THAT(grid().markedRows(), ElementsAre(0));
    EXPECT_EQ(current(), u"perdido.doc") << "one on from the last that was deleted, or the last there is";
  });
  EXPECT_THAT(files(), ElementsAre(u"fianza.doc"));
}

TEST_F(ModelDeletion, of_a_last_row_that_stays_steps_back_onto_it) {
  choose([&] {
    mark({3});
    expectOne();
    binRefuses();
    expectStays(u"Ñapa.doc");
    user.deletesRows();
    EXPECT_EQ(names().size(), 4u);
    EXPECT_THAT(grid().markedRows(), ElementsAre(3));
    EXPECT_EQ(current(), u"Ñapa.doc");
  });
}

TEST_F(ModelDeletion, a_file_that_is_gone_already_does_not_keep_its_row) {
  here.shell.nextRecycle = Shell::RecycleResult{.code = 2, .lastError = 2};
  choose([&] {
    mark({2});
    expectOne();
    expectBox(u"Error devuelto: 2, 2");
    user.deletesRows();
    EXPECT_EQ(names().size(), 3u);
  });
}

TEST_F(ModelDeletion, a_file_whose_name_differs_in_case_is_the_models) {
  here.files.remove(models + u"\\fianza.doc");
  here.files.putFile(models + u"\\FIANZA.DOC");
  choose([&] {
    mark({1});
    expectOne();
    binRefuses();
    expectStays(u"fianza.doc");
    user.deletesRows();
    EXPECT_EQ(names().size(), 4u);
  });
}

TEST_F(ModelDeletion, a_name_that_no_file_can_have_reaches_no_file_and_does_not_keep_its_row) {
  here.files.putFile(u"\\Datos\\Agencia\\secreto.doc");
  for (const Variant& bad : {Variant(u"..\\secreto.doc"), Variant(u"../secreto.doc"), Variant(u".."),
                             Variant(u""), Variant(Null)}) {
    database->tableNamed(u"Plantilla")->at(0, u"Nombre") = bad;
    choose([&] {
      mark({0});
      expectOne();
      user.deletesRows();
      EXPECT_EQ(names().size(), 3u);
    });
  }
  EXPECT_THAT(here.shell.recycled, IsEmpty());
  EXPECT_TRUE(here.files.exists(u"\\Datos\\Agencia\\secreto.doc"));
}

TEST_F(ModelDeletion, the_second_row_of_one_name_finds_its_file_gone_and_goes_too) {
  kit::putModel(*database, u"carta.doc", u"La otra");
  choose([&] {
    mark({0, 4});
    expectSeveral();
    here.faults.onNth("Recordset.Find", 2, [&] {
      here.shell.nextRecycle = Shell::RecycleResult{.code = 2, .lastError = 2};
      expectBox(u"Error devuelto: 2, 2");
    });
    user.deletesRows();
    EXPECT_THAT(names(), ElementsAre(u"fianza.doc", u"perdido.doc", u"Ñapa.doc"));
  });
}

TEST_F(ModelDeletion, in_the_list_of_two_columns_fails_and_deletes_nothing) {
  choose([&] {
    user.types(u"txtMateria", u"Alquiler");
    user.enters(u"grdPlantilla");
    mark({0});
    expectOne();
    expectReport(u"AntesBorrarPlantilla2 de ListaModelos", failure::typeMismatch);
    user.deletesRows();
    EXPECT_THAT(names(), ElementsAre(u"fianza.doc"));
    user.clicks(u"cmdAceptar");
  });
  EXPECT_EQ(name, u"fianza.doc") << "choosing works there";
  EXPECT_THAT(here.shell.recycled, IsEmpty());
}

TEST_F(ModelDeletion, a_row_that_the_database_keeps_is_reported_and_ends_it) {
  choose([&] {
    mark({0, 1});
    expectSeveral();
    here.faults.failNext("Recordset.Delete", dao::failure::referenced);
    expectReport(u"AntesBorrarPlantilla2 de ListaModelos", dao::failure::referenced);
    user.deletesRows();
    EXPECT_EQ(names().size(), 4u);
    EXPECT_THAT(grid().markedRows(), ElementsAre(0, 1));
    EXPECT_TRUE(grid().Redraw());
  });
  EXPECT_THAT(files(), ElementsAre(u"fianza.doc", u"Ñapa.doc")) << "the first document is in the bin";
}

// What was done stays done, and nothing was marked anew: the next attempt meets the mark of a row that is
// gone and ends there. Who marks the rows again can go on.
TEST_F(ModelDeletion, that_ends_half_way_leaves_the_marks_as_they_were) {
  choose([&] {
    mark({0, 1, 3});
    expectSeveral();
    here.faults.failNth("Recordset.Delete", 2, dao::failure::locked);
    expectReport(u"AntesBorrarPlantilla2 de ListaModelos", dao::failure::locked);
    user.deletesRows();
    EXPECT_THAT(names(), ElementsAre(u"fianza.doc", u"perdido.doc", u"Ñapa.doc"));
    EXPECT_THAT(grid().markedRows(), ElementsAre(-1, 0, 2));
    EXPECT_THAT(files(), ElementsAre(u"Ñapa.doc")) << "the second document is in the bin, its row stays";

    expectSeveral();
    expectReport(u"AntesBorrarPlantilla2 de ListaModelos", dao::failure::noCurrentRecord);
    user.deletesRows();
    EXPECT_EQ(names().size(), 3u);

    mark({0, 2});
    expectSeveral();
    expectBox(u"Error devuelto: 2, 2");
    user.deletesRows();
    EXPECT_THAT(names(), ElementsAre(u"perdido.doc"));
    EXPECT_THAT(grid().SelBookmarks(), IsEmpty());
  });
}

TEST_F(ModelDeletion, a_name_that_cannot_be_read_keeps_its_row) {
  choose([&] {
    mark({0});
    expectOne();
    // The first reading is that of the key's cell.
    here.faults.failNth("Field.Value", 2, dao::failure::locked);
    expectReport(u"BorrarPlantilla de ListaModelos", dao::failure::locked);
    user.deletesRows();
    EXPECT_EQ(names().size(), 4u);
    EXPECT_THAT(grid().markedRows(), ElementsAre(0));
  });
  EXPECT_THAT(here.shell.recycled, IsEmpty());
}

TEST_F(ModelDeletion, a_row_that_another_user_deletes_meanwhile_takes_no_other_with_it) {
  choose([&] {
    mark({1});
    rows().MoveFirst();
    expectOne();
    // 3167 asks the form on top to load its records, which this one cannot: the failure is that of the next
    // procedure out.
    here.faults.onNext("Recordset.Find",
                       [&] { rows().matcher = [](TextView, const kit::FakeRow&) { return false; }; });
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
    expectReport(u"AntesBorrarPlatilla de ListaModelos", failure::noSuchMember);
    user.deletesRows();
    EXPECT_EQ(names().size(), 4u);
    EXPECT_TRUE(grid().Redraw());
  });
  EXPECT_THAT(here.shell.recycled, IsEmpty());
}

TEST_F(ModelDeletion, a_question_that_cannot_be_shown_deletes_nothing) {
  choose([&] {
    mark({1});
    here.faults.failNext("Screen.messageBox", failure::outOfMemory);
    expectReport(u"MostrarMensaje() de RutinasErr", failure::outOfMemory);
    user.deletesRows();
    EXPECT_EQ(names().size(), 4u);
  });
}

// The bin has a document before its row goes, and nothing that is not marked is touched. Who is told nothing
// finds all of it done.
TEST_F(ModelDeletion, survives_any_failure_and_can_be_done_again) {
  const std::vector<Text> marked = {u"carta.doc", u"fianza.doc", u"Ñapa.doc"};
  const auto shown = [&](const Text& model) { return std::ranges::count(names(), model) > 0; };
  const auto markThem = [&] {
    form().RefrescoRecordset();
    std::vector<int> places;
    const std::vector<Text> all = names();
    for (std::size_t place = 0; place < all.size(); ++place)
      if (std::ranges::count(marked, all[place]) > 0) places.push_back(static_cast<int>(place));
    mark(places);
  };
  const auto before = [&] {
    database->tableNamed(u"Plantilla")->rows.clear();
    for (const TextView model : {u"carta.doc", u"fianza.doc", u"otro.doc", u"perdido.doc", u"Ñapa.doc"})
      kit::putModel(*database, model);
    for (const TextView file : {u"carta.doc", u"fianza.doc", u"otro.doc", u"Ñapa.doc"})
      here.files.putFile(join(models, u"\\", file));
    here.shell.recycled.clear();
    markThem();
  };
  const auto check = [&](const kit::RecordingScreen& screen) {
    const std::vector<Text> left = names();
    EXPECT_THAT(left, IsSupersetOf({u"otro.doc", u"perdido.doc"}));
    EXPECT_TRUE(grid().Redraw());
    for (const Text& model : marked) {
      const bool inBin = !here.files.exists(models + u"\\" + model);
      EXPECT_TRUE(inBin || shown(model)) << toUtf8(model);
      if (screen.boxes.empty()) {
        EXPECT_FALSE(shown(model)) << toUtf8(model);
      }
    }
    EXPECT_THAT(here.shell.recycled, Not(Contains(models + u"\\otro.doc")));

    markThem();
    form().AntesBorrarPlantilla2();
    EXPECT_THAT(names(), ElementsAre(u"otro.doc", u"perdido.doc"));
    EXPECT_THAT(files(), ElementsAre(u"otro.doc"));
    EXPECT_THAT(grid().SelBookmarks(), IsEmpty());
  };
  choose([&] {
    for (const std::int32_t number : {dao::failure::locked, dao::failure::referenced, failure::diskFull})
      EXPECT_GE(failEachCall(
                    here, number, before, [&] { form().AntesBorrarPlantilla2(); }, check),
                30);
  });
}

}  // namespace
}  // namespace ovalia
