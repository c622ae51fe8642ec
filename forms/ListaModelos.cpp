#include <array>

#include "forms/ModelForms.h"

namespace ovalia::forms {

namespace {

using enum ControlType;

// The list comes first in the tab order: leaving a box of the subject puts another list in its place.
constexpr auto controls = std::to_array<ControlDesign>({
    {u"datPlantilla", Data, hidden},
    {u"fraTotal", Frame, plain, u"", u"", 120, 60, 6840, 3465},
    {u"grdPlantilla", Grid, plain, u"Modelos", u"", 120, 150, 6600, 2400, 0, u"fraTotal"},
    {u"cmdMateria", CommandButton, plain, u"&Materia", u"", 120, 2625, 1200, 315, 1, u"fraTotal"},
    {u"txtMateria", TextBox, plain, u"", u"", 1380, 2625, 1980, 315, 2, u"fraTotal", u"cmdMateria"},
    {u"cmdSubMateria", CommandButton, plain, u"&Sub Materia", u"", 3480, 2625, 1200, 315, 3, u"fraTotal"},
    {u"txtTMateria", TextBox, plain, u"", u"", 4740, 2625, 1980, 315, 4, u"fraTotal", u"cmdSubMateria"},
    {u"lblAsunto", Label, plain, u"Notas", u"", 120, 3045, 1200, 225, -1, u"fraTotal"},
    {u"txtNotas", TextBox, plain, u"", u"", 1380, 3000, 3720, 315, 5, u"fraTotal", u"lblAsunto"},
    {u"cmdSel", CommandButton, plain, u"Seleccionar", u"", 5220, 3000, 1500, 315, 6, u"fraTotal"},
    {u"cmdAceptar", CommandButton, plain, u"Aceptar", u"", 4500, 3630, 1200, 315, 7},
    {u"cmdCancelar", CommandButton, cancelButton, u"Cancelar", u"", 5760, 3630, 1200, 315, 8},
});

constexpr auto columns = std::to_array<ColumnDesign>({
    {u"IdPlantilla", u"", 0, true},
    {u"Nombre", u"Nombre", 2400, false, styleAsc},
    {u"Notas", u"Notas", 1900},
    {u"Materia", u"Materia", 900},
    {u"TipoMateria", u"Sub Materia", 1200},
});

constexpr auto grids = std::to_array<GridDesign>({{u"grdPlantilla", u"datPlantilla", columns}});

constexpr auto resizes = std::to_array<ResizeRow>({
    {u"fraTotal", MovedProperty::Width, 6840},
    {u"fraTotal", MovedProperty::Height, 3465},
    {u"grdPlantilla", MovedProperty::Width, 6600},
    {u"grdPlantilla", MovedProperty::Height, 2400},
    {u"cmdMateria", MovedProperty::Top, 2625},
    {u"txtMateria", MovedProperty::Top, 2625},
    {u"cmdSubMateria", MovedProperty::Top, 2625},
    {u"txtTMateria", MovedProperty::Top, 2625},
    {u"txtTMateria", MovedProperty::Width, 1980},
    {u"lblAsunto", MovedProperty::Top, 3045},
    {u"txtNotas", MovedProperty::Top, 3000},
    {u"txtNotas", MovedProperty::Width, 3720},
    {u"cmdSel", MovedProperty::Top, 3000},
    {u"cmdSel", MovedProperty::Left, 5220},
    {u"cmdAceptar", MovedProperty::Left, 4500},
    {u"cmdAceptar", MovedProperty::Top, 3630},
    {u"cmdCancelar", MovedProperty::Left, 5760},
    {u"cmdCancelar", MovedProperty::Top, 3630},
});

constexpr FormDesign design{.name = u"ListaModelos",
                            .caption = u"Adjuntar Modelo",
                            .minimumWidth = 7200,
                            .minimumHeight = 4485,
                            .controls = controls,
                            .resizes = resizes,
                            .width = 9000,
                            .height = 6600,
                            .frame = frameHeightWithoutBars,
                            .grids = grids};

}  // namespace

const FormDesign& ListaModelos() { return design; }

}  // namespace ovalia::forms
