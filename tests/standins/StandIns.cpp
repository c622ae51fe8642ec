#include "tests/standins/StandIns.h"

#include "attachments/AddingAttachments.h"
#include "attachments/AttachmentList.h"
#include "cards/Deletion.h"
#include "models/CreatingModels.h"
#include "models/Outputs.h"
#include "models/Templates.h"

namespace ovalia {

namespace standins {

std::vector<Text>& calls() {
  static std::vector<Text> journal;
  return journal;
}

namespace {

Text shown(bool value) { return value ? u"True" : u"False"; }

void note(TextView procedure, TextView arguments = {}) {
  calls().push_back(join(procedure, u"(", arguments, u")"));
}

}  // namespace
}  // namespace standins

using standins::note;
using standins::shown;

void AdjuntarDocumento(Instance&, bool NotaGrabada) { note(u"AdjuntarDocumento", shown(NotaGrabada)); }
void PegarDePortapapeles(Instance&) { note(u"PegarDePortapapeles"); }
void dNota_OLEDragOver(Instance&, const ObjectRef&, std::int32_t&) { note(u"dNota_OLEDragOver"); }
void dNota_OLEDragDrop(Instance&, const ObjectRef&) { note(u"dNota_OLEDragDrop"); }

void RefrescoDocs(Instance&) { note(u"RefrescoDocs"); }
void dlgNota_ActualizaDocs(Instance&, TextView texto) { note(u"dlgNota_ActualizaDocs", texto); }
void AbrirDocNota(Instance&) { note(u"AbrirDocNota"); }
void CopiarAPortapapeles(Instance&) { note(u"CopiarAPortapapeles"); }
void GuardarComo(Instance&) { note(u"GuardarComo"); }
bool BorrarDocNota(Instance&, Text& NArch, bool Preguntar) {
  note(u"BorrarDocNota", join(NArch, u", ", shown(Preguntar)));
  return false;
}

void Borrar(Instance&, bool Preguntar, TextView Accion) {
  note(u"Borrar", join(shown(Preguntar), u", ", Accion));
}

void CrearModelo(Instance&, Text& NArch, Text& NOrg) { note(u"CrearModelo", join(NArch, u", ", NOrg)); }

void ImprimirNota(Instance&) { note(u"ImprimirNota"); }
void EMailNota(Instance&) { note(u"EMailNota"); }
void ExportarNota(Instance&) { note(u"ExportarNota"); }
void ExportarVisita(Instance&) { note(u"ExportarVisita"); }

void AdjuntarPlantilla(Instance&, bool NotaGrabada) { note(u"AdjuntarPlantilla", shown(NotaGrabada)); }
void AdjuntarModelo(Instance&, bool NotaGrabada) { note(u"AdjuntarModelo", shown(NotaGrabada)); }

}  // namespace ovalia
