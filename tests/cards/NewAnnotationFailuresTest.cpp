#include <gtest/gtest.h>

#include <ostream>
#include <string_view>
#include <vector>

#include "routines/ModuleValues.h"
#include "tests/cards/CardPicture.h"
#include "tests/cards/NewRows.h"

namespace ovalia {
namespace {

// Everything that the creation asks of its surroundings, failing in turn, and what is left then.
class FailingSurroundings;

struct Failing {
  const char* what;
  void (*arrange)(FailingSurroundings& test);
  std::int32_t number;
  enum Reached { nothing, inserted, found, offered, created } reached = nothing;
  TextView report = u"Nuevo de CNota";
  TextView tipo = u"Nota";
};

void PrintTo(const Failing& row, std::ostream* out) { *out << row.what; }

class FailingSurroundings : public kit::NewRows, public testing::WithParamInterface<Failing> {
 public:
  using NewRows::advertisement;
  using NewRows::here;
  using NewRows::host;
  using NewRows::nota;

  void missing(kit::FakeObject& object, TextView member) { object.failing(member, failure::noSuchMember); }
  void failNext(std::string_view operation, std::int32_t number = dao::failure::locked) {
    here.faults.failNext(operation, number);
  }
  kit::FakeObject& advertisements() {
    return dynamic_cast<kit::FakeObject&>(*host.FichaInm->property(u"datAnuncio").toObject());
  }

  // While the host reloads its list, or completes the new row.
  void whileReloading(const std::function<void()>& happens) {
    host.answers.CargaRegistros = [this, happens](Text&, Text&) {
      if (nota.crs) nota.crs->Requery();
      happens();
    };
  }
  void whileCompleting(const std::function<void()>& happens) {
    host.answers.CompletarNueva = [happens](Text&, dao::RecordsetRef&) { happens(); };
  }
  void loseColumn(TextView name) { list->columns.at(list->column(name)).name = u"Otra"; }

 protected:
  void expectRowsAndEvents(const Failing& row) {
    EXPECT_EQ(rowInserted(), row.reached >= Failing::inserted);
    EXPECT_EQ(stored(u"Notas").text(), u"Tiene prisa por vender.") << "the row that was there";
    EXPECT_EQ(stored(u"FechaActualizacion").toDate(), kit::on(2026, 3, 5, 18, 30, 15));
    std::vector<Text> events;
    const Text& table = nota.Nota;
    if (row.reached >= Failing::inserted)
      events.push_back(u"CargaRegistros(" + Text(row.tipo) + u", " + table + u")");
    if (row.reached >= Failing::offered) events.push_back(u"CompletarNueva(" + Text(row.tipo) + u")");
    EXPECT_EQ(host.events, events);
    if (nota.crs) {
      EXPECT_EQ(nota.crs->AbsolutePosition(), row.reached >= Failing::found ? 1 : 0);
    }
  }
};

TEST_P(FailingSurroundings, are_reported_and_what_was_done_stays_done) {
  const Failing& row = GetParam();
  givenNewRows(row.tipo);
  openCard([&] {
    const auto before = kit::pictureOf(form());
    row.arrange(*this);
    expectReport(Text(row.report), row.number);
    EXPECT_EQ(Nuevo(instance), row.reached == Failing::created);
    expectRowsAndEvents(row);
    EXPECT_EQ(state(), row.reached == Failing::created ? nueva : limpia);
    if (row.reached == Failing::created) {
      EXPECT_TRUE(enabled(u"ID_Guardar"));
      EXPECT_EQ(card(u"txtNotas"), u"");
    } else {
      EXPECT_FALSE(enabled(u"ID_Guardar"));
      EXPECT_EQ(kit::changesOf(before, kit::pictureOf(form())), u"");
    }
    putAway();
  });
}

TEST_P(FailingSurroundings, open_no_card_until_there_is_a_row_for_it) {
  const Failing& row = GetParam();
  givenNewRows(row.tipo);
  row.arrange(*this);
  expectReport(Text(row.report), row.number);
  if (row.reached == Failing::created)
    desk.whileShown([&] {
      EXPECT_EQ(state(), nueva);
      EXPECT_EQ(card(u"txtNotas"), u"");
      putAway();
    });
  CreaNota(instance);
  expectRowsAndEvents(row);
  EXPECT_EQ(state(), limpia);
  if (row.reached != Failing::created) {
    EXPECT_TRUE(desk.windows.empty());
    EXPECT_FALSE(instance.dNota->loaded());
  }
}

const Failing failing[] = {
    {"the host's main form", [](FailingSurroundings& t) { t.nota.frmBase.reset(); }, failure::objectNotSet},
    {"the form on top", [](FailingSurroundings& t) { t.host.shows(nullptr); }, failure::objectNotSet},
    {"its controller", [](FailingSurroundings& t) { t.missing(*t.host.FichaInm, u"vClase"); },
     failure::noSuchMember},
    {"the parent's key", [](FailingSurroundings& t) { t.missing(t.host.vClase(), u"IdRegistro"); },
     failure::noSuchMember},
    {"the parent's key, which a call does not take",
     [](FailingSurroundings& t) { t.missing(t.host.vClase(), u"IdRegistro"); }, failure::noSuchMember,
     Failing::nothing, u"Nuevo de CNota", u"Llamada"},
    {"a parent's key that is Null", [](FailingSurroundings& t) { t.host.vClase().with(u"IdRegistro", Null); },
     failure::invalidUseOfNull},
    {"the connection", [](FailingSurroundings&) { moduleValues().cgDB.reset(); }, failure::objectNotSet},
    {"the look-up of the user", [](FailingSurroundings& t) { t.failNext("Database.OpenRecordset"); },
     dao::failure::locked},
    {"a user that the database lacks", [](FailingSurroundings& t) { t.nota.cUsuario = u"Nadie"; },
     dao::failure::noCurrentRecord},
    {"the user's key", [](FailingSurroundings& t) { t.failNext("Field.Value"); }, dao::failure::locked},
    {"the list", [](FailingSurroundings& t) { t.nota.crs.reset(); }, failure::objectNotSet},
    {"the advertisements of the form on top",
     [](FailingSurroundings& t) { t.missing(*t.host.FichaInm, u"datAnuncio"); }, failure::noSuchMember,
     Failing::nothing, u"Nuevo de CNota", u"Llamada"},
    {"their list", [](FailingSurroundings& t) { t.advertisements().with(u"Recordset", ObjectRef()); },
     failure::objectNotSet, Failing::nothing, u"Nuevo de CNota", u"Llamada"},
    {"the key of an advertisement",
     [](FailingSurroundings& t) { t.advertisement->failing(u"", dao::failure::notInCollection); },
     dao::failure::notInCollection, Failing::nothing, u"Nuevo de CNota", u"Llamada"},
    {"the statement", [](FailingSurroundings& t) { t.failNext("Database.Execute", dao::failure::readOnly); },
     dao::failure::readOnly},

    {"the host's reload",
     [](FailingSurroundings& t) {
       t.host.answers.CargaRegistros = [](Text&, Text&) { throw Failure(dao::failure::locked); };
     },
     dao::failure::locked, Failing::inserted},
    {"the reading of the list anew", [](FailingSurroundings& t) { t.failNext("Recordset.Requery"); },
     dao::failure::locked, Failing::inserted},
    {"the list after the reload",
     [](FailingSurroundings& t) { t.whileReloading([&t] { t.nota.crs.reset(); }); }, failure::objectNotSet,
     Failing::inserted},
    {"the list, which a call is inserted without", [](FailingSurroundings& t) { t.nota.crs.reset(); },
     failure::objectNotSet, Failing::inserted, u"Nuevo de CNota", u"Llamada"},
    {"the key of the advertisement that a call is searched by",
     [](FailingSurroundings& t) {
       t.whileReloading([&t] { t.advertisement->failing(u"", dao::failure::notInCollection); });
     },
     dao::failure::notInCollection, Failing::inserted, u"Nuevo de CNota", u"Llamada"},
    {"the search",
     [](FailingSurroundings& t) { t.failNext("Recordset.Find", dao::failure::criterionSyntax); },
     dao::failure::criterionSyntax, Failing::inserted},
    {"whether it found the row", [](FailingSurroundings& t) { t.failNext("Recordset.NoMatch"); },
     dao::failure::locked, Failing::found},
    {"the host's completion",
     [](FailingSurroundings& t) { t.whileCompleting([] { throw Failure(dao::failure::locked); }); },
     dao::failure::locked, Failing::offered},

    {"a user that the card's list lacks",
     [](FailingSurroundings& t) { t.whileCompleting([&t] { t.nota.cUsuario = u"Nadie"; }); },
     failure::notInList, Failing::created, u"FichaLimpia de CNota"},
    {"the subject that the host wrote",
     [](FailingSurroundings& t) { t.whileCompleting([&t] { t.loseColumn(u"Asunto"); }); },
     dao::failure::notInCollection, Failing::created, u"FichaLimpia de CNota", u"Visita"},
    {"the place that the host wrote",
     [](FailingSurroundings& t) { t.whileCompleting([&t] { t.loseColumn(u"Donde"); }); },
     dao::failure::notInCollection, Failing::created, u"FichaLimpia de CNota", u"Visita"},
    {"the advertisement in a call's title",
     [](FailingSurroundings& t) { t.whileCompleting([&t] { t.loseColumn(u"IdAnuncio"); }); },
     dao::failure::notInCollection, Failing::created, u"FichaLimpia de CNota", u"Llamada"},
    {"the tools",
     [](FailingSurroundings& t) {
       t.host.answers.CompletarNueva = [](Text&, dao::RecordsetRef& rows) { rows.reset(); };
       t.here.expectReport(u"RefrescoDocs de CNota", failure::objectNotSet);
     },
     failure::objectNotSet, Failing::created, u"CambiarMenu de CNota"},
    {"the place in the list", [](FailingSurroundings& t) { t.failNext("Recordset.AbsolutePosition"); },
     dao::failure::locked, Failing::created, u"CambiarMenu de CNota"},
    {"the length of the list", [](FailingSurroundings& t) { t.failNext("Recordset.RecordCount"); },
     dao::failure::locked, Failing::created, u"CambiarMenu de CNota"},
};

INSTANTIATE_TEST_SUITE_P(NewAnnotation, FailingSurroundings, testing::ValuesIn(failing));

class NewAnnotationFailures : public kit::NewRows {
 protected:
  void expectDeleted() {
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
  }
  // Somebody deletes the new row as soon as the host has completed it.
  void newRowIsDeleted() {
    host.answers.CompletarNueva = [this](Text&, dao::RecordsetRef&) { list->vanish(1); };
  }
};

TEST_F(NewAnnotationFailures, messages_that_cannot_be_shown_are_reported_and_the_creation_goes_its_way) {
  givenNewRows(u"Nota");
  const auto insert = database->onExecute;
  database->onExecute = [=](TextView sql) { return insert(sql), 0; };
  openCard([&] {
    here.faults.failNext("Screen.messageBox", failure::internalError);
    expectReport(u"MostrarMensaje() de RutinasErr", failure::internalError);
    EXPECT_TRUE(Nuevo(instance)) << "a row that was counted as none, and was found";
    putAway();
  });
  givenNewRows(u"Nota");
  host.answers.CargaRegistros = [](Text&, Text&) {};
  openCard([&] {
    here.faults.failNext("Screen.messageBox", failure::internalError);
    expectReport(u"MostrarMensaje() de RutinasErr", failure::internalError);
    EXPECT_FALSE(Nuevo(instance)) << "a row that was not found";
    EXPECT_EQ(state(), limpia);
    EXPECT_TRUE(rowInserted());
    EXPECT_EQ(card(u"txtAsunto"), u"Llaves en portería");
  });
}

TEST_F(NewAnnotationFailures, a_question_that_cannot_be_shown_keeps_the_card_and_creates_nothing) {
  givenNewRows(u"Nota");
  openCard([&] {
    user.types(u"txtAsunto", u"Llaves del ático");
    here.faults.failNext("Screen.messageBox", failure::internalError);
    expectReport(u"MostrarMensaje() de RutinasErr", failure::internalError);
    EXPECT_FALSE(Nuevo(instance));
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(card(u"txtAsunto"), u"Llaves del ático");
    EXPECT_EQ(stored(u"Asunto").text(), u"Llaves en portería");
    EXPECT_TRUE(database->executed.empty());
    putAway();
  });
}

TEST_F(NewAnnotationFailures,
       a_new_row_deleted_before_it_is_shown_ends_the_creation_with_the_card_half_blank) {
  givenNewRows(u"Visita");
  newRowIsDeleted();
  openCard([&] {
    // With a card on top, the reload that the report of a deleted record asks for finds no controller.
    expectDeleted();
    expectReport(u"Nuevo de CNota", failure::noSuchMember);
    EXPECT_FALSE(Nuevo(instance));
    EXPECT_EQ(state(), cargando);
    EXPECT_EQ(card(u"txtNotas"), u"");
    EXPECT_EQ(card(u"cboAcceso"), u"Teléfono");
    EXPECT_FALSE(form().filling());
    EXPECT_EQ(stored(u"Asunto", 1).text(), u"Llaves en portería");
    putAway();
  });
}

TEST_F(NewAnnotationFailures, a_new_row_deleted_before_a_card_is_up_makes_the_host_reload_and_the_card_new) {
  givenNewRows(u"Visita");
  newRowIsDeleted();
  expectReport(u"FichaLimpia de CNota", dao::failure::recordDeleted);
  desk.whileShown([&] {
    EXPECT_EQ(state(), nueva);
    EXPECT_EQ(card(u"dtpFechaAlta"), u"-") << "it stopped at the subject";
    putAway();
  });
  CreaNota(instance);
  EXPECT_EQ(kit::AgencyHost::calls(host.vClase(), u"CargaRegistros"), 1);
}

}  // namespace
}  // namespace ovalia
