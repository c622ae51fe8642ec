// Leaving the boxes of the subject and of the sub-matter.
#include "tests/kit/FakeObject.h"
#include "tests/models/ModelList.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ModelChecks : public kit::ModelListTest {
 protected:
  void SetUp() override {
    ModelListTest::SetUp();
    here.objects.add(u"Trivane.CTrivane", [this]() -> ObjectRef { return pickList; });
    pickList->answering(u"mtdMostrar", [this](Arguments) -> Variant {
      if (chosen) pickList->with(u"Seleccionar", *chosen);
      return chosen.has_value();
    });
  }

  bool partEnabled() const {
    const forms::TextBox& part = *form().as<forms::TextBox>(u"txtTMateria");
    EXPECT_EQ(part.Enabled(), form().control(u"cmdSubMateria")->Enabled());
    EXPECT_EQ(part.BackColor(), part.Enabled() ? 0x80000005u : 0xC0C0C0u);
    return part.Enabled();
  }

  std::shared_ptr<kit::FakeObject> pickList = std::make_shared<kit::FakeObject>();
  std::optional<Text> chosen;  // in the pick list; nothing when it is cancelled
};

TEST_F(ModelChecks, a_subject_lists_its_models_with_name_and_notes_only) {
  choose([&] {
    user.types(u"txtMateria", u"alquiler");
    EXPECT_TRUE(user.enters(u"txtNotas"));
    EXPECT_EQ(lastStatement(), u"SELECT Nombre, Notas FROM Plantilla WHERE IdMateria = 2");
    EXPECT_THAT(names(), ElementsAre(u"fianza.doc"));
    EXPECT_EQ(grid().row(0).cells, (std::vector<Text>{u"", u"fianza.doc", u"", u"", u""}));
    EXPECT_TRUE(partEnabled());
  });
}

TEST_F(ModelChecks, the_subject_is_counted_before) {
  choose([&] {
    user.types(u"txtMateria", u"D'Ors");
    database->opened.clear();
    user.enters(u"txtNotas");
    EXPECT_THAT(database->opened,
                ElementsAre(u"Select Count(IdMateria) As N From Materia  Where Nombre = 'D''Ors'",
                            u"SELECT IdMateria FROM Materia WHERE Nombre = 'D''Ors'",
                            u"SELECT Nombre, Notas FROM Plantilla WHERE IdMateria = 3"));
  });
}

TEST_F(ModelChecks, an_emptied_subject_lists_all_models_and_disables_the_sub_matter) {
  for (const TextView blank : {u"", u"   "}) {
    choose(
        [&] {
          user.enters(u"txtMateria");
          user.enters(u"txtNotas");
          EXPECT_TRUE(partEnabled());
          user.types(u"txtMateria", blank);
          EXPECT_TRUE(user.enters(u"txtNotas"));
          EXPECT_FALSE(partEnabled());
          EXPECT_EQ(lastStatement(), u"SELECT Nombre, Notas FROM Plantilla");
          EXPECT_EQ(names().size(), 4u);
        },
        u"Ventas");
  }
}

TEST_F(ModelChecks, leaving_the_subject_clears_the_sub_matter_whatever_follows) {
  choose(
      [&] {
        user.enters(u"txtMateria");
        user.enters(u"grdPlantilla");
        EXPECT_EQ(text(u"txtTMateria"), u"");
      },
      u"Alquiler", u"Fianza");
}

TEST_F(ModelChecks, the_list_replaced_so_keeps_filter_caption_and_order_for_the_next_reading) {
  choose([&] {
    user.types(u"txtNotas", u"venta");
    user.clicks(u"cmdSel");
    user.clicksHeading(2);
    user.types(u"txtMateria", u"Alquiler");
    user.enters(u"grdPlantilla");
    EXPECT_EQ(caption(u"cmdSel"), u"Quitar Selec.");
    user.clicksHeading(2);
    EXPECT_EQ(lastStatement(), wholeList + u"WHERE Notas Like '*venta*' ORDER BY Notas DESC");
  });
}

TEST_F(ModelChecks, an_unknown_subject_opens_the_pick_list_over_the_subjects) {
  choose([&] {
    user.types(u"txtMateria", u" alq ");
    EXPECT_FALSE(user.enters(u"txtNotas"));
  });
  EXPECT_EQ(pickList->property(u"TituloForm").text(), u"Materia");
  EXPECT_EQ(pickList->property(u"tabla").text(), u"Materia");
  EXPECT_EQ(getMember(pickList->property(u"Campo").toObject(), u"Name").text(), u"Nombre");
  EXPECT_EQ(getMember(pickList->property(u"IdCampo").toObject(), u"Name").text(), u"IdMateria");
  EXPECT_EQ(pickList->property(u"Seleccionar").text(), u" alq ");
  EXPECT_EQ(pickList->property(u"anchura").toLong(), 2500);
  EXPECT_EQ(pickList->property(u"glIdSolicitud").toLong(), 0);
  for (const TextView allowed : {u"Op_Nuevo", u"Op_Borrar", u"Op_Modificar"})
    EXPECT_TRUE(pickList->property(allowed).toBoolean()) << toUtf8(allowed);
  EXPECT_FALSE(pickList->property(u"Op_Todos").toBoolean());
}

TEST_F(ModelChecks, a_picked_subject_is_put_in_and_listed_and_the_focus_stays) {
  chosen = u"Alquiler";
  choose([&] {
    user.types(u"txtMateria", u"alq");
    EXPECT_FALSE(user.enters(u"txtNotas"));
    EXPECT_EQ(text(u"txtMateria"), u"Alquiler");
    EXPECT_EQ(active(), u"txtMateria");
    EXPECT_THAT(names(), ElementsAre(u"fianza.doc"));
    EXPECT_TRUE(user.enters(u"txtNotas")) << "now it is one of the list";
  });
}

TEST_F(ModelChecks, a_cancelled_pick_list_keeps_text_focus_and_list) {
  choose([&] {
    user.types(u"txtMateria", u"alq");
    const auto before = form().as<forms::DataControl>(u"datPlantilla")->Recordset();
    EXPECT_FALSE(user.enters(u"txtNotas"));
    EXPECT_EQ(text(u"txtMateria"), u"alq");
    EXPECT_EQ(active(), u"txtMateria");
    EXPECT_EQ(form().as<forms::DataControl>(u"datPlantilla")->Recordset(), before);
    user.clicks(u"cmdCancelar");
    EXPECT_TRUE(form().Visible()) << "a button is not reached";
    user.presses(kit::User::escape);
    EXPECT_FALSE(form().loaded()) << "Escape does without the focus";
  });
}

TEST_F(ModelChecks, a_picked_blank_is_put_in_without_a_search) {
  chosen = u"";
  choose([&] {
    user.types(u"txtMateria", u"alq");
    EXPECT_FALSE(user.enters(u"txtNotas"));
    EXPECT_EQ(text(u"txtMateria"), u"");
    EXPECT_TRUE(user.enters(u"txtNotas"));
  });
}

TEST_F(ModelChecks, a_picked_name_that_is_gone_again_is_reported_and_the_focus_stays) {
  chosen = u"Borrada";
  choose([&] {
    user.types(u"txtMateria", u"alq");
    expectReport(u"txtMateria_Validate de ListaModelos", dao::failure::noCurrentRecord);
    EXPECT_FALSE(user.enters(u"txtNotas"));
    EXPECT_EQ(text(u"txtMateria"), u"Borrada");
    user.presses(kit::User::escape);
  });
}

TEST_F(ModelChecks, without_a_pick_list_the_unknown_text_goes) {
  here.objects.add(u"Trivane.CTrivane", []() -> ObjectRef { throw Failure(failure::classCannotBeCreated); });
  choose([&] {
    user.types(u"txtMateria", u"alq");
    expectReport(u"La librería Trivane.CTrivane no está registrada correctamente.",
                 failure::classCannotBeCreated);
    expectReport(u"VerListadoSimple de RutinasErr", failure::objectNotSet);
    EXPECT_FALSE(user.enters(u"txtNotas"));
    EXPECT_EQ(text(u"txtMateria"), u"");
    EXPECT_TRUE(user.enters(u"txtNotas"));
  });
}

TEST_F(ModelChecks, a_count_that_fails_counts_as_unknown) {
  choose([&] {
    user.types(u"txtMateria", u"Ventas");
    here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
    expectReport(u"ComprobarMateria de ListaModelos", dao::failure::locked);
    EXPECT_FALSE(user.enters(u"txtNotas"));
    EXPECT_EQ(active(), u"txtMateria");
  });
}

TEST_F(ModelChecks, a_list_that_fails_after_a_good_subject_lets_the_focus_go) {
  choose([&] {
    user.types(u"txtMateria", u"Ventas");
    here.faults.failNth("Database.OpenRecordset", 3, dao::failure::locked);
    expectReport(u"txtMateria_Validate de ListaModelos", dao::failure::locked);
    EXPECT_TRUE(user.enters(u"txtNotas"));
    EXPECT_EQ(names().size(), 4u);
  });
}

TEST_F(ModelChecks, blanks_around_a_subject_are_counted_without_and_looked_up_with) {
  choose([&] {
    user.types(u"txtMateria", u"Ventas ");
    expectReport(u"txtMateria_Validate de ListaModelos", dao::failure::noCurrentRecord);
    EXPECT_TRUE(user.enters(u"txtNotas"));
  });
}

TEST_F(ModelChecks, by_tab_the_sub_matter_is_reached_or_passed_over_as_the_check_left_it) {
  choose([&] {
    user.types(u"txtMateria", u"Ventas");
    user.tabs();
    EXPECT_EQ(active(), u"cmdSubMateria");
    user.types(u"txtMateria", u"");
    user.tabs();
    EXPECT_EQ(active(), u"txtNotas");
  });
}

// The sub-matter.

class PartChecks : public ModelChecks {
 protected:
  // The form with a subject whose check has passed.
  void chooseOf(TextView subject, const std::function<void()>& script) {
    choose(
        [&] {
          user.enters(u"txtMateria");
          user.enters(u"txtNotas");
          user.enters(u"txtTMateria");
          EXPECT_EQ(active(), u"txtTMateria");
          database->opened.clear();
          script();
        },
        subject);
  }
};

TEST_F(PartChecks, a_sub_matter_lists_its_models) {
  chooseOf(u"Alquiler", [&] {
    user.types(u"txtTMateria", u"fianza");
    EXPECT_TRUE(user.enters(u"txtNotas"));
    EXPECT_THAT(
        database->opened,
        ElementsAre(u"SELECT IdMateria FROM Materia WHERE Nombre = 'Alquiler'",
                    u"Select Count(IdTipoMateria) As N From TipoMateria  Where Nombre = 'fianza' And "
                    u"IdMateria = 2",
                    u"SELECT IdMateria FROM Materia WHERE Nombre = 'Alquiler'",
                    u"SELECT IdTipoMateria FROM TipoMateria WHERE Nombre = 'fianza'",
                    u"SELECT Nombre, Notas FROM Plantilla WHERE IdMateria = 2 AND IdTipoMateria = 12"));
    EXPECT_THAT(names(), ElementsAre(u"fianza.doc"));
  });
}

TEST_F(PartChecks, a_name_that_several_subjects_have_is_looked_up_among_all) {
  chooseOf(u"Alquiler", [&] {
    user.types(u"txtTMateria", u"Oferta");
    EXPECT_TRUE(user.enters(u"txtNotas"));
    EXPECT_EQ(lastStatement(),
              u"SELECT Nombre, Notas FROM Plantilla WHERE IdMateria = 2 AND IdTipoMateria = 11");
    EXPECT_THAT(names(), IsEmpty());
  });
}

TEST_F(PartChecks, an_empty_one_asks_nothing) {
  chooseOf(u"Alquiler", [&] {
    EXPECT_TRUE(user.enters(u"txtNotas"));
    EXPECT_THAT(database->opened, IsEmpty());
  });
}

TEST_F(PartChecks, an_unknown_one_is_replaced_by_the_hosts_and_stays_refused) {
  host.answers.VerTMateria = [](bool& ok, const Variant&, const Text&, Text& name) {
    ok = true, name = u"Fianza";
  };
  chooseOf(u"Alquiler", [&] {
    user.types(u"txtTMateria", u"fia");
    EXPECT_FALSE(user.enters(u"txtNotas"));
    EXPECT_EQ(host.events.back(), u"VerTMateria(Alquiler, fia)");
    EXPECT_EQ(text(u"txtTMateria"), u"Fianza");
    EXPECT_EQ(active(), u"txtTMateria");
    EXPECT_EQ(lastStatement(), u"SELECT IdTipoMateria FROM TipoMateria WHERE Nombre = 'Fianza'")
        << "looked up, and not used";
    EXPECT_TRUE(user.enters(u"txtNotas"));
  });
}

TEST_F(PartChecks, one_of_another_subject_is_unknown) {
  chooseOf(u"Ventas", [&] {
    user.types(u"txtTMateria", u"Fianza");
    EXPECT_FALSE(user.enters(u"txtNotas"));
    user.types(u"txtTMateria", u"");
  });
}

TEST_F(PartChecks, the_old_text_given_back_keeps_the_focus_without_a_search) {
  chooseOf(u"Alquiler", [&] {
    user.types(u"txtTMateria", u"fia");
    EXPECT_FALSE(user.enters(u"txtNotas"));
    EXPECT_EQ(text(u"txtTMateria"), u"fia");
    EXPECT_EQ(database->opened.size(), 2u);
    user.types(u"txtTMateria", u"");
  });
}

TEST_F(PartChecks, a_host_that_does_not_answer_clears_the_box) {
  host.answers.VerTMateria = nullptr;
  chooseOf(u"Alquiler", [&] {
    user.types(u"txtTMateria", u"fia");
    EXPECT_FALSE(user.enters(u"txtNotas"));
    EXPECT_EQ(text(u"txtTMateria"), u"");
    EXPECT_TRUE(user.enters(u"txtNotas"));
  });
}

TEST_F(PartChecks, an_answer_that_is_none_is_reported_and_keeps_the_focus) {
  host.answers.VerTMateria = [](bool&, const Variant&, const Text&, Text& name) { name = u"nada"; };
  chooseOf(u"Alquiler", [&] {
    user.types(u"txtTMateria", u"fia");
    expectReport(u"txtTMateria_Validate de ListaModelos", dao::failure::noCurrentRecord);
    EXPECT_FALSE(user.enters(u"txtNotas"));
    user.types(u"txtTMateria", u"");
  });
}

TEST_F(PartChecks, a_check_that_fails_counts_as_unknown) {
  chooseOf(u"Alquiler", [&] {
    user.types(u"txtTMateria", u"Fianza");
    here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
    expectReport(u"ComprobarTMateria de ListaModelos", dao::failure::locked);
    EXPECT_FALSE(user.enters(u"txtNotas"));
    EXPECT_EQ(text(u"txtTMateria"), u"") << "nobody gave another";
  });
}

TEST_F(PartChecks, nobody_is_asked_unless_it_is_wanted) {
  chooseOf(u"Alquiler", [&] {
    Text better = u"igual";
    EXPECT_FALSE(form().ComprobarTMateria(u"Alquiler", u"nada", better, false));
    EXPECT_TRUE(form().ComprobarTMateria(u"Alquiler", u"Fianza", better, false));
    EXPECT_TRUE(form().ComprobarMateria(u"", better));
    EXPECT_EQ(better, u"igual");
  });
  EXPECT_THAT(host.events, IsEmpty());
}

}  // namespace
}  // namespace ovalia
