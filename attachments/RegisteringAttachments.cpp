#include "attachments/RegisteringAttachments.h"

#include "attachments/ArchiveTables.h"
#include "attachments/AttachmentList.h"
#include "attachments/CopyNames.h"
#include "cards/Lookups.h"
#include "routines/FileHelpers.h"
#include "routines/Messages.h"
#include "routines/SqlText.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr std::int32_t okOnly = 0, critical = 16;

dao::RecordsetRef snapshot(const Text& sql) { return database().OpenRecordset(sql, dao::dbOpenSnapshot); }

// What an attachment's row holds but for its key. Parent and annotation stand in statements as they are.
struct Attachment {
  Variant parent, annotation;
  std::int32_t agency;
  Text shown, stored;
};

constexpr TextView columns = u"Id, IdAgencia, IdNota, NombreOrg, NombreArch";

Text valuesOf(const Attachment& row) {
  return join(row.parent, u",", row.agency, u",", row.annotation, u",", ComillaSQL(row.shown), u",",
              ComillaSQL(row.stored));
}

Text insertStatement(TextView table, const Attachment& row) {
  return join(u"INSERT INTO ", table, u" (", columns, u") VALUES (", valuesOf(row), u")");
}

// Searched among the stored names: a file out of the tree itself is shown as a copy of what it is there.
Text shownName(const Instance& nota, const Text& name) {
  const auto rows =
      snapshot(join(u"SELECT NombreOrg FROM ", nota.nota.DocuAsoc, u" WHERE NombreArch=", ComillaSQL(name)));
  const Text shown = rows->isEOF() ? name : GenerarNombreCopia(nota, rows->value(u"NombreOrg").text());
  rows->Close();
  return shown;
}

Attachment onCurrentRow(const Instance& nota, const Text& shown, TextView stored) {
  return {nota.crs().value(u"Id"), nota.crs().value(u"IdAnota"), nota.nota.IdAgencia, shown, Text(stored)};
}

void insertLive(const Instance& nota, const Text& name, TextView stored) {
  const Text shown = shownName(nota, name);
  database().Execute(insertStatement(nota.nota.DocuAsoc, onCurrentRow(nota, shown, stored)));
}

// A key that the live table gives and will not give again; Null when it cannot be told. The user is told what
// went wrong.
Variant borrowedKey(TextView table, const Attachment& row) {
  database().Execute(insertStatement(table, row));
  if (database().RecordsAffected() == 0) {
    MostrarMensaje(u"Error al añadir archivo(1).", okOnly, u"");
    return Null;
  }
  const auto rows =
      snapshot(join(u"SELECT Max(IdDocu) AS N FROM ", table, u" WHERE Id = ", row.parent, u" AND IdNota = ",
                    row.annotation, u" AND NombreArch = ", ComillaSQL(row.stored)));
  const Variant key = rows->value(u"N");
  if (key.isNull()) MostrarMensaje(u"Error al añadir archivo(2).", okOnly, u"");
  return key;
}

// False when there is no annotation alive to borrow from; nothing was written then.
bool insertArchived(const Instance& nota, const Text& shown, TextView stored) {
  const LiveTables live = liveTablesOf(nota.nota.DocuAsoc, nota.nota.Nota);
  const auto donor = snapshot(join(u"SELECT * FROM ", live.notes));
  if (donor->isEOF()) {
    MostrarMensaje(join(u"Imposible añadir archivos adjuntos.", CRLF,
                        u"(No existen notas en Inmuebles sin archivar...)"),
                   okOnly, u"Notas");
    return false;
  }
  const Attachment borrowed{donor->value(live.parentColumn), donor->fields().at(0)->Value(),
                            nota.nota.IdAgencia, shown, Text(stored)};
  const Variant key = borrowedKey(live.attachments, borrowed);
  if (!key.isNull()) {
    database().Execute(join(u"DELETE * FROM ", live.attachments, u" WHERE IdDocu = ", key));
    database().Execute(join(u"INSERT INTO ", nota.nota.DocuAsoc, u" (IdDocu, ", columns, u") VALUES (", key,
                            u",", valuesOf(onCurrentRow(nota, shown, stored)), u")"));
  }
  donor->Close();
  return true;
}

void countOneMore(dao::Recordset& crs) {
  crs.Edit();
  crs.setValue(u"Narchivos", add(crs.value(u"Narchivos"), std::int32_t(1)));
  crs.Update();
}

}  // namespace

bool AniadirArch(Instance& nota, TextView NOrg, TextView NProg) {
  return procedureHandling(
      u"AniadirArch de CNota", false,
      [&](bool& result) {
        Text name;
        PathFichero(NOrg, name);
        if (!isArchiveTable(nota.nota.DocuAsoc))
          insertLive(nota, name, NProg);
        else if (!insertArchived(nota, name, NProg))
          return;
        // Of the last statement: where no key could be read that is the insertion into the live table.
        result = database().RecordsAffected() > 0;
        if (result)
          countOneMore(nota.crs());
        else
          MostrarMensaje(u"RecordsAffected = 0", critical, u"AniadirArch");
        if (nota.dNota && nota.dNota->Visible()) RefrescoDocs(nota);
      },
      [](const Failure&, bool& result) {
        result = false;
        return false;
      });
}

}  // namespace ovalia
