// How often the work on documents asks the engine, and that no answer takes a walk through the table of all.
#include <gmock/gmock.h>
#include <sqlite3.h>

#include "engines/sqlite/Collation.h"
#include "routines/Collection.h"
#include "tests/host/CardsOverAgency.h"
#include "tests/host/StatementTrace.h"

namespace ovalia::host {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class StatementsOfDocuments : public StatementTrace, public CardsOverAgency {
 protected:
  StatementsOfDocuments() {
    const Text documents = logicPath(fromUtf8(workplace.agency.documents.native()));
    here.files.putFolder(documents.substr(0, documents.rfind(u'\\')));
    here.files.putFile(u"\\home\\ana\\plano.pdf", u"el plano");
  }

  // On the card of a note of a property of its own, which has so many documents already.
  void onNote(int documents, const std::function<void()>& part) {
    const std::int32_t property = addProperty();
    note = addNote(property, u"Llaves");
    open(u"FichaInm", property);
    desk.whileShown([&] {
      for (int i = 0; i < documents; ++i) attach();
      taken();
      part();
    });
    list(u"grdNota").openCard();
  }
  void attach() {
    auto files = std::make_shared<Collection>();
    files->add(TextView(u"\\home\\ana\\plano.pdf"));
    auto data = std::make_shared<MemberTable>();
    data->method(u"GetFormat", [](Arguments) -> Variant { return true; });
    data->property(u"Files", [files](Arguments place) -> Variant {
      return place.empty() ? Variant(files) : files->get(u"", place);
    });
    desk.top().userDrops(*desk.top().control(u"LsvDocu"), data);
  }

  // How the engine would find the rows of each of the statements that were run.
  std::vector<std::string> plans() {
    sqlite3* opened = nullptr;
    EXPECT_EQ(sqlite3_open(workplace.agency.file.c_str(), &opened), SQLITE_OK);
    engines::sqlite::addCollation(opened);
    std::vector<std::string> found;
    for (const std::string& statement : taken()) {
      if (statement.find("DocuNotaIP") == statement.npos) continue;
      const auto add = [](void* plans, int, char** values, char**) {
        static_cast<std::vector<std::string>*>(plans)->emplace_back(values[3]);
        return 0;
      };
      EXPECT_EQ(sqlite3_exec(opened, ("EXPLAIN QUERY PLAN " + statement).c_str(), add, &found, nullptr),
                SQLITE_OK)
          << statement << ": " << sqlite3_errmsg(opened);
    }
    sqlite3_close(opened);
    return found;
  }

  std::int32_t note = 0;
};

TEST_F(StatementsOfDocuments, to_attach_one_are_the_same_however_many_there_are) {
  for (const int documents : {0, 10})
    onNote(documents, [&] {
      attach();
      EXPECT_THAT(askedForRows(),
                  ElementsAre("SELECT DocuNotaIP",  // the numbers that the parent's documents have
                              "SELECT DocuNotaIP",  // whether the file is one of them itself
                              "INSERT DocuNotaIP", "SELECT NotaIP", "UPDATE NotaIP", "SELECT NotaIP",
                              "SELECT DocuNotaIP"));  // the list again
    });
}

TEST_F(StatementsOfDocuments, to_attach_several_are_as_many_for_each) {
  onNote(0, [&] {
    attach();
    const std::size_t forOne = askedForRows().size();
    for (int i = 0; i < 5; ++i) attach();
    EXPECT_EQ(askedForRows().size(), 5 * forOne);
  });
}

TEST_F(StatementsOfDocuments, to_select_one_are_none_and_to_open_or_rename_it_is_one) {
  onNote(3, [&] {
    user.clicksItem(2);
    EXPECT_THAT(asked(), IsEmpty());
    user.doubleClicksItem(2);
    EXPECT_THAT(askedForRows(), ElementsAre("SELECT DocuNotaIP")) << "what the host shows it by";
    user.renamesItem(u"otro.pdf");
    EXPECT_THAT(askedForRows(), ElementsAre("UPDATE DocuNotaIP"));
  });
}

TEST_F(StatementsOfDocuments, to_copy_one_are_none_and_to_save_it_elsewhere_those_that_the_host_is_asked) {
  onNote(3, [&] {
    user.clicksItem(2);
    user.clicks(u"ID_Copiar");
    EXPECT_THAT(asked(), IsEmpty());
    dialogs.files = {{u"\\home\\ana\\copia.pdf"}};
    user.clicks(u"ID_Guardarcomo");
    EXPECT_THAT(askedForRows(), ElementsAre("SELECT Inmueble", "SELECT Inmueble"));
  });
}

TEST_F(StatementsOfDocuments, to_remove_one_are_the_counter_the_row_and_the_list_where_some_are_left) {
  onNote(2, [&] {
    Shapes wanted = {"UPDATE NotaIP", "SELECT NotaIP", "DELETE DocuNotaIP", "SELECT NotaIP",
                     "SELECT DocuNotaIP"};
    for (int left = 1; left >= 0; --left) {
      user.clicksItem(1);
      expectBox(u"El documento adjunto a la nota se borrará.\r\n\r\n¿Desea continuar?", 68, u"Borrar", 6);
      taken();
      user.clicks(u"ID_Quitar");
      if (left == 0) wanted.pop_back();
      EXPECT_EQ(askedForRows(), wanted);
    }
  });
}

TEST_F(StatementsOfDocuments, to_move_a_note_are_one_for_its_rows_two_for_each_document_and_the_note) {
  constexpr int documents = 3;
  onNote(documents, [] {});
  card->marked = [&](TextView) { return std::vector{note}; };
  std::int32_t property = 2, client = 3;
  CNota& nota = list(u"grdNota").nota();
  taken();
  nota.TrasladaNotas(property, client);
  Shapes wanted = {"SELECT DocuNotaIP"};
  wanted.insert(wanted.end(), documents, "SELECT DocuNotaIP");  // for a free name
  wanted.push_back("UPDATE NotaIP");
  wanted.insert(wanted.end(), documents, "UPDATE DocuNotaIP");
  EXPECT_EQ(askedForRows(), wanted);
}

// The tables of documents are as long as the agency is old.
TEST_F(StatementsOfDocuments, never_walk_through_all_documents_to_find_some) {
  onNote(2, [&] {
    const auto searched = [&] {
      const auto found = plans();
      EXPECT_THAT(found, Not(IsEmpty()));
      EXPECT_THAT(found, Each(HasSubstr("SEARCH DocuNotaIP USING INDEX DocuNotaIP")));
    };
    attach();
    searched();
    user.clicksItem(1);
    user.doubleClicksItem(1);
    searched();
    user.renamesItem(u"otro.pdf");
    searched();
    expectBox(u"El documento adjunto a la nota se borrará.\r\n\r\n¿Desea continuar?", 68, u"Borrar", 6);
    user.clicks(u"ID_Quitar");
    searched();
  });
}

}  // namespace ovalia::host
