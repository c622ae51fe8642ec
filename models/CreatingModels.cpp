#include "models/CreatingModels.h"

#include "attachments/DocumentFolders.h"
#include "attachments/HostDialog.h"
#include "attachments/StoredPaths.h"
#include "cards/Lookups.h"
#include "models/ModelFolder.h"
#include "models/ModelForm.h"
#include "models/Subjects.h"
#include "platform/Platform.h"
#include "routines/FileHelpers.h"
#include "routines/Messages.h"
#include "routines/SqlText.h"
#include "routines/TextHelpers.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr std::int32_t okOnly = 0, exclamation = 48, information = 64, yesNoInformation = 68;

Text sourceFolder(const Instance& nota) { return CreaPathDoc(nota, nota.crs().value(u"Id").toLong()); }

ModelForm& formInUse(const Instance& nota) {
  if (!nota.dlgModelo) throw Failure(failure::objectNotSet);
  return dynamic_cast<ModelForm&>(*nota.dlgModelo);
}

void makeForm(Instance& nota) {
  const auto form = std::make_shared<ModelForm>();
  form->VerMateria.connect([&nota](bool& ok, const Text& initial, Text& chosen) {
    dlgModelo_VerMateria(nota, ok, initial, chosen);
  });
  form->VerTMateria.connect([&nota](bool& ok, const Variant& subject, const Text& initial, Text& chosen) {
    dlgModelo_VerTMateria(nota, ok, subject, initial, chosen);
  });
  form->Aceptar.connect([&nota] { dlgModelo_Aceptar(nota); });
  nota.dlgModelo = form;
  form->load();
}

// A form of the host with a box of that name proposes what it holds.
void propose(const Instance& nota, TextView hostBox, TextView box) {
  const ObjectRef controls = objectAt(nota.nota.frmBase, {u"ActiveForm", u"Controls"});
  if (!ExisteControl(controls, hostBox)) return;
  const ObjectRef proposing = getMember(controls, u"", {hostBox}).toObject();
  formInUse(nota).control(box)->setValue(getMember(proposing, u"Text").text());
}

Text insertion(TextView name, TextView notes, TextView subject, TextView part) {
  Text columns = u"(Nombre,Notas";
  Text values = join(ComillaSQL(name), u", ", ComillaSQL(notes));
  const auto add = [&](dao::Recordset& found, TextView key) {
    if (found.isEOF()) return;
    columns += join(u",", key);
    values += join(u", ", found.value(key));
  };
  const auto subjects = findMateria(subject), parts = findTipoMateria(part);
  add(*subjects, u"IdMateria");
  add(*parts, u"IdTipoMateria");
  return join(u"INSERT INTO Plantilla ", columns, u") VALUES (", values, u")");
}

}  // namespace

void CrearModelo(Instance& nota, TextView NArch, TextView NOrg) {
  procedure(u"CrearModelo de CNota", [&] {
    if (!compareLess(std::int32_t(0), nota.crs().value(u"Narchivos")).holds()) {
      MostrarMensaje(u"No existen documentos adjuntos.", information, u"Documento");
    } else {
      if (!isStored(nota, sourceFolder(nota), NArch)) {
        MostrarMensaje(join(u"El documento adjunto (", NOrg, u") no existe."), exclamation, u"Modelo");
        return;
      }
      makeForm(nota);
      const auto form = nota.dlgModelo;
      form->control(u"txtNombre")->setValue(NOrg);
      form->control(u"txtNombre")->Tag = NArch;
      propose(nota, u"txtMateria", u"txtMateria");
      propose(nota, u"txtTMateria", u"txtSubMateria");
      form->Show(nota.nota.frmBase);
      nota.dlgModelo.reset();
    }
    tellReady(nota);
  });
}

void dlgModelo_Aceptar(Instance& nota) {
  procedure(u"dlgModelo_Aceptar de CNota", [&] {
    ModelForm& form = formInUse(nota);
    const auto typed = [&](TextView box) { return form.control(box)->value().text(); };
    const Text name = filtrarNombreArchivo(typed(u"txtNombre"));
    const Text folder = ComprobarDirectorio(modelFolder(dataFolder(nota)), true);
    if (!name.empty() && storedFileIn(folder, name) == name) {
      MostrarMensaje(join(u"Existe un modelo con dicho nombre.", CRLF, CRLF, u"Introduzca otro nombre."),
                     yesNoInformation, u"Modelo");
      form.control(u"txtNombre")->SetFocus();
      return;
    }
    const Text source = storedPath(nota, sourceFolder(nota), form.control(u"txtNombre")->Tag);
    Platform::current().files->copy(source, storedPathIn(folder, name), false);
    database().Execute(insertion(name, typed(u"txtNotas"), typed(u"txtMateria"), typed(u"txtSubMateria")));
    if (database().RecordsAffected() == 0) MostrarMensaje(u"Error registrando el modelo.", okOnly, u"");
    form.Unload();
  });
}

void dlgModelo_VerMateria(Instance& nota, bool& Ok, const Text& ValInicial, Text& ValFinal) {
  nota.nota.VerMateria(Ok, ValInicial, ValFinal);
}

void dlgModelo_VerTMateria(Instance& nota, bool& Ok, const Variant& Materia, const Text& ValInicial,
                           Text& ValFinal) {
  nota.nota.VerTMateria(Ok, Materia, ValInicial, ValFinal);
}

}  // namespace ovalia
