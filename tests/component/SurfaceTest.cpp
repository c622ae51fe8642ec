#include "component/CNota.h"
#include "routines/ModuleValues.h"
#include "tests/cardkit/CardTest.h"
#include "tests/component/HeldNota.h"

namespace ovalia {
namespace {

// A whole component, as its host has it.
class Surface : private HeldNota, public kit::AgencyTest {
 protected:
  Surface() : AgencyTest(*held) {}
  void TearDown() override {
    held.reset();
    AgencyTest::TearDown();
  }
  using HeldNota::nota;
  void ends() { held.reset(); }
};

TEST_F(Surface, starts_empty_0_and_false) {
  const CNota fresh;
  EXPECT_FALSE(fresh.DosComerciales);
  EXPECT_FALSE(fresh.bPermitirCreacion);
  EXPECT_FALSE(fresh.cApp);
  EXPECT_FALSE(fresh.frmBase);
  EXPECT_FALSE(fresh.crs);
  for (const Text* text : {&fresh.AppDirUser, &fresh.cUsuario, &fresh.Cabecera, &fresh.Tipo, &fresh.Nota,
                           &fresh.IdPr, &fresh.TipoNota, &fresh.TipoAccNota, &fresh.DocuAsoc})
    EXPECT_EQ(*text, u"");
  EXPECT_EQ(fresh.IdAgencia, 0);
  EXPECT_EQ(fresh.NAgencia, 0);
  EXPECT_EQ(fresh.IdAnota, 0);
}

TEST_F(Surface, opens_a_card_and_returns_when_it_has_closed) {
  givenList(u"Nota", {{}, {{u"Asunto", u"Segunda"}}});
  standOn(2);
  bool shown = false;
  desk.whileShown([&] {
    shown = true;
    EXPECT_EQ(desk.card().as<forms::TextBox>(u"txtAsunto")->text(), u"Segunda");
    EXPECT_EQ(desk.card().Caption(), u"Inmueble 120 - Nota: 2/2");
  });
  nota.AbreNota();
  EXPECT_TRUE(shown);
  EXPECT_FALSE(desk.anythingShown());
  EXPECT_EQ(nota.crs->AbsolutePosition(), 1) << "the list stays where the user left it";
}

TEST_F(Surface, works_the_same_whatever_the_hosts_own_type_holds) {
  for (const Text& type : {Text(u""), Text(u"Visita"), Text(u"'; DROP")}) {
    nota.TipoNota = type;
    givenList(u"Nota");
    desk.whileShown([&] { EXPECT_EQ(desk.card().Name(), u"frmNota"); });
    nota.AbreNota();
    EXPECT_EQ(nota.TipoNota, type);
  }
}

TEST_F(Surface, writes_no_property_but_the_leave_to_create) {
  givenList(u"Visita");
  nota.TipoNota = u"Propia";
  const NotaSurface before = nota;
  nota.AbreNota();
  EXPECT_EQ(nota.DosComerciales, before.DosComerciales);
  EXPECT_EQ(nota.cApp, before.cApp);
  EXPECT_EQ(nota.frmBase, before.frmBase);
  EXPECT_EQ(nota.crs, before.crs);
  for (Text NotaSurface::*const text :
       {&NotaSurface::AppDirUser, &NotaSurface::cUsuario, &NotaSurface::Cabecera, &NotaSurface::Tipo,
        &NotaSurface::Nota, &NotaSurface::IdPr, &NotaSurface::TipoNota, &NotaSurface::TipoAccNota,
        &NotaSurface::DocuAsoc})
    EXPECT_EQ(nota.*text, before.*text);
  for (std::int32_t NotaSurface::*const number :
       {&NotaSurface::IdAgencia, &NotaSurface::NAgencia, &NotaSurface::IdAnota})
    EXPECT_EQ(nota.*number, before.*number);
  EXPECT_EQ(nota.bPermitirCreacion, before.bPermitirCreacion);
}

TEST_F(Surface, shares_connection_paths_and_log_with_every_other_on_the_thread) {
  const auto other = kit::agencyDatabase(here.faults);
  CNota::cgDB(other);
  CNota::PathDB(u"\\otra\\base.mdb");
  CNota::ErrLogPath(u"\\otra\\log.txt");
  EXPECT_EQ(moduleValues().cgDB, other);
  EXPECT_EQ(moduleValues().PathDB, u"\\otra\\base.mdb");
  EXPECT_EQ(moduleValues().ErrLogPath, u"\\otra\\log.txt");

  CNota second;
  host.connect(second);
  second.Tipo = u"Nota";
  second.crs = (givenList(u"Nota"), nota.crs);
  second.AbreNota();
  EXPECT_FALSE(other->opened.empty()) << "the second reads its lists over the connection of the first";
}

TEST_F(Surface, leaves_connection_paths_and_log_behind) {
  ends();
  EXPECT_EQ(moduleValues().cgDB, database);
  EXPECT_EQ(moduleValues().PathDB, u"\\datos\\agencia.mdb");
}

TEST_F(Surface, without_leave_to_create_has_the_new_tool_disabled) {
  CNota bare;
  host.connect(bare);
  givenList(u"Nota");
  bare.Tipo = u"Nota";
  bare.crs = nota.crs;
  bare.bPermitirCreacion = CNota().bPermitirCreacion;
  desk.whileShown([&] { EXPECT_FALSE(desk.card().toolbars().tool(u"ID_Aniadir")->Enabled()); });
  bare.AbreNota();
}

TEST_F(Surface, a_preset_key_forbids_creation_for_good) {
  givenList(u"Nota");
  nota.IdAnota = 5;
  nota.Tipo = u"";
  nota.CreaNota();
  EXPECT_FALSE(nota.bPermitirCreacion);
  nota.IdAnota = 0;
  nota.CreaNota();
  EXPECT_FALSE(nota.bPermitirCreacion) << "it stays so for later calls";
}

TEST_F(Surface, without_a_preset_key_creation_stays_as_it_was) {
  givenList(u"Nota");
  nota.Tipo = u"";
  for (const std::int32_t key : {0, -5}) {
    nota.IdAnota = key;
    nota.CreaNota();
    EXPECT_TRUE(nota.bPermitirCreacion);
  }
}

TEST_F(Surface, shows_the_row_again_when_the_host_asks) {
  givenList(u"Nota", {{}, {{u"Asunto", u"Segunda"}}});
  desk.whileShown([&] {
    standOn(2);
    nota.RefrescoFicha();
    EXPECT_EQ(desk.card().Caption(), u"Inmueble 120 - Nota: 2/2");
    Text accion = u"Guardar";
    standOn(1);
    nota.RefrescoFicha(accion);
    EXPECT_EQ(desk.card().Caption(), u"Inmueble 120 - Nota: 1/2");
    EXPECT_EQ(accion, u"Guardar");
  });
  nota.AbreNota();
}

TEST_F(Surface, takes_its_hidden_cards_down_with_it) {
  givenList(u"Nota");
  desk.whileShown([&] { desk.card().Hide(); });
  nota.AbreNota();
  EXPECT_EQ(forms::Runtime::current().loadedForms().size(), 1u);
  ends();
  EXPECT_TRUE(forms::Runtime::current().loadedForms().empty());
}

TEST_F(Surface, tells_a_host_that_set_nothing_and_fails_no_further) {
  CNota bare;
  bare.Tipo = u"Nota";
  expectReport(u"AbreNota de CNota", failure::objectNotSet);
  bare.AbreNota();
}

}  // namespace
}  // namespace ovalia
