#include <gtest/gtest.h>

#include <string>

#include "attachments/AddingAttachments.h"
#include "attachments/AttachmentList.h"
#include "attachments/AttachmentOperations.h"
#include "attachments/DeletingAttachments.h"
#include "attachments/StoredNames.h"
#include "tests/cards/MarkedNotes.h"

namespace ovalia {
namespace {

// How often each operation asks files, bin and database. An office's folder lies on a slow share: whatever is
// done costs as much beside a thousand documents as beside none.
class CallsOfDocuments : public MovingAnnotations {
 protected:
  // What `run` asks for: "attributes 8, firstMatch 1, copy 1; opened 3, executed 1, updated 1".
  std::string asked(const std::function<void()>& run) {
    const std::size_t opened = database->opened.size(), executed = database->executed.size();
    std::vector<int> before;
    for (const char* operation : operations) before.push_back(here.faults.visits(operation));
    run();
    std::string calls;
    for (std::size_t i = 0; i < std::size(operations); ++i) {
      const std::string name = operations[i];
      add(calls, name.substr(name.find('.') + 1), here.faults.visits(name) - before[i]);
    }
    std::string statements;
    add(statements, "opened", int(database->opened.size() - opened));
    add(statements, "executed", int(database->executed.size() - executed));
    return calls + (calls.empty() || statements.empty() ? "" : "; ") + statements;
  }

  // The same on the note's card, with its first document selected.
  std::string askedOnCard(const std::function<void()>& run) {
    std::string calls;
    openCard([&] {
      user.clicksItem(1);
      calls = asked(run);
    });
    return calls;
  }

  // So many documents of the record that hang on another note, with file and row.
  void others(int count, std::int32_t record = 120, int first = 1) {
    for (int i = first; i < first + count; ++i) {
      const Text name = storedName(record, static_cast<std::int16_t>(i), u".pdf");
      here.files.putFile((record == 120 ? leaf : newLeaf) + name);
      documents->add({1000 + i, record, 1, 777, u"otro", name});
    }
  }
  void withDocument() { attached(u"120F00.pdf", u"plano.pdf"); }
  void addOne() { AdjuntarFichero(instance, source(u"carta.pdf"), 120, true); }

 private:
  static constexpr const char* operations[] = {
      "Files.attributes", "Files.firstMatch", "Files.makeDirectory", "Files.sameFile",   "Files.copy",
      "Files.list",       "Files.modified",   "Shell.recycle",       "Recordset.Update", "Recordset.Find"};
  static void add(std::string& text, const std::string& name, int count) {
    if (count) text += (text.empty() ? "" : ", ") + name + " " + std::to_string(count);
  }
};

// The folder is made sure of twice, level by level: for the name and for the copy.
TEST_F(CallsOfDocuments, to_add_the_first_makes_the_folders) {
  EXPECT_EQ(asked([&] { addOne(); }),
            "attributes 8, firstMatch 1, makeDirectory 3, copy 1, Update 1; opened 2, executed 1");
}

TEST_F(CallsOfDocuments, to_add_the_thousandth_are_those_of_the_second) {
  withDocument();
  const std::string second = asked([&] { addOne(); });
  EXPECT_EQ(second, "attributes 8, firstMatch 1, copy 1, Update 1; opened 2, executed 1");
  others(998, 120, 2);
  EXPECT_EQ(asked([&] { addOne(); }), second);
}

TEST_F(CallsOfDocuments, to_add_one_on_a_card_are_one_statement_more_for_the_list) {
  withDocument();
  others(998);
  EXPECT_EQ(askedOnCard([&] { addOne(); }),
            "attributes 8, firstMatch 1, copy 1, Update 1; opened 3, executed 1");
}

// The rows are read in one statement; what lies on disk without a row is asked for one by one.
TEST_F(CallsOfDocuments, to_find_a_name_are_one_look_more_for_each_file_without_a_row) {
  withDocument();
  for (int i = 1; i <= 20; ++i)
    here.files.putFile(leaf + storedName(120, static_cast<std::int16_t>(i), u".pdf"));
  EXPECT_EQ(asked([&] { addOne(); }), "attributes 8, firstMatch 21, copy 1, Update 1; opened 2, executed 1");
}

TEST_F(CallsOfDocuments, to_list_open_copy_and_rename_are_the_same_beside_a_thousand) {
  withDocument();
  struct {
    const char* what;
    void (*run)(Instance& nota);
    const char* calls;
  } const rowsOf[] = {
      {"list", RefrescoDocs, "opened 1"},
      {"open", AbrirDocNota, "attributes 4, firstMatch 1"},
      {"copy", CopiarAPortapapeles, "attributes 4, firstMatch 1"},
      {"rename", [](Instance& nota) { dlgNota_ActualizaDocs(nota, u"Plano"); }, "executed 1"},
  };
  for (const bool beside : {false, true}) {
    if (beside) others(999);
    for (const auto& row : rowsOf) EXPECT_EQ(askedOnCard([&] { row.run(instance); }), row.calls) << row.what;
  }
}

TEST_F(CallsOfDocuments, to_save_one_elsewhere_are_the_same_beside_a_thousand) {
  withDocument();
  here.files.putFolder(u"\\home\\ana");
  for (const bool beside : {false, true}) {
    if (beside) others(999);
    userSavesAs(join(u"\\home\\ana\\copia", beside, u".pdf"));
    const auto save = [&] { GuardarComo(instance); };
    EXPECT_EQ(askedOnCard(save), "attributes 5, sameFile 1, copy 1");
    EXPECT_EQ(askedOnCard(save), "attributes 5, sameFile 1, copy 1, recycle 1") << "over what is there";
  }
}

TEST_F(CallsOfDocuments, to_delete_one_are_the_same_beside_a_thousand) {
  for (const bool beside : {false, true}) {
    withDocument();
    if (beside) others(999);
    EXPECT_EQ(askedOnCard([&] { BorrarDocNota(instance, u"120F00.pdf", false); }),
              "attributes 4, recycle 1, Update 1; executed 1");
  }
}

TEST_F(CallsOfDocuments, to_move_an_annotation_are_the_same_between_records_with_a_thousand) {
  for (const bool beside : {false, true}) {
    documents->rows.clear();
    document(501, u"120F00.pdf", u"el plano");
    if (beside) {
      others(999);
      others(999, 4073);
    }
    EXPECT_EQ(asked([&] { move(); }), "attributes 14, firstMatch 4, copy 1, recycle 1; opened 2, executed 2");
  }
}

}  // namespace
}  // namespace ovalia
