#include <gtest/gtest.h>

#include <ostream>
#include <string_view>
#include <vector>

#include "tests/cards/NewRows.h"

namespace ovalia {
namespace {

// Everything that the creation asks of its surroundings, failing in turn, and what is left then.
class FailingSurroundings;

struct Failing {
  const char* what;
  void (*arrange)(FailingSurroundings& test);
  std::int32_t number;
  enum Reached { nothing, inserted, completed, created } reached = nothing;
  TextView report = u"Nuevo de CNota";
};

void PrintTo(const Failing& row, std::ostream* out) { *out << row.what; }

class FailingSurroundings : public kit::NewRows, public testing::WithParamInterface<Failing> {
 public:
  using NewRows::here;
  using NewRows::host;
  using NewRows::nota;

  void missing(kit::FakeObject& object, TextView member) { object.failing(member, failure::noSuchMember); }
  void failNext(std::string_view operation, std::int32_t number) { here.faults.failNext(operation, number); }
};

TEST_P(FailingSurroundings, are_reported_and_what_was_done_stays_done) {
  const Failing& row = GetParam();
  givenNewRows(u"Nota");
  openCard([&] {
    row.arrange(*this);
    expectReport(Text(row.report), row.number);
    EXPECT_EQ(Nuevo(instance), row.reached == Failing::created);
    EXPECT_EQ(rowInserted(), row.reached >= Failing::inserted);
    std::vector<Text> events;
    if (row.reached >= Failing::inserted) events.push_back(u"CargaRegistros(Nota, NotaIP)");
    if (row.reached >= Failing::completed) events.push_back(u"CompletarNueva(Nota)");
    EXPECT_EQ(host.events, events);
    EXPECT_EQ(state(), row.reached == Failing::created ? nueva : limpia);
    putAway();
  });
}

constexpr Failing failing[] = {
    {"the host's main form", [](FailingSurroundings& t) { t.nota.frmBase.reset(); }, failure::objectNotSet},
    {"the form on top", [](FailingSurroundings& t) { t.host.shows(nullptr); }, failure::objectNotSet},
    {"its controller", [](FailingSurroundings& t) { t.missing(*t.host.FichaInm, u"vClase"); },
     failure::noSuchMember},
    {"the parent's key", [](FailingSurroundings& t) { t.missing(t.host.vClase(), u"IdRegistro"); },
     failure::noSuchMember},
    {"a parent's key that is Null", [](FailingSurroundings& t) { t.host.vClase().with(u"IdRegistro", Null); },
     failure::invalidUseOfNull},
    {"the look-up of the user",
     [](FailingSurroundings& t) { t.failNext("Database.OpenRecordset", dao::failure::locked); },
     dao::failure::locked},
    {"the user's key", [](FailingSurroundings& t) { t.failNext("Field.Value", dao::failure::locked); },
     dao::failure::locked},
    {"the list", [](FailingSurroundings& t) { t.nota.crs.reset(); }, failure::objectNotSet},
    {"the statement", [](FailingSurroundings& t) { t.failNext("Database.Execute", dao::failure::readOnly); },
     dao::failure::readOnly},
    {"the host's reload",
     [](FailingSurroundings& t) {
       t.host.answers.CargaRegistros = [](Text&, Text&) { throw Failure(dao::failure::locked); };
     },
     dao::failure::locked, Failing::inserted},
    {"the reading of the list anew",
     [](FailingSurroundings& t) { t.failNext("Recordset.Requery", dao::failure::locked); },
     dao::failure::locked, Failing::inserted},
    {"the list after the reload",
     [](FailingSurroundings& t) {
       t.host.answers.CargaRegistros = [&t](Text&, Text&) { t.nota.crs.reset(); };
     },
     failure::objectNotSet, Failing::inserted},
    {"the search",
     [](FailingSurroundings& t) { t.failNext("Recordset.Find", dao::failure::criterionSyntax); },
     dao::failure::criterionSyntax, Failing::inserted},
    {"the host's completion",
     [](FailingSurroundings& t) {
       t.host.answers.CompletarNueva = [](Text&, dao::RecordsetRef&) { throw Failure(dao::failure::locked); };
     },
     dao::failure::locked, Failing::completed},
    {"the blanking of the card",
     [](FailingSurroundings& t) {
       t.host.answers.CompletarNueva = [&t](Text&, dao::RecordsetRef&) { t.nota.cUsuario = u"Nadie"; };
     },
     failure::notInList, Failing::created, u"FichaLimpia de CNota"},
    {"the tools",
     [](FailingSurroundings& t) {
       t.host.answers.CompletarNueva = [](Text&, dao::RecordsetRef& rows) { rows.reset(); };
       t.here.expectReport(u"RefrescoDocs de CNota", failure::objectNotSet);
     },
     failure::objectNotSet, Failing::created, u"CambiarMenu de CNota"},
};

INSTANTIATE_TEST_SUITE_P(NewAnnotation, FailingSurroundings, testing::ValuesIn(failing));

}  // namespace
}  // namespace ovalia
