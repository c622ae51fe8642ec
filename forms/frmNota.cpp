#include <array>

#include "forms/CardForm.h"
#include "forms/CardMasks.h"

namespace ovalia::forms {

namespace {

using enum ControlType;

constexpr auto controls = std::to_array<ControlDesign>({
    {u"SSAtb", ActiveToolBars, plain},
    {u"lblAsunto", Label, plain, u"Asunto", u"", 120, 135, 690, 225},
    {u"txtAsunto", TextBox, plain, u"", u"Breve descripción de la nota", 840, 90, 5655, 315, 0, u"",
     u"lblAsunto"},
    {u"lblAcceso", Label, plain, u"Acceso", u"", 120, 525, 690, 225},
    {u"cboAcceso", ComboBox, plain, u"", u"Acceso de la nota", 840, 480, 1665, 315, 1, u"", u"lblAcceso"},
    {u"ImgKey", Image, plain, u"", u"", 2550, 517, 240, 240},
    {u"cmdCategorias", CommandButton, plain, u"&Categorías", u"Listado de posibles categorías", 2850, 480,
     1050, 315, 2},
    {u"txtCategorias", TextBox, plain, u"", u"Categorías de esta nota", 3960, 480, 2535, 315, 3, u"",
     u"cmdCategorias"},
    {u"fralinea1", Line, plain, u"", u"", 120, 855, 6375, 30, -1, u"", u"", 0},
    {u"ImgClock", Image, plain, u"", u"", 120, 967, 240, 240},
    {u"lblFecha", Label, plain, u"Creada el", u"", 405, 975, 855, 225},
    {u"dtpFechaAlta", DTPicker, plain, u"", u"Fecha de creación", 1290, 930, 1470, 315, 4, u"", u"lblFecha"},
    {u"dtpHoraAlta", DTPicker, timeOfDay, u"", u"Hora de creación", 2820, 930, 1200, 315, 5, u"",
     u"lblFecha"},
    {u"lblUsuario", Label, plain, u"por", u"", 4620, 975, 390, 225},
    {u"cboUsuario", ComboBox, dropDownList, u"", u"Usuario que escribe la nota", 5040, 930, 1455, 315, 6, u"",
     u"lblUsuario"},
    {u"fralinea1", Line, plain, u"", u"", 120, 1305, 6375, 30, -1, u"", u"", 1},
    {u"ImgBell", Image, plain, u"", u"", 120, 1417, 240, 240},
    {u"chkAvisoNota", CheckBox, plain, u"Mostrar aviso el", u"", 405, 1395, 1725, 285, 7},
    {u"dtpFechaAviso", DTPicker, plain, u"", u"Fecha de creación", 2190, 1380, 1470, 315, 8, u"",
     u"chkAvisoNota"},
    {u"lblA", Label, plain, u"a", u"", 3720, 1425, 180, 225},
    {u"cboUsuarioAviso", ComboBox, dropDownList, u"", u"Usuario que escribe la nota", 3930, 1380, 2565, 315,
     9, u"", u"lblA"},
    {u"fralinea1", Line, plain, u"", u"", 120, 1755, 6375, 30, -1, u"", u"", 2},
    {u"splitDocumentos", Splitter, plain, u"", u"", 120, 1830, 6375, 920},
    {u"LsvDocu", ListView, labelEdit, u"Documentos", u"", 0, 0, 2200, 920, 11, u"splitDocumentos"},
    {u"txtNotas", TextBox, multiLine, u"", u"Observaciones de la nota", 2200, 0, 4175, 920, 10,
     u"splitDocumentos"},
    {u"lblActualizacion", Label, hidden, u"", u"", 120, 2750, 1800, 225},
    {u"ImgSIcon", ImageList, hidden},
    {u"ImgBIcon", ImageList, hidden},
    {u"mnuA", Menu, hidden},
    {u"mnuB", Menu, hidden},
});

constexpr auto events = std::to_array<EventRow>({
    {u"txtAsunto", textEvents, u"Asunto"},
    {u"cboAcceso", comboEvents | onShiftEnter, u"TipoAccNota"},
    {u"cmdCategorias", onClickList},
    {u"txtCategorias", textEvents | onShiftEnter, u"Categorias"},
    {u"dtpFechaAlta", textEvents, u"FechaAlta"},
    {u"dtpHoraAlta", textEvents, u"FechaAlta"},
    {u"cboUsuario", dropDownEvents | onShiftEnter, u"Usuario"},
    {u"chkAvisoNota", checkEvents, u"Aviso"},
    {u"dtpFechaAviso", textEvents, u"FechaAviso"},
    {u"cboUsuarioAviso", dropDownEvents | onShiftEnter, u"UsuarioAviso"},
    {u"txtNotas", textEvents | onDrag, u"Notas"},
    {u"LsvDocu", onDrag | onItems | onLabelEdit},
});

constexpr auto resizes = std::to_array<ResizeRow>({
    {u"txtCategorias", MovedProperty::Width, 2535},
    {u"txtAsunto", MovedProperty::Width, 5655},
    {u"lblUsuario", MovedProperty::Left, 4620},
    {u"cboUsuario", MovedProperty::Left, 5040},
    {u"splitDocumentos", MovedProperty::Width, 6375},
    {u"fralinea1", MovedProperty::Width, 6375, 0},
    {u"fralinea1", MovedProperty::Width, 6375, 1},
    {u"fralinea1", MovedProperty::Width, 6375, 2},
});

constexpr FormDesign design{u"frmNota",
                            u"Nueva Nota",
                            6745,
                            4140,
                            controls,
                            events,
                            resizes,
                            nota,
                            u"Form_Resize de frmNota",
                            u"SSAtb_ToolClick de frmNota",
                            u"BuscarElemento de frmNota",
                            u"cmdCancelar_Click de frmNota",
                            8250,
                            6600};

}  // namespace

const FormDesign& frmNota() { return design; }

}  // namespace ovalia::forms
