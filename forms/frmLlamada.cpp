#include <array>

#include "forms/CardForm.h"
#include "forms/CardMasks.h"

namespace ovalia::forms {

namespace {

using enum ControlType;

constexpr auto controls = std::to_array<ControlDesign>({
    {u"SSAtb", ActiveToolBars, plain},
    {u"ImgClock", Image, plain, u"", u"", 150, 127, 240, 240},
    {u"lblFecha", Label, plain, u"Atendida el", u"", 435, 135, 1005, 225},
    {u"dtpFechaAlta", DTPicker, plain, u"", u"Fecha de creación", 1470, 90, 1470, 315, 2, u"", u"lblFecha"},
    {u"dtpHoraAlta", DTPicker, timeOfDay, u"", u"Hora de creación", 3000, 90, 1200, 315, 3, u"", u"lblFecha"},
    {u"lblUsuario", Label, plain, u"por", u"", 4620, 135, 390, 225},
    {u"cboUsuario", ComboBox, dropDownList, u"", u"Usuario que escribe la nota", 5040, 90, 1485, 315, 4, u"",
     u"lblUsuario"},
    {u"fralinea1", Line, plain, u"", u"", 150, 480, 6375, 30, -1, u"", u"", 1},
    {u"splitDocumentos", Splitter, plain, u"", u"", 150, 555, 6375, 1055},
    {u"LsvDocu", ListView, plain, u"Documentos", u"", 0, 0, 2200, 1055, 1, u"splitDocumentos"},
    {u"txtNotas", TextBox, multiLine, u"", u"Observaciones de la nota", 2200, 0, 4175, 1055, 0,
     u"splitDocumentos"},
    {u"lblActualizacion", Label, hidden, u"", u"", 150, 1610, 1800, 225},
    {u"ImgSIcon", ImageList, hidden},
    {u"ImgBIcon", ImageList, hidden},
    {u"mnuA", Menu, hidden},
});

constexpr auto events = std::to_array<EventRow>({
    {u"dtpFechaAlta", textEvents, u"FechaAlta"},
    {u"dtpHoraAlta", textEvents, u"FechaAlta"},
    {u"cboUsuario", dropDownEvents, u"Usuario"},
    {u"txtNotas", textEvents | onDrag, u"Notas"},
    {u"LsvDocu", onDrag},
});

constexpr auto resizes = std::to_array<ResizeRow>({
    {u"lblUsuario", MovedProperty::Left, 4620},
    {u"cboUsuario", MovedProperty::Left, 5040},
    {u"splitDocumentos", MovedProperty::Width, 6375},
    {u"fralinea1", MovedProperty::Width, 6375, 1},
});

constexpr FormDesign design{u"frmLlamada",
                            u"Nueva Nota",
                            6795,
                            3000,
                            controls,
                            events,
                            resizes,
                            llamada,
                            u"Resize en frmllamada",
                            u"SSAtb_ToolClick de frmNota",
                            u"BuscarElemento de frmVisita",
                            u"cmdCancelar_Click de frmNuevaNota",
                            7800,
                            5400};

}  // namespace

const FormDesign& frmLlamada() { return design; }

}  // namespace ovalia::forms
