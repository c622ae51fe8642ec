#include "tests/cardkit/AgencyHost.h"

#include <algorithm>

namespace ovalia::kit {
namespace {

using FakeRef = std::shared_ptr<FakeObject>;

FakeRef object() { return std::make_shared<FakeObject>(); }

// The controller behind a host form: record 120, saved.
FakeRef controller(TextView table, TextView key) {
  auto registros = object();
  registros->answering(u"", [](Arguments field) -> Variant {
    if (sameName(field[0].toText(), u"Id")) return 120;
    return u"";
  });
  auto vClase = object();
  vClase->with(u"cEstado", 0).with(u"NumNuevo", 0).with(u"IdRegistro", 120).with(u"NumFicha", 120);
  vClase->with(u"tabla", table).with(u"IdTabla", key);
  vClase->answering(u"Registros", [registros](Arguments field) -> Variant {
    return field.empty() ? Variant(registros) : registros->get(u"", field);
  });
  vClase->giving(u"AvisoCambio", true).giving(u"CargaRegistros", {});
  return vClase;
}

FakeRef hostForm(TextView name, TextView caption, TextView table, TextView key) {
  FakeRef form = named(name, caption);
  form->with(u"vClase", controller(table, key)).with(u"ActiveControl", named(u"grdNota"));
  form->giving(u"ComprobarCambio", true);
  for (const TextView list : {u"Nota", u"Visita", u"Anuncio", u"Llamada"}) {
    auto data = object();
    data->with(u"Recordset", ObjectRef());
    form->with(u"dat" + Text(list), data).with(u"grd" + Text(list), named(u"grd" + Text(list)));
  }
  form->with(u"grdHistorico", named(u"grdHistorico"));
  return form;
}

}  // namespace

AgencyHost::AgencyHost(FakeScreen& screen)
    : FichaInm(hostForm(u"FichaInm", u"Inmueble 120", u"Inmueble", u"IdInm")),
      FichaUsuario(hostForm(u"FichaUsuario", u"Usuario", u"Usuario", u"IdUsuario")),
      FichaExpV(hostForm(u"FichaExpV", u"Expediente", u"ExpVivo", u"IdExpVivo")),
      cApp(object()),
      frmBase(named(u"frmBase", u"Agencia")),
      statusBar(object()),
      panel(object()),
      dlgfrmbase(object()),
      screen_(screen) {
  FichaInm->giving(u"Ajuste_N_Notas", {}).giving(u"Ajuste_N_Visitas", {}).giving(u"Ajuste_N_Anuncios", {});
  FichaUsuario->giving(u"RellenaVisita", {});
  cApp->with(u"title", u"Agencia");
  panel->with(u"Text", u"");
  statusBar->answering(u"Panels", [this](Arguments) -> Variant { return panel; });
  dlgfrmbase->with(u"fileName", u"");
  for (const TextView show : {u"ShowOpen", u"ShowSave", u"ShowPrinter"}) dlgfrmbase->giving(show, {});
  frmBase->with(u"StatusBar1", statusBar).with(u"dlgfrmbase", dlgfrmbase);
  shows(FichaInm);
}

void AgencyHost::shows(const FakeRef& form) {
  onTop_ = form;
  frmBase->with(u"ActiveForm", ObjectRef(form));
  screen_.form = form ? form : frmBase;
  screen_.loadedForms = {frmBase};
  if (form) screen_.loadedForms.push_back(form);
}

FakeObject& AgencyHost::vClase() const {
  return dynamic_cast<FakeObject&>(*deref(onTop_).get(u"vClase").toObject());
}

int AgencyHost::calls(const FakeObject& form, TextView member) {
  const Text beginning = Text(member) + u"(";
  return static_cast<int>(
      std::ranges::count_if(form.journal, [&](const Text& line) { return line.starts_with(beginning); }));
}

void AgencyHost::note(TextView event, std::initializer_list<Variant> arguments) {
  Text line(event);
  line += u"(";
  for (const Variant& argument : arguments) {
    if (line.back() != u'(') line += u", ";
    line += argument.isObject() ? getMember(argument.toObject(), u"Name").text() : argument.text();
  }
  events.push_back(line + u")");
}

void AgencyHost::connect(NotaSurface& nota) {
  nota.cApp = cApp;
  nota.frmBase = frmBase;
  nota.AppDirUser = u"\\Datos\\Agencia";
  nota.cUsuario = u"Carmen Soler";
  nota.Cabecera = u"Inmueble ";
  nota.IdAgencia = 1;
  nota.NAgencia = 4;
  nota.TipoAccNota = u"TipoAccNota";
  nota.bPermitirCreacion = true;

  // The host that agrees; word processor and mail do nothing of their own.
  answers.VerAgencias = answers.VerClientes =
      answers.VerUsuarios = [](const Text& old, Text& chosen) { chosen = old; };
  answers.ChkAgencias = answers.ChkClientes = [](const Text&, Text&, bool& ok) { ok = true; };
  answers.ChkListadoMx = [](bool& ok, ObjectRef, const Text&, const Text&) { ok = true; };
  answers.VerListadoMx = [](Text& chosen, const Text& value, const Text&, const Text&) { chosen = value; };
  answers.ChkTipoAccNota = [](bool& ok, const Text& value, Text& name) {
    name = value;
    ok = true;
  };
  answers.VerMateria = [](bool& ok, const Text& old, Text& chosen) {
    chosen = old;
    ok = true;
  };
  answers.VerTMateria = [](bool& ok, const Variant&, const Text& old, Text& chosen) {
    chosen = old;
    ok = true;
  };
  answers.CargaRegistros = [&nota](Text&, Text&) {
    if (nota.crs) nota.crs->Requery();
  };

  const auto answer = [](const auto& function, auto&... arguments) {
    if (function) function(arguments...);
  };
  nota.AbrirDoc.connect([=, this](Text& doc) {
    note(u"AbrirDoc", {doc});
    answer(answers.AbrirDoc, doc);
  });
  nota.NuevoDoc.connect([=, this](Text& doc, Text& dot, ObjectRef& word) {
    note(u"NuevoDoc", {doc, dot});
    answer(answers.NuevoDoc, doc, dot, word);
  });
  nota.ImportarCorreos.connect([=, this] {
    note(u"ImportarCorreos");
    answer(answers.ImportarCorreos);
  });
  nota.ExportarNotas.connect([=, this](std::int32_t id) {
    note(u"ExportarNotas", {id});
    answer(answers.ExportarNotas, id);
  });
  nota.ExportarVisitas.connect([=, this](std::int32_t id) {
    note(u"ExportarVisitas", {id});
    answer(answers.ExportarVisitas, id);
  });
  nota.PasaDatosaDoc.connect([=, this](Variant& marks, Variant& values, ObjectRef& word) {
    note(u"PasaDatosaDoc");
    answer(answers.PasaDatosaDoc, marks, values, word);
  });
  nota.PasaDatosEMail.connect([=, this](Variant& marks, Variant& values) {
    note(u"PasaDatosEMail");
    answer(answers.PasaDatosEMail, marks, values);
  });
  nota.CargaRegistros.connect([=, this](Text& tipo, Text& table) {
    note(u"CargaRegistros", {tipo, table});
    answer(answers.CargaRegistros, tipo, table);
  });
  nota.CompletarNueva.connect([=, this](Text& tipo, dao::RecordsetRef& rows) {
    note(u"CompletarNueva", {tipo});
    answer(answers.CompletarNueva, tipo, rows);
  });
  nota.VerAgencias.connect([=, this](const Text& old, Text& chosen) {
    note(u"VerAgencias", {old});
    answer(answers.VerAgencias, old, chosen);
  });
  nota.ChkAgencias.connect([=, this](const Text& old, Text& name, bool& ok) {
    note(u"ChkAgencias", {old});
    answer(answers.ChkAgencias, old, name, ok);
  });
  nota.VerClientes.connect([=, this](const Text& old, Text& chosen) {
    note(u"VerClientes", {old});
    answer(answers.VerClientes, old, chosen);
  });
  nota.ChkClientes.connect([=, this](const Text& old, Text& name, bool& ok) {
    note(u"ChkClientes", {old});
    answer(answers.ChkClientes, old, name, ok);
  });
  nota.ChkListadoMx.connect([=, this](bool& ok, ObjectRef control, const Text& table, const Text& title) {
    note(u"ChkListadoMx", {control, table, title});
    answer(answers.ChkListadoMx, ok, control, table, title);
  });
  nota.VerListadoMx.connect([=, this](Text& chosen, const Text& value, const Text& table, const Text& title) {
    note(u"VerListadoMx", {value, table, title});
    answer(answers.VerListadoMx, chosen, value, table, title);
  });
  nota.ChkTipoAccNota.connect([=, this](bool& ok, const Text& value, Text& name) {
    note(u"ChkTipoAccNota", {value});
    answer(answers.ChkTipoAccNota, ok, value, name);
  });
  nota.VerMateria.connect([=, this](bool& ok, const Text& old, Text& chosen) {
    note(u"VerMateria", {old});
    answer(answers.VerMateria, ok, old, chosen);
  });
  nota.VerTMateria.connect([=, this](bool& ok, const Variant& materia, const Text& old, Text& chosen) {
    note(u"VerTMateria", {materia, old});
    answer(answers.VerTMateria, ok, materia, old, chosen);
  });
  nota.VerUsuarios.connect([=, this](const Text& old, Text& chosen) {
    note(u"VerUsuarios", {old});
    answer(answers.VerUsuarios, old, chosen);
  });
}

}  // namespace ovalia::kit
