#include "attachments/StoredNames.h"

#include <gtest/gtest.h>

#include "routines/Trap.h"
#include "tests/cardkit/Attachments.h"

namespace ovalia {
namespace {

struct Extension {
  TextView given, stored;
};

constexpr Extension extensions[] = {
    {u".pdf", u".pdf"},
    {u".b.c", u".b.c"},
    {u".PDF", u".PDF"},
    {u"....", u"...."},
    {u".ñ ó", u".ñ ó"},
    {u".d😀", u".d😀"},
    // Five characters, four without a point in front, fewer, none.
    {u".jpeg", u".doc"},
    {u"docx", u".doc"},
    {u".gz", u".doc"},
    {u"a", u".doc"},
    {u"", u".doc"},
    {u"x.gz", u".doc"},
    {u".😀😀", u".doc"},
};

TEST(StoredExtension, is_a_point_and_three_more_or_else_doc) {
  for (const Extension& row : extensions)
    EXPECT_EQ(storedExtension(row.given), row.stored) << toUtf8(row.given);
}

struct Numbered {
  TextView name;
  std::int32_t number;  // noNumber, or the failure as a negative number
};
constexpr std::int32_t noNumber = 100'000;

constexpr Numbered numbered[] = {
    {u"4073F00.doc", 0},
    {u"4073F07.pdf", 7},
    {u"4073F100.doc", 100},
    {u"4073F32767.doc", 32767},
    {u"-5F03.doc", 3},
    {u"4073F12abc.doc", 12},
    {u"4073F.doc", 0},
    {u"4073Fabc.doc", 0},
    {u"4073F05.b.c", 5},
    // Only the first "F" and the first point count, and only an upper-case "F".
    {u"4073F05.F99.doc", 5},
    {u"F8F9.doc", 8},
    {u"4073f05.doc", noNumber},
    {u"informe.doc", noNumber},
    {u"", noNumber},
    // No point behind the "F".
    {u"4073F05", -failure::badArgument},
    {u"informe.F05", -failure::badArgument},
    {u"4073F32768.doc", -failure::overflow},
    {u"4073F99999999999999999999.doc", -failure::overflow},
};

TEST(StoredNumber, stands_between_the_first_f_and_the_first_point) {
  for (const Numbered& row : numbered) {
    std::int32_t read = 0;
    const std::int32_t failed = resumeNext([&] {
      const auto number = storedNumber(row.name);
      read = number ? *number : noNumber;
    });
    EXPECT_EQ(failed == 0 ? read : -failed, row.number) << toUtf8(row.name);
  }
}

TEST(StoredName, has_at_least_two_digits) {
  EXPECT_EQ(storedName(4073, 0, u".doc"), u"4073F00.doc");
  EXPECT_EQ(storedName(4073, 9, u".pdf"), u"4073F09.pdf");
  EXPECT_EQ(storedName(4073, 100, u".doc"), u"4073F100.doc");
  EXPECT_EQ(storedName(-5, 3, u".doc"), u"-5F03.doc");
}

class StoredNames : public kit::AttachmentsTest {
 protected:
  void row(TextView stored, std::int32_t record = 120, std::int32_t annotation = 501) {
    documents->add({Null, record, 1, annotation, u"x", stored.empty() ? Variant(Null) : Variant(stored)});
  }
  Text next(Text ext = u".doc", std::int32_t record = 120) { return CreaNombreDoc(instance, record, ext); }
};

TEST_F(StoredNames, begin_with_number_0_where_there_is_no_row) {
  EXPECT_EQ(next(), u"120F00.doc");
  EXPECT_EQ(next(u".pdf", 4073), u"4073F00.pdf");
  EXPECT_EQ(next(u".pdf", 0), u"0F00.pdf");
  EXPECT_EQ(next(u".pdf", -5), u"-5F00.pdf");
}

TEST_F(StoredNames, ask_for_the_rows_of_the_record_alone) {
  next();
  EXPECT_EQ(database->opened.back(), u"SELECT Id, NombreArch FROM DocuNotaIP WHERE Id = 120");
}

TEST_F(StoredNames, write_the_extension_used_back_to_the_caller) {
  Text ext = u"docx";
  EXPECT_EQ(CreaNombreDoc(instance, 120, ext), u"120F00.doc");
  EXPECT_EQ(ext, u".doc");
  ext = u".pdf";
  CreaNombreDoc(instance, 120, ext);
  EXPECT_EQ(ext, u".pdf");
}

TEST_F(StoredNames, count_on_from_the_highest_row_whatever_its_extension_and_annotation) {
  row(u"120F02.pdf");
  row(u"120F07.doc", 120, 502);
  row(u"120F05.doc");
  row(u"130F44.doc", 130);
  EXPECT_EQ(next(), u"120F08.doc");
}

TEST_F(StoredNames, leave_gaps_as_they_are_and_give_the_highest_again_once_it_is_gone) {
  for (const TextView name : {u"120F00.doc", u"120F01.doc", u"120F02.doc"}) row(name);
  documents->vanish(1);
  EXPECT_EQ(next(), u"120F03.doc");
  documents->vanish(1);
  EXPECT_EQ(next(), u"120F01.doc");
}

TEST_F(StoredNames, go_on_beyond_two_digits) {
  row(u"120F99.doc");
  EXPECT_EQ(next(), u"120F100.doc");
}

TEST_F(StoredNames, pass_over_rows_without_a_number) {
  row(u"informe.doc");
  row(u"");
  EXPECT_EQ(next(), u"120F00.doc");
  row(u"120F03.doc");
  row(u"otro.doc");
  EXPECT_EQ(next(), u"120F04.doc");
}

TEST_F(StoredNames, step_over_files_without_a_row) {
  here.files.putFile(agencyFolder + u"\\Doc4\\Doc0\\Doc7\\Doc0\\4073F00.doc");
  EXPECT_EQ(next(u".doc", 4073), u"4073F01.doc");
  here.files.putFile(agencyFolder + u"\\Doc4\\Doc0\\Doc7\\Doc0\\4073F01.DOC");
  EXPECT_EQ(next(u".doc", 4073), u"4073F02.doc") << "a name that differs in case only is taken";
  EXPECT_EQ(next(u".pdf", 4073), u"4073F00.pdf") << "another extension makes another name";
}

TEST_F(StoredNames, are_not_kept_apart_by_a_folder_of_that_name) {
  here.files.putFolder(leaf + u"120F00.doc");
  EXPECT_EQ(next(), u"120F00.doc");
}

TEST_F(StoredNames, make_the_folder_they_are_looked_for_in) {
  next();
  EXPECT_TRUE(here.files.exists(leaf));
}

TEST_F(StoredNames, an_f_without_a_point_behind_it_is_reported) {
  row(u"120F00");
  expectReport(u"CreaNombreDoc de CNota", failure::badArgument);
  EXPECT_EQ(next(), u"");
}

TEST_F(StoredNames, end_at_32767) {
  row(u"120F32766.doc");
  EXPECT_EQ(next(), u"120F32767.doc");
  row(u"120F32767.doc");
  expectReport(u"CreaNombreDoc de CNota", failure::overflow);
  EXPECT_EQ(next(), u"");
}

TEST_F(StoredNames, end_at_32767_on_disk_too) {
  row(u"120F32766.doc");
  here.files.putFile(leaf + u"120F32767.doc");
  expectReport(u"CreaNombreDoc de CNota", failure::overflow);
  EXPECT_EQ(next(), u"");
}

TEST_F(StoredNames, a_number_in_the_table_beyond_that_is_reported_whatever_the_others) {
  row(u"120F03.doc");
  row(u"120F40000.doc");
  expectReport(u"CreaNombreDoc de CNota", failure::overflow);
  EXPECT_EQ(next(), u"");
}

TEST_F(StoredNames, are_found_among_ten_thousand_numbers) {
  for (int i = 0; i < 10'000; ++i) row(storedName(120, static_cast<std::int16_t>(i), u".doc"));
  EXPECT_EQ(next(), u"120F10000.doc");
  here.files.putFile(leaf + u"120F10000.doc");
  EXPECT_EQ(next(), u"120F10001.doc");
}

TEST_F(StoredNames, are_found_behind_ten_thousand_files_without_a_row) {
  for (int i = 0; i < 10'000; ++i)
    here.files.putFile(leaf + storedName(120, static_cast<std::int16_t>(i), u".doc"));
  EXPECT_EQ(next(), u"120F10000.doc");
}

TEST_F(StoredNames, an_extension_that_leads_elsewhere_is_never_looked_for) {
  EXPECT_EQ(next(u".d\\a"), u"120F00.d\\a");
  EXPECT_EQ(next(u"./.."), u"120F00./..");
  EXPECT_EQ(here.faults.visits("Files.firstMatch"), 0);
}

TEST_F(StoredNames, of_a_table_that_is_not_there_are_reported) {
  nota.DocuAsoc = u"DocuNada";
  expectReport(u"CreaNombreDoc de CNota", dao::failure::unknownTable);
  EXPECT_EQ(next(), u"");
}

TEST_F(StoredNames, without_a_folder_are_given_all_the_same_under_one_more_report) {
  here.faults.failNext("Files.makeDirectory", failure::permissionDenied);
  expectReport(u"CreaPathDoc de CNota", failure::permissionDenied);
  EXPECT_EQ(next(), u"120F00.doc");
}

TEST_F(StoredNames, that_cannot_be_looked_for_are_reported_and_empty) {
  here.faults.failNext("Files.firstMatch", failure::permissionDenied);
  expectReport(u"CreaNombreDoc de CNota", failure::permissionDenied);
  EXPECT_EQ(next(), u"");
}

}  // namespace
}  // namespace ovalia
