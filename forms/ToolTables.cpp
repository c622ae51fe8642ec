#include <array>

#include "forms/CardMasks.h"
#include "forms/Toolbars.h"

namespace ovalia::forms {

namespace {

constexpr auto tools = std::to_array<ToolDesign>({
    {u"ID_mnuArchivo", u"Archivo", u"&Archivo", u"", allCards},
    {u"ID_EMail", u"Archivo", u"&Enviar Correo", u"Envío de Correo Electrónico", allCards},
    {u"ID_ExportarNotas", u"Archivo", u"E&xportar Notas", u"", nota},
    {u"ID_ExportarVisita", u"Archivo", u"Exportar Visita", u"", visita},
    {u"ID_ImportarCorreos", u"Archivo", u"I&mportar Correos", u"", nota},
    {u"ID_ImportarCorreos", u"Archivo", u"Importar Correos", u"", visita},
    {u"ID_Imprimir", u"Archivo", u"Im&primir", u"", nota | anuncio},
    {u"ID_Imprimir", u"Archivo", u"&Imprimir", u"", visita | llamada},
    {u"ID_Salir", u"Archivo", u"&Salir", u"", allCards},

    {u"ID_mnuFichas", u"Fichas", u"&Fichas", u"", allCards},
    {u"ID_Aniadir", u"Fichas", u"&Nueva Nota", u"", allCards},
    {u"ID_Guardar", u"Fichas", u"&Guardar", u"", allCards},
    {u"ID_Borrar", u"Fichas", u"&Borrar", u"", allCards},
    {u"ID_DeshacerCambios", u"Fichas", u"&Deshacer Cambios", u"", allCards},
    {u"ID_Buscar", u"Fichas", u"B&uscar", u"", allCards},

    {u"ID_mnuVer", u"Ver", u"&Ver", u"", allCards},
    {u"ID_Primero", u"Navegacion", u"Primero", u"Primera Ficha", allCards},
    {u"ID_Anterior", u"Navegacion", u"Anterior", u"Ficha Anterior", allCards},
    {u"ID_Siguiente", u"Navegacion", u"Siguiente", u"Siguiente Ficha", allCards},
    {u"ID_Ultimo", u"Navegacion", u"Ultimo", u"Ultima Ficha", allCards},

    {u"ID_mnuDocumentos", u"Documentos", u"&Documentos", u"", allCards},
    {u"ID_mnuAdjuntar", u"Documentos", u"A&djuntar", u"", allCards},
    {u"ID_BAdjuntar", u"Documentos", u"BAdjuntar", u"Adjuntar documento", allCards},
    {u"ID_Documento", u"Documentos", u"&Documento", u"", allCards},
    {u"ID_Plantilla", u"Documentos", u"&Plantilla", u"", allCards},
    {u"ID_Modelo", u"Documentos", u"&Modelo", u"", allCards},
    {u"ID_CrearModelo", u"Documentos", u"&Crear Modelo", u"", allCards},
    {u"ID_Abrir", u"Documentos", u"&Abrir", u"", allCards},
    {u"ID_Quitar", u"Documentos", u"&Quitar", u"", allCards},
    {u"ID_Copiar", u"Documentos", u"&Copiar", u"", allCards},
    {u"ID_Pegar", u"Documentos", u"&Pegar", u"", allCards},
    {u"ID_Guardarcomo", u"Documentos", u"&Guardar como", u"", allCards},
    {u"ID_ImprimirLsv", u"Documentos", u"&Imprimir", u"", allCards},

    {u"ID_mnuLsv", u"ListView", u"Lsv", u"", allCards},
    {u"ID_mnuLsvEnDoc", u"ListView", u"EnDoc", u"", allCards},
    {u"ID_mnuVerLsv", u"ListView", u"&Ver", u"", allCards},
    {u"ID_IconosGrandes", u"ListView", u"Iconos &Grandes", u"", allCards},
    {u"ID_IconosPequenios", u"ListView", u"Iconos &Pequeños", u"", allCards},
    {u"ID_Lista", u"ListView", u"&Lista", u"", allCards},

    {u"ID_mnuAyuda", u"Ayuda", u"A&yuda", u"", allCards},
    {u"ID_Contenido", u"Ayuda", u"&Contenido e índice", u"", allCards},
    {u"ID_AcercadelPrograma", u"Ayuda", u"&Acerca del Programa ...", u"", allCards},
});

constexpr TextView bar = u"";

constexpr auto menus = std::to_array<MenuRow>({
    {u"Menu", u"ID_mnuArchivo", allCards},
    {u"Menu", u"ID_mnuFichas", allCards},
    {u"Menu", u"ID_mnuVer", allCards},
    {u"Menu", u"ID_mnuDocumentos", allCards},
    {u"Menu", u"ID_mnuAyuda", allCards},

    {u"ID_mnuArchivo", u"ID_Imprimir", anuncio | llamada},
    {u"ID_mnuArchivo", u"ID_EMail", allCards},
    {u"ID_mnuArchivo", u"ID_ExportarNotas", nota},
    {u"ID_mnuArchivo", u"ID_ExportarVisita", visita},
    {u"ID_mnuArchivo", u"ID_ImportarCorreos", nota | visita},
    {u"ID_mnuArchivo", bar, nota | visita},
    {u"ID_mnuArchivo", u"ID_Imprimir", nota | visita},
    {u"ID_mnuArchivo", bar, allCards},
    {u"ID_mnuArchivo", u"ID_Salir", allCards},

    {u"ID_mnuFichas", u"ID_Aniadir", allCards},
    {u"ID_mnuFichas", u"ID_Guardar", allCards},
    {u"ID_mnuFichas", u"ID_Borrar", allCards},
    {u"ID_mnuFichas", u"ID_DeshacerCambios", allCards},
    {u"ID_mnuFichas", bar, allCards},
    {u"ID_mnuFichas", u"ID_Buscar", allCards},

    {u"ID_mnuVer", u"ID_Primero", allCards},
    {u"ID_mnuVer", u"ID_Anterior", allCards},
    {u"ID_mnuVer", u"ID_Siguiente", allCards},
    {u"ID_mnuVer", u"ID_Ultimo", allCards},

    {u"ID_mnuAyuda", u"ID_Contenido", allCards},
    {u"ID_mnuAyuda", u"ID_AcercadelPrograma", allCards},

    {u"ID_mnuDocumentos", u"ID_Abrir", allCards},
    {u"ID_mnuDocumentos", u"ID_Quitar", allCards},
    {u"ID_mnuDocumentos", u"ID_mnuAdjuntar", allCards},
    {u"ID_mnuDocumentos", bar, allCards},
    {u"ID_mnuDocumentos", u"ID_CrearModelo", allCards},
    {u"ID_mnuDocumentos", bar, nota | visita},
    {u"ID_mnuDocumentos", u"ID_Pegar", nota | visita},

    {u"ID_mnuAdjuntar", u"ID_Documento", allCards},
    {u"ID_mnuAdjuntar", u"ID_Plantilla", allCards},
    {u"ID_mnuAdjuntar", u"ID_Modelo", allCards},

    {u"ID_mnuLsv", u"ID_Pegar", allCards},
    {u"ID_mnuLsv", u"ID_mnuAdjuntar", allCards},
    {u"ID_mnuLsv", u"ID_mnuVerLsv", allCards},

    {u"ID_mnuVerLsv", u"ID_IconosPequenios", allCards},
    {u"ID_mnuVerLsv", u"ID_IconosGrandes", allCards},
    {u"ID_mnuVerLsv", u"ID_Lista", allCards},

    {u"ID_mnuLsvEnDoc", u"ID_Abrir", allCards},
    {u"ID_mnuLsvEnDoc", u"ID_ImprimirLsv", visita | anuncio | llamada},
    {u"ID_mnuLsvEnDoc", u"ID_Guardarcomo", allCards},
    {u"ID_mnuLsvEnDoc", bar, allCards},
    {u"ID_mnuLsvEnDoc", u"ID_Copiar", allCards},
    {u"ID_mnuLsvEnDoc", u"ID_Pegar", allCards},
    {u"ID_mnuLsvEnDoc", bar, allCards},
    {u"ID_mnuLsvEnDoc", u"ID_mnuAdjuntar", allCards},
    {u"ID_mnuLsvEnDoc", u"ID_Quitar", allCards},
    {u"ID_mnuLsvEnDoc", u"ID_CrearModelo", allCards},
    {u"ID_mnuLsvEnDoc", bar, allCards},
    {u"ID_mnuLsvEnDoc", u"ID_mnuVerLsv", allCards},

    {u"Herramientas", u"ID_Primero", allCards},
    {u"Herramientas", u"ID_Anterior", allCards},
    {u"Herramientas", u"ID_Siguiente", allCards},
    {u"Herramientas", u"ID_Ultimo", allCards},
    {u"Herramientas", bar, allCards},
    {u"Herramientas", u"ID_Aniadir", allCards},
    {u"Herramientas", u"ID_Guardar", allCards},
    {u"Herramientas", u"ID_DeshacerCambios", allCards},
    {u"Herramientas", u"ID_BAdjuntar", allCards},
    {u"Herramientas", bar, allCards},
    {u"Herramientas", u"ID_Buscar", allCards},
    {u"Herramientas", u"ID_Imprimir", allCards},
    {u"Herramientas", bar, nota | visita},
    {u"Herramientas", u"ID_EMail", allCards},
    {u"Herramientas", u"ID_ExportarNotas", nota},
    {u"Herramientas", u"ID_ImportarCorreos", nota},
    {u"Herramientas", u"ID_ExportarVisita", visita},
    {u"Herramientas", bar, allCards},
    {u"Herramientas", u"ID_Borrar", allCards},
});

}  // namespace

std::span<const ToolDesign> toolDesigns() { return tools; }
std::span<const MenuRow> menuRows() { return menus; }

}  // namespace ovalia::forms
