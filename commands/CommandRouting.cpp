#include "commands/CommandRouting.h"

#include <span>

#include "attachments/AddingAttachments.h"
#include "attachments/AttachmentList.h"
#include "attachments/AttachmentOperations.h"
#include "attachments/DeletingAttachments.h"
#include "cards/Closing.h"
#include "cards/Deletion.h"
#include "cards/Navigation.h"
#include "cards/NewAnnotation.h"
#include "cards/Saving.h"
#include "cards/Search.h"
#include "commands/ToolState.h"
#include "models/CreatingModels.h"
#include "models/Outputs.h"
#include "models/Templates.h"
#include "platform/Platform.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

ObjectRef activeForm() { return Platform::current().screen->activeForm(); }

void showPrinter(Instance& nota) { callMember(objectAt(nota.nota.frmBase, {u"dlgfrmbase"}), u"ShowPrinter"); }

void leave(Instance& nota) {
  bool cancelar = false;
  dNota_UnLoad(nota, cancelar);
  if (!cancelar) callMember(activeForm(), u"Hide");
}

void deleteAttachment(Instance& nota) { BorrarDocNota(nota, selectedAttachment(nota).key, true); }

void makeModel(Instance& nota) {
  const ObjectRef chosen = objectAt(activeForm(), {u"LsvDocu", u"SelectedItem"});
  Text key = getMember(chosen, u"Key").toText();
  Text text = getMember(chosen, u"Text").toText();
  CrearModelo(nota, key, text);
}

template <int view>
void showList(Instance&) {
  putMember(objectAt(activeForm(), {u"LsvDocu"}), u"View", view);
}

void refreshPaste(Instance& nota) {
  nota.card()
      .toolbars()
      .tool(u"ID_Pegar")
      ->setEnabled(Platform::current().clipboard->has(Clipboard::filesFormat));
}

// Commands that are known and have nothing to do on a card.
void nothing(Instance&) {}

struct Command {
  TextView id;
  void (*run)(Instance& nota);
};

constexpr Command archivo[] = {
    {u"ID_Imprimir", ImprimirNota},
    {u"ID_EMail", EMailNota},
    {u"ID_ExportarNotas", ExportarNota},
    {u"ID_ExportarVisita", ExportarVisita},
    {u"ID_ImportarCorreos", [](Instance& nota) { nota.nota.ImportarCorreos(); }},
    {u"ID_Impresora", showPrinter},
    {u"ID_DocumentosInexistentes", nothing},
    {u"ID_DocumentossinrelacionconExpedientes", nothing},
    {u"ID_Salir", leave},
};

constexpr Command fichas[] = {
    {u"ID_mnuFichas", nothing},
    {u"ID_Aniadir", [](Instance& nota) { Nuevo(nota); }},
    {u"ID_Guardar", [](Instance& nota) { Guardar(nota, u"NoPreguntar"); }},
    {u"ID_Borrar", [](Instance& nota) { Borrar(nota, true, u""); }},
    {u"ID_DeshacerCambios", DeshacerCambios},
    {u"ID_Seleccionar", nothing},
    {u"ID_Buscar", Buscar_Nota},
    {u"ID_Contenido", nothing},
    {u"ID_AcercadelPrograma", nothing},
};

constexpr Command navegacion[] = {
    {u"ID_Primero", Primero},
    {u"ID_Anterior", Anterior},
    {u"ID_Siguiente", Siguiente},
    {u"ID_Ultimo", Ultimo},
};

constexpr Command documentos[] = {
    {u"ID_mnuDocumentos", CambiarMenuNotas},
    {u"ID_Abrir", AbrirDocNota},
    {u"ID_Quitar", deleteAttachment},
    {u"ID_BAdjuntar", [](Instance& nota) { AdjuntarDocumento(nota, true); }},
    {u"ID_Documento", [](Instance& nota) { AdjuntarDocumento(nota, true); }},
    {u"ID_Plantilla", [](Instance& nota) { AdjuntarPlantilla(nota, true); }},
    {u"ID_Modelo", [](Instance& nota) { AdjuntarModelo(nota, true); }},
    {u"ID_CrearModelo", makeModel},
    {u"ID_Copiar", CopiarAPortapapeles},
    {u"ID_Pegar", PegarDePortapapeles},
    {u"ID_Guardarcomo", GuardarComo},
    {u"ID_ImprimirLsv", nothing},
};

constexpr Command listView[] = {
    {u"ID_IconosGrandes", showList<forms::ListView::lvwIcon>},
    {u"ID_IconosPequenios", showList<forms::ListView::lvwSmallIcon>},
    {u"ID_Lista", showList<forms::ListView::lvwList>},
    {u"ID_mnuLsvEnDoc", CambiarMenuNotas},
    {u"ID_mnuLsv", refreshPaste},
};

// Groups of tools; some share their commands.
constexpr struct {
  TextView name;
  std::span<const Command> commands;
} groups[] = {
    {u"Archivo", archivo},       {u"Fichas", fichas},         {u"Ver", fichas},
    {u"Ayuda", fichas},          {u"Navegacion", navegacion}, {u"Orden", navegacion},
    {u"Documentos", documentos}, {u"ListView", listView},
};

}  // namespace

void dNota_Menu(Instance& nota, TextView Tab, TextView Tool) {
  procedure(u"dNota_Menu de CNota", [&] {
    for (const auto& group : groups) {
      if (group.name != Tab) continue;
      for (const Command& command : group.commands)
        if (command.id == Tool) return command.run(nota);
    }
  });
}

}  // namespace ovalia
