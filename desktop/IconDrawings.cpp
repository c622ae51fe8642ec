#include "desktop/IconDrawings.h"

#include <array>

namespace ovalia::desktop {

namespace {

using enum Ink;

constexpr const char* sheet = "M5 2.5 H14.5 L19 7 V21.5 H5 Z";
constexpr const char* fold = "M14.5 2.5 V7 H19";

constexpr auto strokes = std::to_array<Stroke>({
    {u"ID_Primero", Blue, Blue, "M19 5 L9.5 12 L19 19 Z"},
    {u"ID_Primero", Line, None, "M6 5 V19"},
    {u"ID_Anterior", Blue, Blue, "M16 5 L6.5 12 L16 19 Z"},
    {u"ID_Siguiente", Blue, Blue, "M8 5 L17.5 12 L8 19 Z"},
    {u"ID_Ultimo", Blue, Blue, "M5 5 L14.5 12 L5 19 Z"},
    {u"ID_Ultimo", Line, None, "M18 5 V19"},

    {u"ID_Aniadir", Line, Paper, sheet},
    {u"ID_Aniadir", Line, None, fold},
    {u"ID_Aniadir", Green, None, "M12 10.5 V18.5 M8 14.5 H16"},
    {u"ID_Guardar", Line, Blue, "M3.5 3.5 H17 L20.5 7 V20.5 H3.5 Z"},
    {u"ID_Guardar", Line, Paper, "R7.5 3.5 8 5.5"},
    {u"ID_Guardar", Line, Paper, "R6.5 13 11 7.5"},
    {u"ID_DeshacerCambios", Amber, None, "M4.5 9.5 H14 C21.5 9.5 21.5 19.5 14 19.5 H8.5"},
    {u"ID_DeshacerCambios", Amber, None, "M9.5 4.5 L4.5 9.5 L9.5 14.5"},
    {u"ID_BAdjuntar", Line, None,
     "M18.5 11.5 L11.5 18.5 C7.5 22.5 1.5 16.5 5.5 12.5 L13.5 4.5 C16.5 1.5 21 6 18 9 L10.5 16.5 "
     "C8.7 18.3 6 15.6 7.8 13.8 L14 7.5"},
    {u"ID_Buscar", Line, Paper, "O10 10 6.5"},
    {u"ID_Buscar", Line, None, "M14.8 14.8 L20.5 20.5"},
    {u"ID_Imprimir", Line, Paper, "R7 3 10 6"},
    {u"ID_Imprimir", Line, Grey, "R3 9 18 8"},
    {u"ID_Imprimir", Line, Paper, "R7 14 10 7"},
    {u"ID_Imprimir", Line, None, "M9.5 17.5 H14.5"},
    {u"ID_EMail", Line, Paper, "R2.5 5.5 19 13.5"},
    {u"ID_EMail", Line, None, "M2.5 6 L12 13.5 L21.5 6"},
    {u"ID_ExportarNotas", Line, Paper, sheet},
    {u"ID_ExportarNotas", Line, None, fold},
    {u"ID_ExportarNotas", Green, None, "M8 14.5 H22 M18 10.5 L22 14.5 L18 18.5"},
    {u"ID_ExportarVisita", Line, Paper, "R3 5 15 15.5"},
    {u"ID_ExportarVisita", Line, Blue, "R3 5 15 3.5"},
    {u"ID_ExportarVisita", Green, None, "M8 14.5 H22 M18 10.5 L22 14.5 L18 18.5"},
    {u"ID_ImportarCorreos", Line, Paper, "R2.5 9.5 19 11"},
    {u"ID_ImportarCorreos", Line, None, "M2.5 10 L12 16.5 L21.5 10"},
    {u"ID_ImportarCorreos", Green, None, "M12 1.5 V10.5 M8 7 L12 11 L16 7"},
    {u"ID_Borrar", Red, Paper, "M6.5 7 L7.5 21 H16.5 L17.5 7 Z"},
    {u"ID_Borrar", Red, None, "M4 6.5 H20 M9 6 V3.5 H15 V6 M10.3 10.5 V17.5 M13.7 10.5 V17.5"},

    {u"ImgClock", Line, Paper, "O12 12 9"},
    {u"ImgClock", Blue, None, "M12 6.5 V12 L16 14.5"},
    {u"ImgBell", Line, Amber, "M4 17.5 C7 15.5 5.5 5 12 4.5 C18.5 5 17 15.5 20 17.5 Z"},
    {u"ImgBell", Line, None, "M12 2.5 V4.5 M10 20.5 H14"},
    {u"ImgKey", Line, Amber, "O7.5 12 4.5"},
    {u"ImgKey", Line, None, "M12 12 H21.5 V16 M17.5 12 V15"},
    {u"ImgNota", Line, Paper, sheet},
    {u"ImgNota", Line, None, fold},
    {u"ImgNota", Blue, None, "M8 11 H16 M8 14.5 H16 M8 18 H13"},

    {u"doc", Line, Paper, sheet},
    {u"doc", Line, None, fold},
    {u"doc", Blue, None, "M8 11 L10 18 L12 12.5 L14 18 L16 11"},
    {u"txt", Line, Paper, sheet},
    {u"txt", Line, None, fold},
    {u"txt", Grey, None, "M8 10.5 H16 M8 14 H16 M8 17.5 H13"},
    {u"not", Line, Amber, "M4 3.5 H20 V15 L14.5 20.5 H4 Z"},
    {u"not", Line, Paper, "M14.5 20.5 V15 H20 Z"},
    {u"not", Line, None, "M7.5 8 H16.5 M7.5 12 H13"},
    {u"xls", Line, Paper, sheet},
    {u"xls", Line, None, fold},
    {u"xls", Green, None, "R8 10.5 8 8 M8 14.5 H16 M12 10.5 V18.5"},
    {u"ppt", Line, Paper, sheet},
    {u"ppt", Line, None, fold},
    {u"ppt", Red, Red, "R8 15 1.6 3.5"},
    {u"ppt", Red, Red, "R11.2 12.5 1.6 6"},
    {u"ppt", Red, Red, "R14.4 10.5 1.6 8"},
    {u"jpg", Line, Paper, "R3 4.5 18 15"},
    {u"jpg", Green, Green, "M3.8 18.5 L9.5 10.5 L13 15.5 L15.5 13 L20.2 18.5 Z"},
    {u"jpg", Amber, Amber, "O16.5 8.5 1.6"},
    {u"zip", Line, Paper, sheet},
    {u"zip", Amber, None, "M12 3.5 V13 M10.5 5.5 H13.5 M10.5 8 H13.5 M10.5 10.5 H13.5"},
    {u"zip", Amber, Paper, "R10.3 13 3.4 5"},
    {u"win", Line, Paper, "R3 4.5 18 15"},
    {u"win", Line, Blue, "R3 4.5 18 4"},

    {u"calendario", Line, Paper, "R3.5 5 17 15.5"},
    {u"calendario", Line, Blue, "R3.5 5 17 4"},
    {u"calendario", Line, None, "M8 3 V6 M16 3 V6"},
    {u"calendario", Grey, None, "M7.5 13 H9 M11.3 13 H12.8 M15 13 H16.5 M7.5 16.8 H9 M11.3 16.8 H12.8"},
});

}  // namespace

std::span<const Stroke> iconStrokes() { return strokes; }

}  // namespace ovalia::desktop
