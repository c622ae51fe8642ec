#include "attachments/CopyNames.h"

#include <gtest/gtest.h>

#include "routines/Trap.h"
#include "tests/cardkit/Attachments.h"

namespace ovalia {
namespace {

struct Copy {
  TextView of, name;
};

constexpr Copy copies[] = {
    {u"plano.pdf", u"Copia de plano.pdf"},
    {u"Copia de plano.pdf", u"Copia(2) de plano.pdf"},
    {u"Copia(2) de plano.pdf", u"Copia(3) de plano.pdf"},
    {u"Copia(99) de plano.pdf", u"Copia(100) de plano.pdf"},
    {u"", u"Copia de "},
    {u"copia de plano.pdf", u"Copia de copia de plano.pdf"},
    // The five letters are enough: such a name loses nine characters.
    {u"Copias.doc", u"Copia(2) de c"},
    {u"Copias de llaves.doc", u"Copia(2) de  llaves.doc"},
    {u"Copia", u"Copia(2) de "},
    {u"Copia.doc", u"Copia(2) de "},
    // What stands in the brackets, and what follows them, may be anything.
    {u"Copia() de plano.pdf", u"Copia(1) de plano.pdf"},
    {u"Copia(x) de plano.pdf", u"Copia(1) de plano.pdf"},
    {u"Copia(7)", u"Copia(8) de "},
    {u"Copia(7)ab", u"Copia(8) de "},
    {u"Copia(7) de a) b.pdf", u"Copia(8) de a) b.pdf"},
};

TEST(CopyName, follows_the_one_before) {
  for (const Copy& row : copies) EXPECT_EQ(copyName(row.of), row.name) << toUtf8(row.of);
}

TEST(CopyName, needs_the_closing_bracket) {
  EXPECT_EQ(resumeNext([] { copyName(u"Copia(2 de plano.pdf"); }), failure::badArgument);
}

class CopyNames : public kit::AttachmentsTest {
 protected:
  void shown(TextView name, std::int32_t record = 120) {
    documents->add({Null, record, 1, 501, name, u"120F00.doc"});
  }
};

TEST_F(CopyNames, that_are_free_are_taken) {
  EXPECT_EQ(GenerarNombreCopia(instance, u"plano.pdf"), u"Copia de plano.pdf");
  EXPECT_EQ(database->opened.back(),
            u"SELECT NombreOrg FROM DocuNotaIP WHERE NombreOrg='Copia de plano.pdf'");
}

TEST_F(CopyNames, that_are_shown_anywhere_in_the_table_are_passed_over) {
  shown(u"Copia de plano.pdf", 999);
  shown(u"COPIA(2) de plano.pdf");
  EXPECT_EQ(GenerarNombreCopia(instance, u"plano.pdf"), u"Copia(3) de plano.pdf");
}

TEST_F(CopyNames, with_quotes_and_bars_reach_the_table_as_they_are) {
  shown(u"Copia de l'Hospitalet|2.pdf");
  EXPECT_EQ(GenerarNombreCopia(instance, u"l'Hospitalet|2.pdf"), u"Copia(2) de l'Hospitalet|2.pdf");
}

TEST_F(CopyNames, pass_over_two_hundred) {
  shown(u"Copia de plano.pdf");
  for (int i = 2; i <= 200; ++i) shown(join(u"Copia(", i, u") de plano.pdf"));
  EXPECT_EQ(GenerarNombreCopia(instance, u"plano.pdf"), u"Copia(201) de plano.pdf");
}

TEST_F(CopyNames, a_bracket_that_is_never_closed_is_reported) {
  expectReport(u"GenerarNombreCopia de CNota", failure::badArgument);
  EXPECT_EQ(GenerarNombreCopia(instance, u"Copia(2 de plano.pdf"), u"");
}

TEST_F(CopyNames, a_number_that_cannot_grow_any_more_ends_the_search) {
  shown(u"Copia(1E+300) de plano.pdf");
  expectReport(u"GenerarNombreCopia de CNota", failure::outOfStackSpace);
  EXPECT_EQ(GenerarNombreCopia(instance, u"Copia(1E+300) de plano.pdf"), u"");
}

TEST_F(CopyNames, that_cannot_be_looked_for_are_reported_and_empty) {
  here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
  expectReport(u"GenerarNombreCopia de CNota", dao::failure::locked);
  EXPECT_EQ(GenerarNombreCopia(instance, u"plano.pdf"), u"");
}

}  // namespace
}  // namespace ovalia
