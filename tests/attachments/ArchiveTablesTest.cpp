#include "attachments/ArchiveTables.h"

#include <gtest/gtest.h>

#include "routines/Trap.h"

namespace ovalia {
namespace {

TEST(ArchiveTables, have_arch_in_their_names_to_the_letter) {
  for (const TextView name :
       {u"DocuNotaIArch", u"DocuAnuncioIArch", u"DocuNotaProyArch", u"ArchDocu", u"DocuArchivo", u"Arch"})
    EXPECT_TRUE(isArchiveTable(name)) << toUtf8(name);
  for (const TextView name : {u"DocuNotaIP", u"DocuAnuncioIP", u"DocuNotaIARCH", u"docuarch", u""})
    EXPECT_FALSE(isArchiveTable(name)) << toUtf8(name);
}

struct Archive {
  TextView docuAsoc, nota;
  TextView notes, attachments, parentColumn;
};

constexpr Archive archives[] = {
    {u"DocuNotaIArch", u"NotaIArch", u"NotaIP", u"DocuNotaIP", u"IdInm"},
    {u"DocuAnuncioIArch", u"AnuncioIArch", u"AnuncioIP", u"DocuAnuncioIP", u"IdInm"},
    {u"DocuNotaProyArch", u"NotaProyArch", u"NotaProy", u"DocuNotaProy", u"IdPrincipal"},
    {u"DocuNotaExpArch", u"NotaExpArch", u"NotaExp", u"DocuNotaExp", u"IdExpVivo"},
    // The names are compared to the letter, and four characters go whatever they are.
    {u"DocuNotaIArchivo", u"NotaIArchivo", u"NotaIArc", u"DocuNotaIArc", u"IdExpVivo"},
    {u"Arch", u"Nota", u"", u"", u"IdExpVivo"},
};

TEST(ArchiveTables, have_live_tables_of_their_own) {
  for (const Archive& row : archives) {
    const LiveTables live = liveTablesOf(row.docuAsoc, row.nota);
    EXPECT_EQ(live.notes, row.notes) << toUtf8(row.docuAsoc);
    EXPECT_EQ(live.attachments, row.attachments) << toUtf8(row.docuAsoc);
    EXPECT_EQ(live.parentColumn, row.parentColumn) << toUtf8(row.docuAsoc);
  }
}

TEST(ArchiveTables, a_name_too_short_to_lose_four_characters_is_a_failure) {
  EXPECT_EQ(resumeNext([] { liveTablesOf(u"DocuNotaExpArch", u"Nta"); }), failure::badArgument);
  EXPECT_EQ(resumeNext([] { liveTablesOf(u"DocuNotaIArch", u""); }), 0);
}

}  // namespace
}  // namespace ovalia
