#include "host/Answers.h"

#include "host/AnnotationList.h"
#include "host/Exports.h"
#include "host/MailDraft.h"
#include "host/Names.h"
#include "host/WordProcessor.h"
#include "platform/Platform.h"

namespace ovalia::host {

namespace {

// A name chosen from a column, or the old one when the user cancels: the component takes any answer.
Text pickName(Workplace& workplace, TextView title, TextView table, TextView column, TextView old) {
  const auto names = namesOf(*workplace.agency.database, table, column);
  return workplace.dialogs.pickOne(title, names, old).value_or(Text(old));
}

void answerNames(CNota& nota, Workplace& workplace) {
  nota.VerClientes.connect([&workplace](const Text& old, Text& chosen) {
    chosen = pickName(workplace, u"Clientes", u"Cliente", u"Alias", old);
  });
  nota.VerAgencias.connect([&workplace](const Text& old, Text& chosen) {
    chosen = pickName(workplace, u"Agencias", u"Agencia", u"Alias", old);
  });
  nota.VerUsuarios.connect([&workplace](const Text& old, Text& chosen) {
    chosen = pickName(workplace, u"Usuarios", u"Usuario", u"Nombre", old);
  });
  nota.ChkClientes.connect([&workplace](const Text& name, Text& proposal, bool& ok) {
    ok = checkName(workplace, u"Cliente", u"Alias", name, proposal);
  });
  nota.ChkAgencias.connect([&workplace](const Text& name, Text& proposal, bool& ok) {
    ok = checkName(workplace, u"Agencia", u"Alias", name, proposal);
  });
}

void answerValues(CNota& nota, Workplace& workplace) {
  nota.VerListadoMx.connect(
      [&workplace](Text& chosen, const Text& value, const Text& table, const Text& title) {
        const auto names = namesOf(*workplace.agency.database, table, u"Nombre");
        const auto picked = workplace.dialogs.pickSeveral(title, names, splitValues(value));
        chosen = picked ? joinValues(*picked) : value;
      });
  nota.ChkListadoMx.connect([&workplace](bool& ok, ObjectRef control, const Text& table, const Text& title) {
    const Text before = getMember(control, u"Text").text();
    Text value = before;
    ok = checkValues(workplace, table, title, value);
    if (value != before) putMember(control, u"Text", value);
  });
}

// An access type that the table lacks may be created; else one is chosen.
bool chooseAccess(Workplace& workplace, const Text& value, Text& answer) {
  dao::Database& database = *workplace.agency.database;
  const Text wanted = trimBlanks(value);
  if (!wanted.empty() && !spelling(database, u"TipoAccNota", u"Nombre", wanted) &&
      workplace.dialogs.confirm(u"Acceso", u"El acceso «" + wanted + u"» no existe. ¿Desea crearlo?")) {
    database.Execute(u"INSERT INTO TipoAccNota (Nombre) VALUES (" + literal(wanted) + u")");
    answer = wanted;
    return database.RecordsAffected() > 0;
  }
  const auto names = namesOf(database, u"TipoAccNota", u"Nombre");
  const auto picked = workplace.dialogs.pickOne(u"Acceso", names, nearest(names, wanted).value_or(wanted));
  answer = picked.value_or(value);
  return picked.has_value();
}

bool chooseSubject(Workplace& workplace, const Text& initial, Text& answer) {
  const auto names = namesOf(*workplace.agency.database, u"Materia", u"Nombre");
  const auto picked = workplace.dialogs.pickOne(u"Materia", names, initial);
  answer = picked.value_or(initial);
  return picked.has_value();
}

// The parts of a subject; of all subjects when it names none.
bool chooseSubjectPart(Workplace& workplace, const Text& subject, const Text& initial, Text& answer) {
  dao::Database& database = *workplace.agency.database;
  Text from = u"TipoMateria";
  if (spelling(database, u"Materia", u"Nombre", subject))
    from += u" WHERE IdMateria IN (SELECT IdMateria FROM Materia WHERE Nombre = " + literal(subject) + u")";
  const auto picked = workplace.dialogs.pickOne(u"Sub Materia", namesOf(database, from, u"Nombre"), initial);
  answer = picked.value_or(initial);
  return picked.has_value();
}

void answerChoices(CNota& nota, Workplace& workplace) {
  nota.ChkTipoAccNota.connect([&workplace](bool& ok, const Text& value, Text& answer) {
    ok = chooseAccess(workplace, value, answer);
  });
  nota.VerMateria.connect([&workplace](bool& ok, const Text& initial, Text& answer) {
    ok = chooseSubject(workplace, initial, answer);
  });
  nota.VerTMateria.connect([&workplace](bool& ok, const Variant& subject, const Text& initial, Text& answer) {
    ok = chooseSubjectPart(workplace, subject.text(), initial, answer);
  });
}

// Of what a host writes into a new row, a visit keeps its subject and its place.
void completeVisit(dao::Recordset& rows, const Text& place) {
  if (place.empty()) return;
  rows.Edit();
  rows.setValue(u"Donde", place);
  rows.Update();
}

void answerRows(CNota& nota, AnnotationList& list) {
  nota.CargaRegistros.connect([&list](Text&, Text&) {
    list.reload();
    list.changed();
  });
  nota.CompletarNueva.connect([&list](Text& kind, dao::RecordsetRef& rows) {
    if (kind == u"Visita" && rows) completeVisit(*rows, list.visitPlace());
  });
}

// What the card calls a document; its own name where it is no attachment.
Text shownName(Workplace& workplace, AnnotationList& list, const Text& document) {
  Text stored(document.substr(document.rfind(u'\\') + 1));
  const TextView table = list.annotations().attachments;
  if (table.empty()) return stored;
  const auto rows = workplace.agency.database->OpenRecordset(
      u"SELECT NombreOrg FROM " + Text(table) + u" WHERE NombreArch = " + literal(stored),
      dao::dbOpenSnapshot);
  const Text shown = rows->isEOF() ? Text() : rows->value(u"NombreOrg").text();
  return shown.empty() ? stored : shown;
}

void openDocument(Workplace& workplace, AnnotationList& list, const Text& document) {
  const Text name = shownName(workplace, list, document);
  const Text path = nativePath(document);
  if (workplace.dialogs.openFile(path, name)) return;
  workplace.dialogs.tell(
      u"Documento", u"No hay ningún programa para abrir «" + name +
                        u"»: instale uno para esa clase de documentos.\nEl fichero está en " + path + u".");
}

void answerDocuments(CNota& nota, AnnotationList& list, Workplace& workplace) {
  nota.AbrirDoc.connect([&](Text& document) { openDocument(workplace, list, document); });
  nota.NuevoDoc.connect([&workplace](Text& document, Text& model, ObjectRef& word) {
    word = newDocument(workplace, document, model);
  });
  nota.PasaDatosaDoc.connect(
      [](Variant& marks, Variant& values, ObjectRef& word) { fillDocument(marks, values, word); });
  nota.PasaDatosEMail.connect([&workplace](Variant& marks, Variant& values) {
    workplace.dialogs.sendMail(mailDraft(workplace, marks, values));
  });
  nota.ImportarCorreos.connect([&list] { list.takeMails(); });
}

void answerExports(CNota& nota, AnnotationList& list, Workplace& workplace) {
  nota.ExportarNotas.connect([&](std::int32_t note) { exportNote(workplace, list.annotations(), note); });
  nota.ExportarVisitas.connect(
      [&](std::int32_t visit) { exportVisit(workplace, list.annotations(), visit); });
}

}  // namespace

bool checkName(Workplace& workplace, TextView table, TextView column, TextView name, Text& proposal) {
  const Text wanted = trimBlanks(name);
  dao::Database& database = *workplace.agency.database;
  if (wanted.empty() || spelling(database, table, column, wanted)) return true;
  if (const auto near = nearest(namesOf(database, table, column), wanted)) {
    proposal = *near;
    return false;
  }
  workplace.dialogs.tell(Text(table),
                         u"«" + wanted +
                             u"» no está en la lista. Pulse Mayúsculas+Intro para elegir un nombre, o "
                             u"deje la casilla en blanco.");
  return false;
}

bool checkValues(Workplace& workplace, TextView table, TextView title, Text& value) {
  dao::Database& database = *workplace.agency.database;
  std::vector<Text> values = splitValues(value);
  bool known = true;
  Text unknown;
  for (Text& one : values) {
    if (const auto spelt = spelling(database, table, u"Nombre", one)) {
      one = *spelt;
      continue;
    }
    known = false;
    if (const auto near = nearest(namesOf(database, table, u"Nombre"), one))
      one = *near;
    else
      unknown = one;
  }
  value = joinValues(values);
  if (!unknown.empty())
    workplace.dialogs.tell(
        title, u"«" + unknown + u"» no está en la lista. Pulse el botón para elegir los valores.");
  return known;
}

void connectAnswers(CNota& nota, AnnotationList& list, Workplace& workplace) {
  answerNames(nota, workplace);
  answerValues(nota, workplace);
  answerChoices(nota, workplace);
  answerRows(nota, list);
  answerDocuments(nota, list, workplace);
  answerExports(nota, list, workplace);
}

}  // namespace ovalia::host
