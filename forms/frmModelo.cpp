#include <array>

#include "forms/ModelForms.h"

namespace ovalia::forms {

namespace {

using enum ControlType;

constexpr auto controls = std::to_array<ControlDesign>({
    {u"fraTotal", Frame, plain, u"", u"", 120, 60, 5400, 2325},
    {u"lblNombre", Label, plain, u"Nombre", u"", 120, 195, 1200, 225, -1, u"fraTotal"},
    {u"txtNombre", TextBox, plain, u"", u"", 1380, 150, 3900, 315, 0, u"fraTotal", u"lblNombre"},
    {u"lblNotas", Label, plain, u"Notas", u"", 120, 570, 1200, 225, -1, u"fraTotal"},
    {u"txtNotas", TextBox, multiLine, u"", u"", 1380, 525, 3900, 900, 1, u"fraTotal", u"lblNotas"},
    {u"cmdMateria", CommandButton, plain, u"&Materia", u"", 120, 1485, 1200, 315, 2, u"fraTotal"},
    {u"txtMateria", TextBox, plain, u"", u"", 1380, 1485, 3900, 315, 3, u"fraTotal", u"cmdMateria"},
    {u"cmdSubMateria", CommandButton, plain, u"&Sub Materia", u"", 120, 1860, 1200, 315, 4, u"fraTotal"},
    {u"txtSubMateria", TextBox, plain, u"", u"", 1380, 1860, 3900, 315, 5, u"fraTotal", u"cmdSubMateria"},
    {u"cmdAceptar", CommandButton, defaultButton, u"&Aceptar", u"", 3060, 2490, 1200, 315, 6},
    {u"cmdCancelar", CommandButton, cancelButton, u"&Cancelar", u"", 4320, 2490, 1200, 315, 7},
});

constexpr auto resizes = std::to_array<ResizeRow>({
    {u"fraTotal", MovedProperty::Width, 5400},
    {u"fraTotal", MovedProperty::Height, 2325},
    {u"txtNombre", MovedProperty::Width, 3900},
    {u"txtNotas", MovedProperty::Width, 3900},
    {u"txtNotas", MovedProperty::Height, 900},
    {u"cmdMateria", MovedProperty::Top, 1485},
    {u"txtMateria", MovedProperty::Top, 1485},
    {u"txtMateria", MovedProperty::Width, 3900},
    {u"cmdSubMateria", MovedProperty::Top, 1860},
    {u"txtSubMateria", MovedProperty::Top, 1860},
    {u"txtSubMateria", MovedProperty::Width, 3900},
    {u"cmdAceptar", MovedProperty::Left, 3060},
    {u"cmdAceptar", MovedProperty::Top, 2490},
    {u"cmdCancelar", MovedProperty::Left, 4320},
    {u"cmdCancelar", MovedProperty::Top, 2490},
});

constexpr FormDesign design{.name = u"frmModelo",
                            .caption = u"Crear Modelo",
                            .minimumWidth = 5760,
                            .minimumHeight = 3345,
                            .controls = controls,
                            .resizes = resizes,
                            .frame = frameHeightWithoutBars};

}  // namespace

const FormDesign& frmModelo() { return design; }

}  // namespace ovalia::forms
