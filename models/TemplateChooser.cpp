#include "models/TemplateChooser.h"

#include "attachments/StoredPaths.h"
#include "models/ModelFolder.h"
#include "platform/Platform.h"
#include "routines/Messages.h"

namespace ovalia {

std::optional<ChosenTemplate> chosenTemplate(Instance& nota, TextView folder, bool HayDonde) {
  constexpr std::int32_t information = 64;
  const Text mask = join(modelFolder(dataFolder(nota)), folder, u"*.dot");
  if (Platform::current().files->firstMatch(mask).empty()) {
    MostrarMensaje(u"Plantillas inexistentes.", information, u"Plantillas");
    return {};
  }
  const ObjectRef chooser = Platform::current().objects->create(u"Perlaz.CPerlaz");
  putMember(chooser, u"HayDonde", HayDonde);
  putMember(chooser, u"HayCual", false);
  if (!callMember(chooser, u"Mostrar", {mask}).toBoolean()) return {};
  nota.FormActiva = getMember(nota.nota.frmBase, u"ActiveForm").toObject();
  getMember(chooser, u"NomFich");
  return ChosenTemplate{logicPath(getMember(chooser, u"QueImprimir").text()), chooser};
}

}  // namespace ovalia
