#include <array>

#include "forms/CardForm.h"
#include "forms/CardMasks.h"

namespace ovalia::forms {

namespace {

using enum ControlType;

constexpr auto controls = std::to_array<ControlDesign>({
    {u"SSAtb", ActiveToolBars, plain},
    {u"lblAsunto", Label, plain, u"Asunto", u"", 150, 135, 870, 225},
    {u"txtAsunto", TextBox, plain, u"", u"Breve descripción de la visita", 1050, 90, 5475, 315, 0, u"",
     u"lblAsunto"},
    {u"lblAcceso", Label, plain, u"Acceso", u"", 150, 510, 870, 225},
    {u"cboAcceso", ComboBox, plain, u"", u"Acceso de la visita", 1050, 465, 1725, 315, 1, u"", u"lblAcceso"},
    {u"lblCategorias", Label, hidden, u"Categorías", u"", 2865, 510, 1050, 225},
    {u"cmdCategorias", CommandButton, plain, u"&Categorías", u"", 2865, 465, 1050, 315, 2},
    {u"txtCategorias", TextBox, plain, u"", u"", 3990, 465, 2535, 315, 3, u"", u"lblCategorias"},
    {u"fralinea1", Line, plain, u"", u"", 150, 840, 6375, 30, -1, u"", u"", 0},
    {u"lblComienzo", Label, plain, u"Comienzo", u"", 150, 960, 870, 225},
    {u"dtpFechaAlta", DTPicker, plain, u"", u"Fecha de inicio", 1050, 915, 1470, 315, 4, u"", u"lblComienzo"},
    {u"dtpHoraAlta", DTPicker, timeOfDay, u"", u"Hora de inicio", 2580, 915, 1200, 315, 5, u"",
     u"lblComienzo"},
    {u"ImgClock", Image, plain, u"", u"", 3870, 952, 240, 240},
    {u"lblUsuario", Label, plain, u"Cita creada por:", u"", 4800, 960, 1725, 225},
    {u"lblFin", Label, plain, u"Fin", u"", 150, 1335, 870, 225},
    {u"dtpFechaFin", DTPicker, plain, u"", u"Fecha de finalización", 1050, 1290, 1470, 315, 6, u"",
     u"lblFin"},
    {u"dtpHoraFin", DTPicker, timeOfDay, u"", u"Hora de finalización", 2580, 1290, 1200, 315, 7, u"",
     u"lblFin"},
    {u"cboUsuario", ComboBox, dropDownList, u"", u"Usuario que escribe la visita", 4920, 1290, 1605, 315, 8,
     u"", u"lblUsuario"},
    {u"lblDonde", Label, plain, u"Ubicación", u"", 150, 1710, 870, 225},
    {u"txtUbicacion", TextBox, plain, u"", u"Lugar donde se realizará la visita", 1050, 1665, 5475, 315, 9,
     u"", u"lblDonde"},
    {u"fraAsistentes", Frame, plain, u"Asistentes", u"", 150, 2025, 6375, 1110},
    {u"lblCliente", Label, plain, u"Visitante", u"", 120, 375, 780, 225, -1, u"fraAsistentes"},
    {u"txtCliente", TextBox, plain, u"", u"Cliente que atenderá a la visita", 900, 330, 1980, 315, 10,
     u"fraAsistentes", u"lblCliente"},
    {u"lblComercial", Label, plain, u"Comercial", u"", 3000, 375, 1110, 225, -1, u"fraAsistentes"},
    {u"cboComercial", ComboBox, plain, u"", u"Usuario que atenderá la visita", 4140, 330, 2115, 315, 11,
     u"fraAsistentes", u"lblComercial"},
    {u"lblTfnoCliente", Label, plain, u"Tfno. Cli", u"", 120, 750, 780, 225, -1, u"fraAsistentes"},
    {u"txtTfnoCliente", TextBox, readOnly, u"", u"", 900, 705, 1980, 315, 12, u"fraAsistentes",
     u"lblTfnoCliente"},
    {u"lblAgencia", Label, plain, u"Otra Agencia", u"", 3000, 750, 1110, 225, -1, u"fraAsistentes"},
    {u"txtOtraAgencia", TextBox, plain, u"", u"Breve descripción de la nota", 4140, 705, 2115, 315, 13,
     u"fraAsistentes", u"lblAgencia"},
    {u"cboComercial2", ComboBox, hidden, u"", u"", 4140, 705, 2115, 315, 14, u"fraAsistentes", u"lblAgencia"},
    {u"ImgBell", Image, plain, u"", u"", 150, 3217, 240, 240},
    {u"chkAviso", CheckBox, plain, u"Aviso", u"", 435, 3195, 840, 285, 15},
    {u"cboTiempoAviso", ComboBox, plain, u"", u"Tiempo con el que avisar", 1305, 3180, 1500, 315, 16, u"",
     u"chkAviso"},
    {u"chkConfirmada", CheckBox, plain, u"Confirmada", u"", 3000, 3195, 1320, 285, 17},
    {u"chkRealizada", CheckBox, plain, u"Realizada", u"", 4380, 3195, 1200, 285, 18},
    {u"chkAnulada", CheckBox, plain, u"Anulada", u"", 5640, 3195, 1020, 285, 19},
    {u"cmdCreaDemanda", CommandButton, plain, u"Crear &Demanda", u"", 150, 3570, 1680, 315, 20},
    {u"ImgNota", Image, plain, u"", u"Guardar y Nueva", 1905, 3607, 240, 240},
    {u"fralinea1", Line, plain, u"", u"", 150, 3975, 6375, 30, -1, u"", u"", 1},
    {u"splitDocumentos", Splitter, plain, u"", u"", 150, 4050, 6375, 980},
    {u"LsvDocu", ListView, plain, u"Documentos", u"", 0, 0, 2200, 980, 22, u"splitDocumentos"},
    {u"txtNotas", TextBox, multiLine, u"", u"Observaciones de la nota", 2200, 0, 4175, 980, 21,
     u"splitDocumentos"},
    {u"lblActualizacion", Label, hidden, u"", u"", 150, 5030, 1800, 225},
    {u"ImgSIcon", ImageList, hidden},
    {u"ImgBIcon", ImageList, hidden},
    {u"mnuA", Menu, hidden},
});

constexpr auto events = std::to_array<EventRow>({
    {u"txtAsunto", textEvents, u"Asunto"},
    {u"cboAcceso", comboEvents | onShiftEnter, u"TipoAccNota"},
    {u"cmdCategorias", onClickList},
    {u"txtCategorias", textEvents | onShiftEnter, u"Categorias"},
    {u"dtpFechaAlta", textEvents | onVisitTime, u"FechaComienzo"},
    {u"dtpHoraAlta", textEvents | onVisitTime, u"FechaComienzo"},
    {u"dtpFechaFin", textEvents | onVisitTime, u"FechaFin"},
    {u"dtpHoraFin", textEvents | onVisitTime, u"FechaFin"},
    {u"cboUsuario", dropDownEvents, u"Usuario"},
    {u"txtUbicacion", textEvents, u"Donde"},
    {u"txtCliente", textEvents | onShiftEnter | onDblClickList, u"Cliente"},
    {u"cboComercial", comboEvents, u"IdComercial"},
    {u"txtOtraAgencia", textEvents | onShiftEnter, u"Agencia"},
    {u"cboComercial2", comboEvents, u"IdComercial2"},
    {u"chkAviso", checkEvents, u"Aviso"},
    {u"cboTiempoAviso", comboEvents, u"TiempoAviso"},
    {u"chkConfirmada", checkEvents, u"Confirmada"},
    {u"chkRealizada", checkEvents, u"Realizada"},
    {u"chkAnulada", checkEvents, u"Anulada"},
    {u"txtNotas", textEvents | onDrag, u"Notas"},
    {u"LsvDocu", onDrag},
});

constexpr auto resizes = std::to_array<ResizeRow>({
    {u"txtCategorias", MovedProperty::Width, 2535},
    {u"txtAsunto", MovedProperty::Width, 5475},
    {u"txtUbicacion", MovedProperty::Width, 5475},
    {u"lblUsuario", MovedProperty::Left, 4800},
    {u"lblAgencia", MovedProperty::Left, 3000},
    {u"cboUsuario", MovedProperty::Left, 4920},
    {u"splitDocumentos", MovedProperty::Width, 6375},
    {u"fralinea1", MovedProperty::Width, 6375, 0},
    {u"fralinea1", MovedProperty::Width, 6375, 1},
    {u"chkConfirmada", MovedProperty::Left, 3000},
    {u"chkRealizada", MovedProperty::Left, 4380},
    {u"chkAnulada", MovedProperty::Left, 5640},
    {u"cboComercial2", MovedProperty::Left, 4140},
    {u"fraAsistentes", MovedProperty::Width, 6375},
    {u"lblComercial", MovedProperty::Left, 3000},
    {u"cboComercial", MovedProperty::Left, 4140},
    {u"lblAgencia", MovedProperty::Left, 3000},
    {u"txtOtraAgencia", MovedProperty::Left, 4140},
});

constexpr FormDesign design{u"frmVisita",
                            u"Nueva Cita",
                            6795,
                            6420,
                            controls,
                            events,
                            resizes,
                            visita,
                            u"Resize en frmVisita",
                            u"SSAtb_ToolClick de frmNota",
                            u"BuscarElemento de frmVisita",
                            u"cmdCancelar_Click de frmNuevaNota",
                            8250,
                            8400};

}  // namespace

const FormDesign& frmVisita() { return design; }

}  // namespace ovalia::forms
