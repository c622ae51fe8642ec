#include "models/Templates.h"

#include "attachments/DocumentFolders.h"
#include "attachments/HostRecord.h"
#include "attachments/RegisteringAttachments.h"
#include "attachments/StoredNames.h"
#include "attachments/StoredPaths.h"
#include "exchange/PassingMarks.h"
#include "models/ModelList.h"
#include "models/TemplateChooser.h"
#include "platform/Platform.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

struct Subject {
  Text Materia, TMateria;
};

Text textOf(const ObjectRef& form, TextView control) {
  return getMember(objectAt(form, {control}), u"Text").text();
}

// On a case file both boxes are read into the second name: no subject is proposed there, only the
// sub-matter.
Subject proposedSubject(const ObjectRef& form) {
  constexpr TextView list = u"Lista";
  Subject proposed;
  const Text name = getMember(form, u"Name").toText();
  if (name.starts_with(list)) {
    const ObjectRef controller = objectAt(form, {u"vClase"});
    proposed.Materia = getMember(controller, u"Registros", {u"Materia"}).text();
    proposed.TMateria = getMember(controller, u"Registros", {u"TMateria"}).text();
  } else if (name == u"FichaExpV") {
    proposed.TMateria = textOf(form, u"txtMateria");
    proposed.TMateria = textOf(form, u"txtTMateria");
  }
  return proposed;
}

Text extensionOf(const Text& name) {
  const auto point = name.rfind(u'.');
  return point == Text::npos ? Text() : name.substr(point);
}

// A free name in a record's folder, and the full path of that name.
struct Place {
  Text name, path;
};

Place freePlace(const Instance& nota, std::int32_t record, Text extension) {
  const Text name = CreaNombreDoc(nota, record, extension);
  return {name, storedPath(nota, CreaPathDoc(nota, record), name)};
}

}  // namespace

void AdjuntarPlantilla(Instance& nota, bool NotaGrabada) {
  procedure(u"AdjuntarPlantilla de CNota", [&] {
    constexpr bool attaching = false;
    auto chosen = chosenTemplate(nota, u"", attaching);
    if (!chosen) return;
    const std::int32_t record = getMember(objectAt(nota.FormActiva, {u"vClase"}), u"IdRegistro").toLong();
    // The form's title stands where an extension should; it is none, and so the document becomes a ".doc".
    Place place = freePlace(nota, record, getMember(nota.FormActiva, u"Caption").text());
    if (NotaGrabada) AniadirArch(nota, replaceAll(chosen->path, u".dot", u".doc"), place.name);
    ObjectRef word;
    nota.nota.NuevoDoc(place.path, chosen->path, word);
    Pasa_Datos_Dlg(nota, paraAdjuntar, word);
  });
}

void AdjuntarModelo(Instance& nota, bool NotaGrabada) {
  procedure(u"AdjuntarModelo de CNota", [&] {
    const Subject proposed = proposedSubject(objectAt(nota.nota.frmBase, {u"ActiveForm"}));
    Text model, folder;
    SelecModelo(nota, proposed.Materia, proposed.TMateria, nota.nota.AppDirUser, model, folder);
    if (model.empty() || folder.empty()) return;
    Place place = freePlace(nota, hostRecordOrNew(nota), extensionOf(model));
    Platform::current().files->copy(storedPathIn(folder, model), place.path, false);
    if (NotaGrabada) AniadirArch(nota, model, place.name);
    nota.nota.AbrirDoc(place.path);
  });
}

}  // namespace ovalia
