#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "instance/NotaSurface.h"
#include "tests/kit/FakeObject.h"
#include "tests/kit/FakeScreen.h"

namespace ovalia::kit {

// The application around the component: every object of the host's contract, and an answer to every event.
// What the component does to an object is in that object's `journal`; events are in `events`, in order, as
// "VerClientes(Luis Pérez)".
//
// The host agrees by default: it finds every name good, gives back the old text where a list is opened (a
// dialog that was cancelled), and refreshes `crs` when asked. A test replaces an answer to have it otherwise:
//
//   host.answers.VerClientes = [](const Text&, Text& chosen) { chosen = u"Eva Núñez"; };
class AgencyHost {
 public:
  explicit AgencyHost(FakeScreen& screen);

  // The property's card, the user's card and the case file's: each has its own `vClase`. Counters
  // (Ajuste_N_Notas, ..., RellenaVisita), data controls and grids are where the contract wants them.
  std::shared_ptr<FakeObject> FichaInm, FichaUsuario, FichaExpV;

  std::shared_ptr<FakeObject> cApp;        // title "Agencia"
  std::shared_ptr<FakeObject> frmBase;     // ActiveForm, StatusBar1, dlgfrmbase
  std::shared_ptr<FakeObject> statusBar;   // its one panel: `panel`
  std::shared_ptr<FakeObject> panel;       // Text
  std::shared_ptr<FakeObject> dlgfrmbase;  // shows nothing; its journal tells what was asked

  // Puts a form of the host on top: frmBase.ActiveForm, and the screen's active form while no card is up.
  // Nothing is on top when it is an empty reference. FichaInm is at first.
  void shows(const std::shared_ptr<FakeObject>& form);

  // The controller of the form on top.
  FakeObject& vClase() const;

  // How often a member of a form was called.
  static int calls(const FakeObject& form, TextView member);

  // Sets the component's properties as the host does before the first card, and listens to its events.
  void connect(NotaSurface& nota);

  std::vector<Text> events;

  struct Answers {
    std::function<void(Text& doc)> AbrirDoc;
    std::function<void(Text& doc, Text& dot, ObjectRef& word)> NuevoDoc;
    std::function<void()> ImportarCorreos;
    std::function<void(std::int32_t id)> ExportarNotas, ExportarVisitas;
    std::function<void(Variant& marks, Variant& values, ObjectRef& word)> PasaDatosaDoc;
    std::function<void(Variant& marks, Variant& values)> PasaDatosEMail;
    std::function<void(Text& tipo, Text& nota)> CargaRegistros;
    std::function<void(Text& tipo, dao::RecordsetRef& rs)> CompletarNueva;
    std::function<void(const Text&old, Text&chosen)> VerAgencias, VerClientes, VerUsuarios;
    std::function<void(const Text&typed, Text&better, bool&ok)> ChkAgencias, ChkClientes;
    std::function<void(bool& ok, ObjectRef control, const Text& table, const Text& title)> ChkListadoMx;
    std::function<void(Text& chosen, const Text& value, const Text& table, const Text& title)> VerListadoMx;
    std::function<void(bool& ok, const Text& value, Text& name)> ChkTipoAccNota;
    std::function<void(bool& ok, const Text& old, Text& chosen)> VerMateria;
    std::function<void(bool& ok, const Variant& materia, const Text& old, Text& chosen)> VerTMateria;
  } answers;

 private:
  void note(TextView event, std::initializer_list<Variant> arguments = {});

  FakeScreen& screen_;
  std::shared_ptr<FakeObject> onTop_;
};

}  // namespace ovalia::kit
