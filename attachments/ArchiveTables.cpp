#include "attachments/ArchiveTables.h"

#include "platform/Failure.h"

namespace ovalia {

namespace {

constexpr TextView archiveMark = u"Arch";

// An empty name of a live table: the archive's name without the mark's four characters at its end. An empty
// name of an archive table stands for all others.
struct ArchiveRow {
  TextView docuAsoc, notes, attachments, parentColumn;
};

constexpr ArchiveRow archives[] = {
    {u"DocuNotaIArch", u"NotaIP", u"DocuNotaIP", u"IdInm"},
    {u"DocuAnuncioIArch", u"AnuncioIP", u"DocuAnuncioIP", u"IdInm"},
    {u"DocuNotaProyArch", u"", u"", u"IdPrincipal"},
    {u"", u"", u"", u"IdExpVivo"},
};

const ArchiveRow& rowOf(TextView docuAsoc) {
  const ArchiveRow* row = archives;
  while (!row->docuAsoc.empty() && row->docuAsoc != docuAsoc) ++row;
  return *row;
}

Text liveName(TextView given, TextView archive) {
  if (!given.empty()) return Text(given);
  if (archive.size() < archiveMark.size()) throw Failure(failure::badArgument);
  return Text(archive.substr(0, archive.size() - archiveMark.size()));
}

}  // namespace

bool isArchiveTable(TextView DocuAsoc) { return DocuAsoc.find(archiveMark) != TextView::npos; }

LiveTables liveTablesOf(TextView DocuAsoc, TextView Nota) {
  const ArchiveRow& row = rowOf(DocuAsoc);
  return {liveName(row.notes, Nota), liveName(row.attachments, DocuAsoc), Text(row.parentColumn)};
}

}  // namespace ovalia
