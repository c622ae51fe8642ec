#include <array>

#include "forms/CardForm.h"
#include "forms/CardMasks.h"

namespace ovalia::forms {

namespace {

using enum ControlType;

constexpr auto controls = std::to_array<ControlDesign>({
    {u"SSAtb", ActiveToolBars, plain},
    {u"lblDonde", Label, hidden, u"Donde", u"", 150, 135, 1020, 225},
    {u"cmdMedioPubli", CommandButton, plain, u"&Donde", u"Cierra la ficha sin guardar", 150, 90, 1020, 315,
     1},
    {u"txtDonde", TextBox, plain, u"", u"Breve descripción de la nota", 1230, 90, 5295, 315, 0, u"",
     u"lblDonde"},
    {u"lblAcceso", Label, plain, u"Acceso", u"", 150, 510, 720, 225},
    {u"ImgKey", Image, plain, u"", u"", 915, 502, 240, 240},
    {u"cboAcceso", ComboBox, plain, u"", u"", 1230, 465, 1560, 315, 2, u"", u"lblAcceso"},
    {u"lblCategorias", Label, hidden, u"Categorías", u"", 2865, 510, 1050, 225},
    {u"cmdCategorias", CommandButton, plain, u"&Categorías", u"Cierra la ficha sin guardar", 2865, 465, 1050,
     315, 3},
    {u"txtCategorias", TextBox, plain, u"", u"Breve descripción de la nota", 3990, 465, 2535, 315, 4, u"",
     u"lblCategorias"},
    {u"fralinea1", Line, plain, u"", u"", 150, 840, 6375, 30, -1, u"", u"", 0},
    {u"lblComienzo", Label, plain, u"Creado el", u"", 150, 960, 1020, 225},
    {u"dtpFechaAlta", DTPicker, plain, u"", u"Fecha de creación", 1230, 915, 1560, 315, 5, u"",
     u"lblComienzo"},
    {u"dtpHoraAlta", DTPicker, timeOfDay, u"", u"Hora de creación", 2850, 915, 1170, 315, 6, u"",
     u"lblComienzo"},
    {u"ImgClock", Image, plain, u"", u"", 4095, 952, 240, 240},
    {u"lblUsuario", Label, plain, u"por", u"", 4740, 960, 330, 225},
    {u"cboUsuario", ComboBox, dropDownList, u"", u"Usuario que escribe la nota", 5100, 915, 1425, 315, 7, u"",
     u"lblUsuario"},
    {u"lblFin", Label, plain, u"Fecha Inicio", u"", 150, 1335, 1050, 225},
    {u"dtpFechaInicio", DTPicker, plain, u"", u"Fecha de creación", 1230, 1290, 1560, 315, 8, u"", u"lblFin"},
    {u"lblNDias", Label, plain, u"Nº Días", u"", 3360, 1335, 750, 225},
    {u"txtNDias", TextBox, plain, u"", u"Breve descripción de la nota", 4140, 1290, 600, 315, 9, u"",
     u"lblNDias"},
    {u"Label1", Label, plain, u"Enviado el", u"", 150, 1710, 1020, 225},
    {u"dtpFechaEnvio", DTPicker, nullable, u"", u"Fecha de creación", 1230, 1665, 1560, 315, 10, u"",
     u"Label1"},
    {u"dtpHoraEnvio", DTPicker, timeOfDay, u"", u"Hora de creación", 2850, 1665, 1170, 315, 11, u"",
     u"Label1"},
    {u"chkEnviar", CheckBox, plain, u"Enviar", u"", 5100, 1680, 1200, 285, 12},
    {u"fralinea1", Line, plain, u"", u"", 150, 2040, 6375, 30, -1, u"", u"", 1},
    {u"splitDocumentos", Splitter, plain, u"", u"", 150, 2115, 6375, 1475},
    {u"LsvDocu", ListView, plain, u"Documentos", u"", 0, 0, 2200, 1475, 14, u"splitDocumentos"},
    {u"txtNotas", TextBox, multiLine, u"", u"Observaciones de la nota", 2200, 0, 4175, 1475, 13,
     u"splitDocumentos"},
    {u"lblActualizacion", Label, hidden, u"", u"", 150, 3590, 1800, 225},
    {u"ImgSIcon", ImageList, hidden},
    {u"ImgBIcon", ImageList, hidden},
    {u"mnuA", Menu, hidden},
    {u"mnuB", Menu, hidden},
});

constexpr auto events = std::to_array<EventRow>({
    {u"cmdMedioPubli", onClickList},
    {u"txtDonde", textEvents | onShiftEnter, u"Donde"},
    {u"cboAcceso", comboEvents | onShiftEnter, u"TipoAccNota"},
    {u"cmdCategorias", onClickList},
    {u"txtCategorias", textEvents | onShiftEnter, u"Categorias"},
    {u"dtpFechaAlta", textEvents, u"FechaAlta"},
    {u"dtpHoraAlta", textEvents, u"FechaAlta"},
    {u"cboUsuario", dropDownEvents, u"Usuario"},
    {u"dtpFechaInicio", textEvents, u"FechaInicio"},
    {u"txtNDias", textEvents, u"NDias"},
    {u"dtpFechaEnvio", textEvents, u"FechaEnvio"},
    {u"dtpHoraEnvio", textEvents, u"FechaEnvio"},
    {u"chkEnviar", checkEvents, u"Enviar"},
    {u"txtNotas", textEvents | onDrag, u"Notas"},
    {u"LsvDocu", onDrag | onItems},
});

constexpr auto resizes = std::to_array<ResizeRow>({
    {u"txtCategorias", MovedProperty::Width, 2535},
    {u"txtDonde", MovedProperty::Width, 5295},
    {u"lblUsuario", MovedProperty::Left, 4740},
    {u"cboUsuario", MovedProperty::Left, 5100},
    {u"fralinea1", MovedProperty::Width, 6375, 0},
    {u"fralinea1", MovedProperty::Width, 6375, 1},
    {u"chkEnviar", MovedProperty::Left, 5100},
    {u"txtNDias", MovedProperty::Left, 4140},
    {u"lblNDias", MovedProperty::Left, 3360},
    {u"splitDocumentos", MovedProperty::Width, 6375},
});

constexpr FormDesign design{u"frmAnuncio",
                            u"Nueva Anuncio",
                            6795,
                            4980,
                            controls,
                            events,
                            resizes,
                            anuncio,
                            u"Resize en frmAnuncio",
                            u"SSAtb_ToolClick de frmNota",
                            u"BuscarElemento de frmVisita",
                            u"cmdCancelar_Click de frmNuevaNota",
                            8250,
                            7200};

}  // namespace

const FormDesign& frmAnuncio() { return design; }

}  // namespace ovalia::forms
