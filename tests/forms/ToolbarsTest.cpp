#include <algorithm>

#include "tests/forms/FormTest.h"

namespace ovalia::forms {
namespace {

class Toolbars : public FormTest {
 protected:
  // "Abrir Quitar | Pegar": ids without their "ID_", a bar for a separator.
  static std::string contents(Card& card, TextView menu) {
    std::string line;
    for (const Text& id : card.toolbars().contents(menu)) {
      if (!line.empty()) line += ' ';
      line += id.empty() ? "|" : toUtf8(id.substr(id.starts_with(u"ID_") ? 3 : 0));
    }
    return line;
  }
};

struct MenuRowExpected {
  TextView menu;
  const FormDesign& (*design)();
  const char* contents;
};

constexpr MenuRowExpected menus[] = {
    {u"ID_mnuArchivo", frmNota, "EMail ExportarNotas ImportarCorreos | Imprimir | Salir"},
    {u"ID_mnuArchivo", frmVisita, "EMail ExportarVisita ImportarCorreos | Imprimir | Salir"},
    {u"ID_mnuArchivo", frmAnuncio, "Imprimir EMail | Salir"},
    {u"ID_mnuArchivo", frmLlamada, "Imprimir EMail | Salir"},
    {u"ID_mnuDocumentos", frmNota, "Abrir Quitar mnuAdjuntar | CrearModelo | Pegar"},
    {u"ID_mnuDocumentos", frmVisita, "Abrir Quitar mnuAdjuntar | CrearModelo | Pegar"},
    {u"ID_mnuDocumentos", frmAnuncio, "Abrir Quitar mnuAdjuntar | CrearModelo"},
    {u"ID_mnuDocumentos", frmLlamada, "Abrir Quitar mnuAdjuntar | CrearModelo"},
    {u"ID_mnuLsvEnDoc", frmNota,
     "Abrir Guardarcomo | Copiar Pegar | mnuAdjuntar Quitar CrearModelo | mnuVerLsv"},
    {u"ID_mnuLsvEnDoc", frmVisita,
     "Abrir ImprimirLsv Guardarcomo | Copiar Pegar | mnuAdjuntar Quitar CrearModelo | mnuVerLsv"},
    {u"ID_mnuLsvEnDoc", frmAnuncio,
     "Abrir ImprimirLsv Guardarcomo | Copiar Pegar | mnuAdjuntar Quitar CrearModelo | mnuVerLsv"},
    {u"ID_mnuLsvEnDoc", frmLlamada,
     "Abrir ImprimirLsv Guardarcomo | Copiar Pegar | mnuAdjuntar Quitar CrearModelo | mnuVerLsv"},
    {u"Herramientas", frmNota,
     "Primero Anterior Siguiente Ultimo | Aniadir Guardar DeshacerCambios BAdjuntar | Buscar Imprimir | "
     "EMail "
     "ExportarNotas ImportarCorreos | Borrar"},
    {u"Herramientas", frmVisita,
     "Primero Anterior Siguiente Ultimo | Aniadir Guardar DeshacerCambios BAdjuntar | Buscar Imprimir | "
     "EMail "
     "ExportarVisita | Borrar"},
    {u"Herramientas", frmAnuncio,
     "Primero Anterior Siguiente Ultimo | Aniadir Guardar DeshacerCambios BAdjuntar | Buscar Imprimir EMail "
     "| "
     "Borrar"},
    {u"Herramientas", frmLlamada,
     "Primero Anterior Siguiente Ultimo | Aniadir Guardar DeshacerCambios BAdjuntar | Buscar Imprimir EMail "
     "| "
     "Borrar"},
};

TEST_F(Toolbars, hold_what_each_form_has_in_its_order) {
  for (const MenuRowExpected& row : menus)
    EXPECT_EQ(contents(*made(row.design()), row.menu), row.contents) << toUtf8(row.menu);
}

TEST_F(Toolbars, hold_the_same_on_all_forms_elsewhere) {
  const std::pair<TextView, const char*> same[] = {
      {u"Menu", "mnuArchivo mnuFichas mnuVer mnuDocumentos mnuAyuda"},
      {u"ID_mnuFichas", "Aniadir Guardar Borrar DeshacerCambios | Buscar"},
      {u"ID_mnuVer", "Primero Anterior Siguiente Ultimo"},
      {u"ID_mnuAyuda", "Contenido AcercadelPrograma"},
      {u"ID_mnuAdjuntar", "Documento Plantilla Modelo"},
      {u"ID_mnuLsv", "Pegar mnuAdjuntar mnuVerLsv"},
      {u"ID_mnuVerLsv", "IconosPequenios IconosGrandes Lista"}};
  for (const FormDesign* design : allCardDesigns())
    for (const auto& [menu, expected] : same)
      EXPECT_EQ(contents(*made(*design), menu), expected) << toUtf8(design->name) << toUtf8(menu);
}

TEST_F(Toolbars, every_place_on_a_menu_is_a_tool_of_the_form) {
  for (const FormDesign* design : allCardDesigns()) {
    const auto card = made(*design);
    for (const MenuRow& row : menuRows())
      if (!row.id.empty() && (row.forms & design->mask)) {
        EXPECT_EQ(card->toolbars().tool(row.id)->id, row.id);
      }
  }
}

struct ToolExpected {
  TextView group;
  TextView id;
  TextView caption;
  TextView tip = {};
};

// Where the forms differ the row stands in the test below.
constexpr ToolExpected tools[] = {
    {u"Archivo", u"ID_mnuArchivo", u"&Archivo"},
    {u"Archivo", u"ID_EMail", u"&Enviar Correo", u"Envío de Correo Electrónico"},
    {u"Archivo", u"ID_Salir", u"&Salir"},
    {u"Fichas", u"ID_mnuFichas", u"&Fichas"},
    {u"Fichas", u"ID_Aniadir", u"&Nueva Nota"},
    {u"Fichas", u"ID_Guardar", u"&Guardar"},
    {u"Fichas", u"ID_Borrar", u"&Borrar"},
    {u"Fichas", u"ID_DeshacerCambios", u"&Deshacer Cambios"},
    {u"Fichas", u"ID_Buscar", u"B&uscar"},
    {u"Ver", u"ID_mnuVer", u"&Ver"},
    {u"Navegacion", u"ID_Primero", u"Primero", u"Primera Ficha"},
    {u"Navegacion", u"ID_Anterior", u"Anterior", u"Ficha Anterior"},
    {u"Navegacion", u"ID_Siguiente", u"Siguiente", u"Siguiente Ficha"},
    {u"Navegacion", u"ID_Ultimo", u"Ultimo", u"Ultima Ficha"},
    {u"Documentos", u"ID_mnuDocumentos", u"&Documentos"},
    {u"Documentos", u"ID_mnuAdjuntar", u"A&djuntar"},
    {u"Documentos", u"ID_BAdjuntar", u"BAdjuntar", u"Adjuntar documento"},
    {u"Documentos", u"ID_Documento", u"&Documento"},
    {u"Documentos", u"ID_Plantilla", u"&Plantilla"},
    {u"Documentos", u"ID_Modelo", u"&Modelo"},
    {u"Documentos", u"ID_CrearModelo", u"&Crear Modelo"},
    {u"Documentos", u"ID_Abrir", u"&Abrir"},
    {u"Documentos", u"ID_Quitar", u"&Quitar"},
    {u"Documentos", u"ID_Copiar", u"&Copiar"},
    {u"Documentos", u"ID_Pegar", u"&Pegar"},
    {u"Documentos", u"ID_Guardarcomo", u"&Guardar como"},
    {u"Documentos", u"ID_ImprimirLsv", u"&Imprimir"},
    {u"ListView", u"ID_mnuLsv", u"Lsv"},
    {u"ListView", u"ID_mnuLsvEnDoc", u"EnDoc"},
    {u"ListView", u"ID_mnuVerLsv", u"&Ver"},
    {u"ListView", u"ID_IconosGrandes", u"Iconos &Grandes"},
    {u"ListView", u"ID_IconosPequenios", u"Iconos &Pequeños"},
    {u"ListView", u"ID_Lista", u"&Lista"},
    {u"Ayuda", u"ID_mnuAyuda", u"A&yuda"},
    {u"Ayuda", u"ID_Contenido", u"&Contenido e índice"},
    {u"Ayuda", u"ID_AcercadelPrograma", u"&Acerca del Programa ..."},
};

TEST_F(Toolbars, tools_have_their_group_caption_and_tip) {
  for (const FormDesign* design : allCardDesigns()) {
    const auto card = made(*design);
    for (const ToolExpected& row : tools) {
      const auto tool = card->toolbars().tool(row.id);
      EXPECT_EQ(tool->group, row.group) << toUtf8(row.id);
      EXPECT_EQ(tool->caption, row.caption) << toUtf8(row.id);
      EXPECT_EQ(tool->tip, row.tip) << toUtf8(row.id);
      EXPECT_TRUE(tool->Enabled() && tool->Visible()) << toUtf8(row.id);
    }
  }
}

TEST_F(Toolbars, a_form_has_these_tools_and_no_others) {
  const std::pair<const FormDesign&, Names> own[] = {
      {frmNota(), {u"ID_ExportarNotas", u"ID_ImportarCorreos", u"ID_Imprimir"}},
      {frmVisita(), {u"ID_ExportarVisita", u"ID_ImportarCorreos", u"ID_Imprimir"}},
      {frmAnuncio(), {u"ID_Imprimir"}},
      {frmLlamada(), {u"ID_Imprimir"}}};
  for (const auto& [design, others] : own) {
    Names expected = others, ids;
    for (const ToolExpected& row : tools) expected.emplace_back(row.id);
    const auto card = made(design);
    for (const auto& tool : card->toolbars().tools()) ids.push_back(tool->id);
    std::ranges::sort(expected);
    std::ranges::sort(ids);
    EXPECT_EQ(ids, expected) << toUtf8(design.name);
  }
}

TEST_F(Toolbars, some_captions_differ_from_form_to_form) {
  const auto captionOn = [&](const FormDesign& design, TextView id) {
    return made(design)->toolbars().tool(id)->caption;
  };
  EXPECT_EQ(captionOn(frmNota(), u"ID_ExportarNotas"), u"E&xportar Notas");
  EXPECT_EQ(captionOn(frmVisita(), u"ID_ExportarVisita"), u"Exportar Visita");
  EXPECT_EQ(captionOn(frmNota(), u"ID_ImportarCorreos"), u"I&mportar Correos");
  EXPECT_EQ(captionOn(frmVisita(), u"ID_ImportarCorreos"), u"Importar Correos");
  EXPECT_EQ(captionOn(frmNota(), u"ID_Imprimir"), u"Im&primir");
  EXPECT_EQ(captionOn(frmVisita(), u"ID_Imprimir"), u"&Imprimir");
  EXPECT_EQ(captionOn(frmAnuncio(), u"ID_Imprimir"), u"Im&primir");
  EXPECT_EQ(captionOn(frmLlamada(), u"ID_Imprimir"), u"&Imprimir");
}

TEST_F(Toolbars, a_tool_that_a_form_lacks_fails) {
  EXPECT_EQ(failureOf([&] { made(frmNota())->toolbars().tool(u"ID_mnuOrden"); }), failure::elementNotFound);
  EXPECT_EQ(failureOf([&] { made(frmNota())->toolbars().tool(u"ID_ExportarVisita"); }),
            failure::elementNotFound);
  EXPECT_EQ(failureOf([&] { made(frmNota())->toolbars().PopupMenu(u"ID_Guardar"); }),
            failure::elementNotFound);
}

TEST_F(Toolbars, each_id_is_one_tool) {
  for (const FormDesign* design : allCardDesigns()) {
    const auto card = made(*design);
    Names ids;
    for (const auto& tool : card->toolbars().tools()) ids.push_back(tool->id);
    std::ranges::sort(ids);
    EXPECT_EQ(std::ranges::adjacent_find(ids), ids.end()) << toUtf8(design->name);
  }
}

TEST_F(Toolbars, a_selected_tool_reports_group_and_id) {
  shown(frmNota(), [&](Card& card) {
    EXPECT_EQ(card.raisedBy([&] { user.clicks(u"ID_Primero"); }), Names{u"Menu Navegacion ID_Primero"});
    EXPECT_EQ(card.raisedBy([&] { user.clicks(u"ID_BAdjuntar"); }), Names{u"Menu Documentos ID_BAdjuntar"})
        << "the face of the button is a tool like any other";
    EXPECT_TRUE(desk.popups.empty());
  });
}

TEST_F(Toolbars, a_disabled_or_hidden_tool_reports_nothing) {
  shown(frmNota(), [&](Card& card) {
    ActiveToolBars& bars = card.toolbars();
    bars.tool(u"ID_Guardar")->setEnabled(false);
    bars.tool(u"ID_BAdjuntar")->setVisible(false);
    bars.tool(u"ID_mnuDocumentos")->setVisible(false);
    EXPECT_EQ(card.raisedBy([&] {
      bars.userSelects(u"ID_Guardar");
      bars.userSelects(u"ID_BAdjuntar");
      bars.userPressesArrow(u"ID_BAdjuntar", {});
      bars.userOpensMenu(u"ID_mnuDocumentos");
    }),
              Names{});
    EXPECT_TRUE(desk.popups.empty());
    EXPECT_EQ(desk.tools, (Names{u"ID_Guardar", u"ID_BAdjuntar", u"ID_mnuDocumentos"})) << "told to the view";
  });
}

TEST_F(Toolbars, the_menus_that_depend_on_the_moment_report_themselves_before_they_show) {
  shown(frmNota(), [&](Card& card) {
    EXPECT_EQ(card.raisedBy([&] {
      for (const TextView menu : {u"ID_mnuArchivo", u"ID_mnuFichas", u"ID_mnuVer", u"ID_mnuDocumentos",
                                  u"ID_mnuAyuda", u"ID_mnuAdjuntar", u"ID_mnuVerLsv"})
        user.opensMenu(menu);
    }),
              Names{u"Menu Documentos ID_mnuDocumentos"});
    card.Menu.connect([&](Text&, Text&) { EXPECT_TRUE(desk.popups.empty()); });
    EXPECT_EQ(card.raisedBy([&] { card.toolbars().PopupMenu(u"ID_mnuLsv"); }),
              Names{u"Menu ListView ID_mnuLsv"});
    EXPECT_EQ(desk.popups.size(), 1u);
  });
}

TEST_F(Toolbars, the_arrow_of_the_attach_button_pops_up_its_menu_where_it_was_pressed) {
  for (const FormDesign* design : allCardDesigns())
    shown(*design, [&](Card& card) {
      desk.popups.clear();
      EXPECT_EQ(card.raisedBy([&] { user.pressesArrow(u"ID_BAdjuntar", {120, 340}); }), Names{});
      ASSERT_EQ(desk.popups.size(), 1u);
      EXPECT_EQ(desk.popups[0].menu, u"ID_mnuAdjuntar");
      EXPECT_EQ(desk.popups[0].at->x, 120);
      EXPECT_EQ(desk.popups[0].at->y, 340);
      user.pressesArrow(u"ID_Guardar");
      EXPECT_EQ(desk.popups.size(), 1u) << "no other tool has one";
    });
}

TEST_F(Toolbars, are_late_bound_as_tools_by_id) {
  const auto card = made(frmNota());
  const ObjectRef bars = card->control(u"SSAtb");
  const ObjectRef tool = getMember(bars, u"Tools", {u"ID_Aniadir"}).toObject();
  putMember(tool, u"Enabled", false);
  putMember(tool, u"Visible", false);
  EXPECT_FALSE(card->toolbars().tool(u"ID_Aniadir")->Enabled());
  EXPECT_FALSE(getMember(tool, u"enabled").toBoolean());
  EXPECT_FALSE(getMember(tool, u"Visible").toBoolean());
  EXPECT_EQ(getMember(tool, u"ID").text(), u"ID_Aniadir");
  EXPECT_EQ(getMember(tool, u"Category").text(), u"Fichas");
  EXPECT_EQ(getMember(tool, u"Caption").text(), u"&Nueva Nota");
  EXPECT_EQ(getMember(tool, u"ToolTipText").text(), u"");
  EXPECT_EQ(failureOf([&] { getMember(tool, u"Nada"); }), failure::noSuchMember);
  EXPECT_EQ(failureOf([&] { putMember(tool, u"ID", u"x"); }), failure::noSuchMember);
  EXPECT_EQ(failureOf([&] { callMember(tool, u"Click"); }), failure::noSuchMember);
  EXPECT_EQ(failureOf([&] { getMember(bars, u"Tools", {u"ID_mnuOrden"}); }), failure::elementNotFound);
  EXPECT_EQ(failureOf([&] { getMember(bars, u"Tools"); }), failure::wrongArguments);
}

TEST_F(Toolbars, pop_up_late_bound_with_or_without_a_place) {
  const auto card = made(frmNota());
  const ObjectRef bars = card->control(u"SSAtb");
  callMember(bars, u"PopupMenu", {u"ID_mnuAdjuntar"});
  callMember(bars, u"PopupMenu", {u"ID_mnuAdjuntar", 3, 4});
  ASSERT_EQ(desk.popups.size(), 2u);
  EXPECT_FALSE(desk.popups[0].at);
  EXPECT_EQ(desk.popups[1].at->y, 4);
  EXPECT_EQ(failureOf([&] {
              callMember(bars, u"PopupMenu", {u"ID_mnuAdjuntar", 3});
            }),
            failure::wrongArguments);
}

}  // namespace
}  // namespace ovalia::forms
