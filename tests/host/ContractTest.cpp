#include "host/Contract.h"

#include "host/HostCard.h"
#include "tests/host/HostTest.h"

namespace ovalia::host {
namespace {

class TestFrame : public MainFrame {
 public:
  ObjectRef form;
  Text status = u"Listo";
  ObjectRef activeForm() override { return form; }
  Text statusText() override { return status; }
  void setStatusText(TextView text) override { status = text; }
};

std::int32_t failureOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const Failure& failure) {
    return failure.number();
  }
  return 0;
}

}  // namespace

class Contract : public HostTest {
 protected:
  Contract() { workplace.frmBase = mainFormContract(frame, dialogs); }

  ObjectRef open(TextView form, std::int32_t record = 1) {
    card = std::make_shared<HostCard>(hostForm(form), workplace, record);
    return frame->form = cardContract(card);
  }
  ObjectRef vClase(const ObjectRef& form) { return getMember(form, u"vClase").toObject(); }

  std::shared_ptr<TestFrame> frame = std::make_shared<TestFrame>();
  std::shared_ptr<HostCard> card;
};

TEST_F(Contract, the_application_has_its_title) {
  EXPECT_EQ(getMember(workplace.cApp, u"title").toText(), u"Agencia");
}

TEST_F(Contract, the_main_form_gives_the_form_on_top_or_nothing) {
  EXPECT_EQ(getMember(workplace.frmBase, u"ActiveForm").toObject(), nullptr);
  const ObjectRef form = open(u"FichaInm");
  EXPECT_EQ(getMember(workplace.frmBase, u"ActiveForm").toObject(), form);
}

TEST_F(Contract, the_status_bar_has_one_panel_that_shows_its_text) {
  const ObjectRef bar = getMember(workplace.frmBase, u"StatusBar1").toObject();
  putMember(getMember(bar, u"Panels", {std::int32_t(1)}).toObject(), u"Text", u"Copiando");
  EXPECT_EQ(frame->status, u"Copiando");
  const ObjectRef panels = getMember(bar, u"Panels").toObject();
  EXPECT_EQ(getMember(getMember(panels, u"", {std::int32_t(1)}).toObject(), u"Text").toText(), u"Copiando");
  EXPECT_EQ(failureOf([&] { getMember(bar, u"Panels", {std::int32_t(2)}); }), failure::indexOutOfBounds);
}

TEST_F(Contract, every_card_tells_its_name_and_caption) {
  for (const HostForm& design : hostForms()) {
    const ObjectRef form = open(design.form);
    EXPECT_EQ(getMember(form, u"Name").toText(), design.form);
    EXPECT_TRUE(getMember(form, u"Caption").toText().starts_with(design.caption));
  }
}

TEST_F(Contract, the_controller_speaks_for_its_record) {
  for (const HostForm& design : hostForms()) {
    const ObjectRef controller = vClase(open(design.form, 2));
    EXPECT_EQ(getMember(controller, u"cEstado").toInteger(), 0);
    EXPECT_EQ(getMember(controller, u"IdRegistro").type(), VarType::Long);
    EXPECT_EQ(getMember(controller, u"IdRegistro").toLong(), 2);
    EXPECT_EQ(getMember(controller, u"NumFicha").toLong(), 2);
    EXPECT_EQ(getMember(controller, u"tabla").toText(), design.table);
    EXPECT_EQ(getMember(controller, u"IdTabla").toText(), design.key);
    EXPECT_EQ(getMember(controller, u"NumNuevo").toLong(),
              one(u"SELECT Max(" + Text(design.key) + u") FROM " + Text(design.table)).toLong() + 1);
    EXPECT_EQ(Variant(getMember(controller, u"Registros", {u"Id"})).toLong(), 2);
    const ObjectRef rows = getMember(controller, u"Registros").toObject();
    EXPECT_EQ(getMember(rows, u"", {u"Id"}).toLong(), 2);
  }
}

TEST_F(Contract, a_case_file_tells_its_subject_both_ways) {
  const ObjectRef form = open(u"FichaExpV");
  const Text subject = getMember(vClase(form), u"Registros", {u"Materia"}).text();
  EXPECT_FALSE(subject.empty());
  EXPECT_EQ(getMember(getMember(form, u"txtMateria").toObject(), u"Text").toText(), subject);
  EXPECT_EQ(getMember(getMember(form, u"txtTMateria").toObject(), u"Text").toText(),
            getMember(vClase(form), u"Registros", {u"TMateria"}).text());
}

TEST_F(Contract, the_collection_of_controls_can_be_probed) {
  const ObjectRef cases = open(u"FichaExpV");
  const ObjectRef controls = getMember(cases, u"Controls").toObject();
  EXPECT_EQ(getMember(getMember(cases, u"Controls", {u"txtMateria"}).toObject(), u"Name").toText(),
            u"txtMateria");
  EXPECT_EQ(getMember(getMember(controls, u"", {u"txttmateria"}).toObject(), u"Name").toText(),
            u"txtTMateria");
  EXPECT_EQ(getMember(getMember(controls, u"Item", {u"grdNota"}).toObject(), u"Name").toText(), u"grdNota");
  EXPECT_GT(getMember(controls, u"Count").toLong(), 5);
  EXPECT_EQ(failureOf([&] { getMember(controls, u"", {u"txtNoHay"}); }), failure::noSuchControl);
  const ObjectRef property = open(u"FichaInm");
  EXPECT_EQ(failureOf([&] { getMember(property, u"Controls", {u"txtMateria"}); }), failure::noSuchControl);
}

TEST_F(Contract, every_list_has_its_data_control_and_its_grid) {
  for (const ListDesign& design : lists()) {
    const ObjectRef form = open(design.form);
    const ObjectRef data = getMember(form, design.data).toObject();
    const ObjectRef rows = getMember(data, u"Recordset").toObject();
    EXPECT_EQ(rows, card->list(design.grid)->recordset());
    EXPECT_EQ(getMember(data, u"Recordset", {u"IdAnota"}).toLong(), card->list(design.grid)->currentKey());
    const ObjectRef grid = getMember(form, design.grid).toObject();
    EXPECT_EQ(getMember(grid, u"Name").toText(), design.grid);
    EXPECT_EQ(getMember(grid, u"Rows").toLong(), card->list(design.grid)->count());
  }
}

TEST_F(Contract, marked_rows_are_counted_and_give_the_cells_of_their_columns) {
  const ObjectRef form = open(u"FichaInm");
  AnnotationList& notes = *card->list(u"grdNota");
  notes.recordset()->MoveLast();
  const std::int32_t last = notes.currentKey();
  notes.recordset()->MoveFirst();
  const std::int32_t first = notes.currentKey();
  card->marked = [&](TextView) { return std::vector{last, first}; };

  const ObjectRef grid = getMember(form, u"grdNota").toObject();
  const ObjectRef marks = getMember(grid, u"SelBookmarks").toObject();
  EXPECT_EQ(getMember(marks, u"Count").toLong(), 2);
  const Variant mark = getMember(grid, u"SelBookmarks", {std::int32_t(0)});
  const ObjectRef key = getMember(grid, u"Columns", {u"IdANota"}).toObject();
  EXPECT_EQ(callMember(key, u"CellText", {mark}).toLong(), last);
  const ObjectRef author = getMember(grid, u"Columns", {u"Usuario"}).toObject();
  const Text authorOfFirst = notes.recordset()->value(u"Usuario").toText();
  EXPECT_EQ(callMember(author, u"CellText", {getMember(marks, u"Item", {std::int32_t(1)})}).toText(),
            authorOfFirst);
  EXPECT_EQ(notes.currentKey(), first);
  EXPECT_EQ(failureOf([&] { getMember(grid, u"SelBookmarks", {std::int32_t(2)}); }),
            failure::indexOutOfRange);
}

TEST_F(Contract, a_property_has_its_counters_and_a_user_the_diary) {
  std::vector<Text> counted;
  const ObjectRef property = open(u"FichaInm");
  card->counted = [&](AnnotationList& list) { counted.emplace_back(list.design().grid); };
  for (TextView method : {u"Ajuste_N_Notas", u"Ajuste_N_Visitas", u"Ajuste_N_Anuncios"})
    callMember(property, method);
  EXPECT_EQ(counted, (std::vector<Text>{u"grdNota", u"grdVisita", u"grdAnuncio"}));
  EXPECT_EQ(failureOf([&] { callMember(property, u"RellenaVisita", {true}); }), failure::noSuchMember);

  const ObjectRef user = open(u"FichaUsuario");
  card->counted = [&](AnnotationList& list) { counted.emplace_back(list.design().grid); };
  callMember(user, u"RellenaVisita", {true});
  EXPECT_EQ(counted.back(), u"grdVisita");
  EXPECT_EQ(failureOf([&] { callMember(user, u"Ajuste_N_Notas"); }), failure::noSuchMember);
}

TEST_F(Contract, the_active_control_has_a_name_or_is_nothing) {
  const ObjectRef form = open(u"FichaInm");
  EXPECT_EQ(getMember(form, u"ActiveControl").toObject(), nullptr);
  card->activeControl = [] { return Text(u"grdVisita"); };
  EXPECT_EQ(getMember(objectAt(workplace.frmBase, {u"ActiveForm", u"ActiveControl"}), u"Name").toText(),
            u"grdVisita");
}

TEST_F(Contract, unsaved_work_shows_in_the_state_and_is_asked_about) {
  const ObjectRef form = open(u"FichaInm");
  EXPECT_TRUE(callMember(form, u"ComprobarCambio").toBoolean());
  putMember(getMember(form, u"txtPiso").toObject(), u"Text", u"4º D");
  EXPECT_EQ(getMember(vClase(form), u"cEstado").toInteger(), 2);
  dialogs.yesNoCancelAnswer = 2;
  EXPECT_FALSE(callMember(vClase(form), u"AvisoCambio", {u"Preguntar"}).toBoolean());
  dialogs.yesNoCancelAnswer = 6;
  EXPECT_TRUE(callMember(vClase(form), u"AvisoCambio", {u"Preguntar"}).toBoolean());
  EXPECT_EQ(getMember(vClase(form), u"cEstado").toInteger(), 0);
  EXPECT_EQ(one(u"SELECT Piso FROM Inmueble WHERE IdInm = 1").toText(), u"4º D");
}

TEST_F(Contract, the_lists_are_read_again_on_request_with_and_without_arguments) {
  const ObjectRef form = open(u"FichaInm");
  const auto before = card->list(u"grdNota")->count();
  database().Execute(u"INSERT INTO NotaIP (IdInm, IdUsuario) VALUES (1, 1)");
  callMember(vClase(form), u"CargaRegistros", {false, true});
  EXPECT_EQ(card->list(u"grdNota")->count(), before + 1);
  callMember(vClase(form), u"CargaRegistros");
  EXPECT_EQ(card->list(u"grdNota")->count(), before + 1);
}

TEST_F(Contract, members_are_found_without_regard_to_case_and_unknown_ones_are_refused) {
  const ObjectRef form = open(u"FichaInm");
  EXPECT_EQ(getMember(form, u"NAME").toText(), u"FichaInm");
  EXPECT_EQ(failureOf([&] { getMember(form, u"NoHay"); }), failure::noSuchMember);
}

TEST_F(Contract, a_card_that_has_gone_answers_with_object_not_set) {
  const ObjectRef form = open(u"FichaInm");
  card.reset();
  EXPECT_EQ(failureOf([&] { getMember(form, u"Caption"); }), failure::objectNotSet);
  EXPECT_EQ(failureOf([&] { getMember(vClase(form), u"IdRegistro"); }), failure::objectNotSet);
  frame.reset();
  EXPECT_EQ(failureOf([&] { getMember(workplace.frmBase, u"ActiveForm"); }), failure::objectNotSet);
}

TEST_F(Contract, an_opening_list_is_a_form_too) {
  const auto rows = database().OpenRecordset(cardQuery(hostForm(u"FichaExpV"), 1));
  const ObjectRef form = listContract({u"ListaExpV", u"Expedientes", u"ExpVivo", u"IdExpVivo",
                                       [] { return 7; }, [&]() -> ObjectRef { return rows; }, [] {}});
  EXPECT_EQ(getMember(form, u"Name").toText().substr(0, 5), u"Lista");
  EXPECT_EQ(getMember(vClase(form), u"IdRegistro").toLong(), 7);
  EXPECT_EQ(getMember(vClase(form), u"Registros", {u"Materia"}).text(), rows->value(u"Materia").text());
  EXPECT_TRUE(callMember(vClase(form), u"AvisoCambio", {u"Preguntar"}).toBoolean());
  EXPECT_TRUE(callMember(form, u"ComprobarCambio").toBoolean());
}

}  // namespace ovalia::host
