#include "cards/MovingAnnotations.h"

#include <vector>

#include "attachments/DocumentFolders.h"
#include "attachments/StoredNames.h"
#include "attachments/StoredPaths.h"
#include "cards/Lookups.h"
#include "platform/Platform.h"
#include "routines/FileHelpers.h"
#include "routines/Messages.h"
#include "routines/SqlText.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr std::int32_t okOnly = 0, critical = 16, exclamation = 48;

// An attachment on its way.
struct Moved {
  Text oldName, newName;
  Variant IdDocu;
};

struct Move {
  std::int32_t annotation, parent, client;
  Text oldFolder = {}, newFolder = {};
};

// Files are looked for in a folder that is there, lest they count as missing.
void checkFolder(TextView folder, std::int32_t parent) {
  if (folder.empty())
    throw Failure(failure::pathNotFound,
                  join(u"No se ha podido preparar la carpeta de los documentos de la ficha ", parent,
                       u". Compruebe la carpeta de datos y sus permisos."));
}

// Copies one file, or deletes the row of one that is missing.
Moved copied(const Instance& nota, const Move& move, dao::Recordset& row) {
  Moved moved{row.value(u"NombreArch").toText(), {}, row.value(u"IdDocu")};
  Text extension = lastFour(moved.oldName);
  moved.newName = CreaNombreDoc(nota, move.parent, extension);
  if (isStored(nota, move.oldFolder, moved.oldName)) {
    Platform::current().files->copy(storedPath(nota, move.oldFolder, moved.oldName),
                                    storedPath(nota, move.newFolder, moved.newName), false);
  } else {
    MostrarMensaje(u"No se puede encontrar el fichero adjunto.", exclamation, u"");
    database().Execute(join(u"DELETE * FROM ", nota.nota.DocuAsoc, u" WHERE IdDocu = ", moved.IdDocu));
  }
  return moved;
}

void link(const Instance& nota, const Move& move) {
  database().Execute(join(u"UPDATE ", nota.nota.Nota, u" SET ", nota.nota.IdPr, u" = ", move.parent,
                          u", IdCliente=", move.client, u" WHERE Id", nota.nota.Tipo, u" = ",
                          move.annotation));
}

void dispose(const Instance& nota, const Move& move, const Moved& moved) {
  if (!isStored(nota, move.newFolder, moved.newName))
    MostrarMensaje(join(u"Error, el fichero ", dataFolder(nota), u"\\", move.oldFolder, moved.oldName,
                        u" no se ha copiado"),
                   okOnly, u"");
  if (!isStored(nota, move.oldFolder, moved.oldName)) return;
  resumeNext([&] { EnviarAPapelera(storedPath(nota, move.oldFolder, moved.oldName)); });
  database().Execute(join(u"UPDATE ", nota.nota.DocuAsoc, u" SET ", u" NombreArch=",
                          ComillaSQL(moved.newName), u", Id=", move.parent, u" WHERE IdDocu = ",
                          moved.IdDocu));
}

// Names are made one at a time: the rows still hold the old parent, so that only the copies on disk keep two
// new names apart.
void moveOne(const Instance& nota, Move move, const ObjectRef& form) {
  const auto rows = database().OpenRecordset(
      join(u"SELECT * FROM ", nota.nota.DocuAsoc, u" WHERE IdNota = ", move.annotation), dao::dbOpenSnapshot);
  const std::int32_t oldParent = getMember(objectAt(form, {u"vClase"}), u"NumFicha").toLong();
  move.oldFolder = CreaPathDoc(nota, oldParent);
  move.newFolder = CreaPathDoc(nota, move.parent);
  if (!rows->isEOF()) {
    checkFolder(move.oldFolder, oldParent);
    checkFolder(move.newFolder, move.parent);
  }
  std::vector<Moved> all;
  for (; !rows->isEOF(); rows->MoveNext()) all.push_back(copied(nota, move, *rows));
  link(nota, move);
  for (const Moved& moved : all) dispose(nota, move, moved);
}

std::int32_t markedAnnotation(const ObjectRef& grid, std::int32_t place) {
  const Variant bookmark = getMember(grid, u"SelBookmarks", {place}).plain();
  const ObjectRef column = getMember(grid, u"Columns", {u"IdANota"}).toObject();
  return callMember(column, u"CellText", {bookmark}).toLong();
}

}  // namespace

void TrasladaNotas(Instance& nota, std::int32_t NuevoId, std::int32_t NuevoCliente) {
  procedure(u"TrasladaNotas de CNota", [&] {
    const ObjectRef form = getMember(nota.nota.frmBase, u"ActiveForm").toObject();
    const ObjectRef grid = objectAt(form, {u"grdNota"});
    const std::int32_t count = getMember(objectAt(grid, {u"SelBookmarks"}), u"Count").toLong();
    if (count == 0) MostrarMensaje(u"Por favor, marque las notas que quiere mover.", critical, u"");
    for (std::int32_t place = 0; place < count; ++place)
      moveOne(nota, {.annotation = markedAnnotation(grid, place), .parent = NuevoId, .client = NuevoCliente},
              form);
  });
}

}  // namespace ovalia
