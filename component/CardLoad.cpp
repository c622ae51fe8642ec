#include "component/CardLoad.h"

#include <array>

#include "cards/Lookups.h"
#include "platform/Platform.h"
#include "routines/PickLists.h"
#include "routines/TextHelpers.h"
#include "routines/Trap.h"
#include "routines/WindowPlace.h"

namespace ovalia {

namespace {

constexpr std::array<TextView, 19> leadTimes{
    u"0 minutos", u"5 minutos", u"10 minutos", u"15 minutos", u"30 minutos", u"1 hora",  u"2 horas",
    u"3 horas",   u"4 horas",   u"5 horas",    u"6 horas",    u"7 horas",    u"8 horas", u"9 horas",
    u"10 horas",  u"11 horas",  u"12 horas",   u"1 día",      u"2 días"};

void fillFromNames(forms::CardForm& card, TextView combo, TextView table) {
  const auto field = database().TableDefs(table)->Fields().item(u"Nombre");
  CargarListaCampo(database(), *field, card.control(combo), u"", u"");
}

// The second salesperson and the other agency stand in one place; only one of them shows.
void showSecondSalesperson(forms::CardForm& card, bool two) {
  card.control(u"lblAgencia")->setCaption(two ? u"2º Comercial" : u"Otra Agencia");
  card.control(u"cboComercial2")->setVisible(two);
  card.control(u"txtOtraAgencia")->setVisible(!two);
}

void shapeSalespeople(forms::CardForm& card, bool two) {
  const ObjectRef controls = card.Controls();
  if (two) {
    const auto names = database().TableDefs(u"Usuario")->Fields().item(u"Nombre");
    if (ExisteControl(controls, u"cboComercial"))
      CargarListaCampo(database(), *names, card.control(u"cboComercial"), u"", u"");
    if (ExisteControl(controls, u"cboComercial2")) {
      CargarListaCampo(database(), *names, card.control(u"cboComercial2"), u"", u"");
      showSecondSalesperson(card, true);
    }
  } else if (ExisteControl(controls, u"cboComercial")) {
    fillFromNames(card, u"cboComercial", u"Usuario");
    showSecondSalesperson(card, false);
  }
}

void recallPaneWidth(Instance& nota, forms::CardForm& card) {
  if (!ExisteControl(card.Controls(), u"splitDocumentos")) return;
  const auto splitter = card.as<forms::Splitter>(u"splitDocumentos");
  splitter->Tag = Platform::current().settings->get(getMember(nota.nota.cApp, u"title").toText(), card.Name(),
                                                    u"DocsWidth", Variant(splitter->PaneWidth()).text());
}

}  // namespace

void dNota_Load(Instance& nota) {
  procedure(u"dNota_Load de CNota", [&] {
    forms::CardForm& card = nota.card();
    const ObjectRef controls = card.Controls();
    card.setKeyPreview(false);
    RestaurarVentana(nota.dNota);
    card.Form_Resize();  // a size that is the first one anyway moved nothing, and the panes need their room
    recallPaneWidth(nota, card);
    if (ExisteControl(controls, u"cboAcceso")) fillFromNames(card, u"cboAcceso", nota.nota.TipoAccNota);
    fillFromNames(card, u"cboUsuario", u"Usuario");
    shapeSalespeople(card, nota.nota.DosComerciales);
    if (ExisteControl(controls, u"cboUsuarioAviso")) fillFromNames(card, u"cboUsuarioAviso", u"Usuario");
    if (ExisteControl(controls, u"cboTiempoAviso")) {
      const auto combo = card.as<forms::ComboBox>(u"cboTiempoAviso");
      for (const TextView entry : leadTimes) combo->AddItem(entry);
    }
    if (nota.nota.crs && !ExisteControl(nota.crs().fields(), u"NArchivos")) {
      for (const TextView id : {u"ID_BAdjuntar", u"ID_mnuDocumentos"})
        card.toolbars().tool(id)->setVisible(false);
    }
    card.toolbars().tool(u"ID_Aniadir")->setEnabled(nota.nota.bPermitirCreacion);
  });
}

}  // namespace ovalia
