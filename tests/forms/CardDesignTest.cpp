#include <set>

#include "tests/forms/FormTest.h"

namespace ovalia::forms {
namespace {

class CardDesign : public FormTest {};

struct Expected {
  TextView name;
  ControlType type;
  TextView caption = {};
  TextView tip = {};
};
using enum ControlType;

// The rows that all cards share; their tips stand with each form.
constexpr Expected shared[] = {
    {u"SSAtb", ActiveToolBars},
    {u"splitDocumentos", Splitter},
    {u"txtNotas", TextBox, u"", u"Observaciones de la nota"},
    {u"lblActualizacion", Label},
    {u"ImgClock", Image},
    {u"mnuA", Menu},
    {u"ImgSIcon", ImageList},
    {u"ImgBIcon", ImageList},
};

constexpr Expected note[] = {
    {u"lblAsunto", Label, u"Asunto"},
    {u"txtAsunto", TextBox, u"", u"Breve descripción de la nota"},
    {u"lblAcceso", Label, u"Acceso"},
    {u"cboAcceso", ComboBox, u"", u"Acceso de la nota"},
    {u"ImgKey", Image},
    {u"cmdCategorias", CommandButton, u"&Categorías", u"Listado de posibles categorías"},
    {u"txtCategorias", TextBox, u"", u"Categorías de esta nota"},
    {u"lblFecha", Label, u"Creada el"},
    {u"dtpFechaAlta", DTPicker, u"", u"Fecha de creación"},
    {u"dtpHoraAlta", DTPicker, u"", u"Hora de creación"},
    {u"lblUsuario", Label, u"por"},
    {u"cboUsuario", ComboBox, u"", u"Usuario que escribe la nota"},
    {u"chkAvisoNota", CheckBox, u"Mostrar aviso el"},
    {u"ImgBell", Image},
    {u"dtpFechaAviso", DTPicker, u"", u"Fecha de creación"},
    {u"lblA", Label, u"a"},
    {u"cboUsuarioAviso", ComboBox, u"", u"Usuario que escribe la nota"},
    {u"mnuB", Menu},
};

constexpr Expected visit[] = {
    {u"lblAsunto", Label, u"Asunto"},
    {u"txtAsunto", TextBox, u"", u"Breve descripción de la visita"},
    {u"lblAcceso", Label, u"Acceso"},
    {u"cboAcceso", ComboBox, u"", u"Acceso de la visita"},
    {u"lblCategorias", Label, u"Categorías"},
    {u"cmdCategorias", CommandButton, u"&Categorías"},
    {u"txtCategorias", TextBox},
    {u"lblComienzo", Label, u"Comienzo"},
    {u"dtpFechaAlta", DTPicker, u"", u"Fecha de inicio"},
    {u"dtpHoraAlta", DTPicker, u"", u"Hora de inicio"},
    {u"lblFin", Label, u"Fin"},
    {u"dtpFechaFin", DTPicker, u"", u"Fecha de finalización"},
    {u"dtpHoraFin", DTPicker, u"", u"Hora de finalización"},
    {u"lblDonde", Label, u"Ubicación"},
    {u"txtUbicacion", TextBox, u"", u"Lugar donde se realizará la visita"},
    {u"lblUsuario", Label, u"Cita creada por:"},
    {u"cboUsuario", ComboBox, u"", u"Usuario que escribe la visita"},
    {u"fraAsistentes", Frame, u"Asistentes"},
    {u"lblCliente", Label, u"Visitante"},
    {u"txtCliente", TextBox, u"", u"Cliente que atenderá a la visita"},
    {u"lblTfnoCliente", Label, u"Tfno. Cli"},
    {u"txtTfnoCliente", TextBox},
    {u"lblComercial", Label, u"Comercial"},
    {u"cboComercial", ComboBox, u"", u"Usuario que atenderá la visita"},
    {u"lblAgencia", Label, u"Otra Agencia"},
    {u"txtOtraAgencia", TextBox, u"", u"Breve descripción de la nota"},
    {u"cboComercial2", ComboBox},
    {u"chkAviso", CheckBox, u"Aviso"},
    {u"cboTiempoAviso", ComboBox, u"", u"Tiempo con el que avisar"},
    {u"ImgBell", Image},
    {u"chkConfirmada", CheckBox, u"Confirmada"},
    {u"chkRealizada", CheckBox, u"Realizada"},
    {u"chkAnulada", CheckBox, u"Anulada"},
    {u"cmdCreaDemanda", CommandButton, u"Crear &Demanda"},
    {u"ImgNota", Image, u"", u"Guardar y Nueva"},
};

constexpr Expected advertisement[] = {
    {u"lblDonde", Label, u"Donde"},
    {u"cmdMedioPubli", CommandButton, u"&Donde", u"Cierra la ficha sin guardar"},
    {u"txtDonde", TextBox, u"", u"Breve descripción de la nota"},
    {u"lblAcceso", Label, u"Acceso"},
    {u"cboAcceso", ComboBox},
    {u"ImgKey", Image},
    {u"lblCategorias", Label, u"Categorías"},
    {u"cmdCategorias", CommandButton, u"&Categorías", u"Cierra la ficha sin guardar"},
    {u"txtCategorias", TextBox, u"", u"Breve descripción de la nota"},
    {u"lblComienzo", Label, u"Creado el"},
    {u"dtpFechaAlta", DTPicker, u"", u"Fecha de creación"},
    {u"dtpHoraAlta", DTPicker, u"", u"Hora de creación"},
    {u"lblFin", Label, u"Fecha Inicio"},
    {u"dtpFechaInicio", DTPicker, u"", u"Fecha de creación"},
    {u"lblNDias", Label, u"Nº Días"},
    {u"txtNDias", TextBox, u"", u"Breve descripción de la nota"},
    {u"Label1", Label, u"Enviado el"},
    {u"dtpFechaEnvio", DTPicker, u"", u"Fecha de creación"},
    {u"dtpHoraEnvio", DTPicker, u"", u"Hora de creación"},
    {u"chkEnviar", CheckBox, u"Enviar"},
    {u"lblUsuario", Label, u"por"},
    {u"cboUsuario", ComboBox, u"", u"Usuario que escribe la nota"},
    {u"mnuB", Menu},
};

constexpr Expected call[] = {
    {u"lblFecha", Label, u"Atendida el"},
    {u"dtpFechaAlta", DTPicker, u"", u"Fecha de creación"},
    {u"dtpHoraAlta", DTPicker, u"", u"Hora de creación"},
    {u"lblUsuario", Label, u"por"},
    {u"cboUsuario", ComboBox, u"", u"Usuario que escribe la nota"},
};

struct FormExpected {
  const FormDesign& (*design)();
  TextView name, caption;
  int width, height;            // the smallest at which the layout follows
  int firstWidth, firstHeight;  // until the user has chosen one
  std::span<const Expected> controls;
  std::vector<int> lines;  // indices of fralinea1
};

const std::vector<FormExpected>& forms() {
  static const std::vector<FormExpected> all = {
      {frmNota, u"frmNota", u"Nueva Nota", 6745, 4140, 8250, 6600, note, {0, 1, 2}},
      {frmVisita, u"frmVisita", u"Nueva Cita", 6795, 6420, 8250, 8400, visit, {0, 1}},
      {frmAnuncio, u"frmAnuncio", u"Nueva Anuncio", 6795, 4980, 8250, 7200, advertisement, {0, 1}},
      {frmLlamada, u"frmLlamada", u"Nueva Nota", 6795, 3000, 7800, 5400, call, {1}},
  };
  return all;
}

TEST_F(CardDesign, has_name_caption_and_size_in_the_middle_of_the_screen_at_first) {
  for (const FormExpected& form : forms()) {
    const auto card = made(form.design());
    EXPECT_EQ(card->Name(), form.name);
    EXPECT_EQ(card->Caption(), form.caption);
    EXPECT_EQ(form.design().minimumWidth, form.width);
    EXPECT_EQ(form.design().minimumHeight, form.height);
    EXPECT_EQ(card->Width(), form.firstWidth);
    EXPECT_EQ(card->Height(), form.firstHeight);
    EXPECT_EQ(card->Left(), (here.screen.screenWidth - form.firstWidth) / 2);
    EXPECT_EQ(card->Top(), (here.screen.screenHeight - form.firstHeight) / 2);
    EXPECT_FALSE(card->KeyPreview());
    EXPECT_EQ(card->WindowState(), 0);
  }
}

TEST_F(CardDesign, has_every_control_with_its_type_caption_and_tip) {
  for (const FormExpected& form : forms()) {
    const auto card = made(form.design());
    const auto check = [&](const Expected& row) {
      SCOPED_TRACE(toUtf8(form.name) + "." + toUtf8(row.name));
      ASSERT_TRUE(card->hasControl(row.name));
      const Control& control = *card->control(row.name);
      EXPECT_EQ(control.type(), row.type);
      EXPECT_EQ(control.Caption(), row.caption);
      EXPECT_EQ(control.design().tip, row.tip);
      EXPECT_EQ(card->control(row.name)->get(u"ToolTipText").text(), row.tip);
    };
    for (const Expected& row : shared) check(row);
    for (const Expected& row : form.controls) check(row);
    EXPECT_EQ(card->control(u"LsvDocu")->type(), ListView);
  }
}

TEST_F(CardDesign, has_no_other_control) {
  for (const FormExpected& form : forms()) {
    std::set<Text> names{u"LsvDocu", u"fralinea1"};
    for (const Expected& row : shared) names.emplace(row.name);
    for (const Expected& row : form.controls) names.emplace(row.name);
    for (const ControlDesign& control : form.design().controls)
      EXPECT_EQ(names.count(Text(control.name)), 1u) << toUtf8(form.name) << "." << toUtf8(control.name);
  }
}

TEST_F(CardDesign, has_its_lines_in_an_array) {
  for (const FormExpected& form : forms()) {
    const auto card = made(form.design());
    std::vector<int> lines;
    for (const ControlDesign& control : form.design().controls)
      if (control.name == u"fralinea1") lines.push_back(control.index);
    EXPECT_EQ(lines, form.lines) << toUtf8(form.name);
    for (const int index : form.lines) EXPECT_EQ(card->control(u"fralinea1", index)->Width(), 6375);
  }
}

TEST_F(CardDesign, type_names_are_the_runtimes) {
  EXPECT_EQ(typeName(TextBox), u"TextBox");
  EXPECT_EQ(typeName(ComboBox), u"ComboBox");
  EXPECT_EQ(typeName(CheckBox), u"CheckBox");
  EXPECT_EQ(typeName(DTPicker), u"DTPicker");
  EXPECT_EQ(typeName(ListView), u"ListView");
  EXPECT_EQ(typeName(Label), u"Label");
}

TEST_F(CardDesign, only_the_users_are_drop_down_lists) {
  for (const FormExpected& form : forms())
    for (const ControlDesign& control : form.design().controls)
      EXPECT_EQ((control.style & dropDownList) != 0,
                control.name == u"cboUsuario" || control.name == u"cboUsuarioAviso");
}

TEST_F(CardDesign, only_pickers_of_an_hour_show_the_hour) {
  for (const FormExpected& form : forms())
    for (const ControlDesign& control : form.design().controls)
      EXPECT_EQ((control.style & timeOfDay) != 0, control.name.starts_with(u"dtpHora"));
}

TEST_F(CardDesign, the_frame_holds_those_who_attend) {
  const auto card = made(frmVisita());
  std::set<Text> held;
  for (const ControlDesign& control : frmVisita().controls)
    if (control.container == u"fraAsistentes") held.emplace(control.name);
  EXPECT_EQ(held, (std::set<Text>{u"lblCliente", u"txtCliente", u"lblTfnoCliente", u"txtTfnoCliente",
                                  u"lblComercial", u"cboComercial", u"lblAgencia", u"txtOtraAgencia",
                                  u"cboComercial2"}));
}

TEST_F(CardDesign, the_second_salesperson_stands_where_the_other_agency_does) {
  const auto card = made(frmVisita());
  const Control& agency = *card->control(u"txtOtraAgencia");
  const Control& second = *card->control(u"cboComercial2");
  EXPECT_EQ(second.Left(), agency.Left());
  EXPECT_EQ(second.Top(), agency.Top());
  EXPECT_EQ(second.Width(), agency.Width());
  EXPECT_TRUE(agency.Visible());
  EXPECT_FALSE(second.Visible());
}

TEST_F(CardDesign, containers_and_labels_name_controls_of_the_form) {
  for (const FormExpected& form : forms()) {
    const auto card = made(form.design());
    for (const ControlDesign& control : form.design().controls) {
      EXPECT_TRUE(control.container.empty() || card->hasControl(control.container)) << toUtf8(control.name);
      EXPECT_TRUE(control.label.empty() || card->hasControl(control.label)) << toUtf8(control.name);
    }
  }
}

TEST_F(CardDesign, the_demand_button_does_nothing) {
  shown(frmVisita(), [&](Card& card) {
    user.enters(u"LsvDocu");
    EXPECT_EQ(card.raisedBy([&] { user.clicks(u"cmdCreaDemanda"); }), Names{});
  });
}

}  // namespace
}  // namespace ovalia::forms
