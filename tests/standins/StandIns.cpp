#include "tests/standins/StandIns.h"

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

void CrearModelo(Instance&, Text& NArch, Text& NOrg) { note(u"CrearModelo", join(NArch, u", ", NOrg)); }

void ImprimirNota(Instance&) { note(u"ImprimirNota"); }
void EMailNota(Instance&) { note(u"EMailNota"); }
void ExportarNota(Instance&) { note(u"ExportarNota"); }
void ExportarVisita(Instance&) { note(u"ExportarVisita"); }

void AdjuntarPlantilla(Instance&, bool NotaGrabada) { note(u"AdjuntarPlantilla", shown(NotaGrabada)); }
void AdjuntarModelo(Instance&, bool NotaGrabada) { note(u"AdjuntarModelo", shown(NotaGrabada)); }

}  // namespace ovalia
