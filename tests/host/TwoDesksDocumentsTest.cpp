// Two users who attach documents to the annotations of one property at the same moment, in two processes.
#include <chrono>
#include <cstdlib>
#include <map>
#include <set>

#include "tests/host/TwoDesks.h"

namespace ovalia::host {
namespace {

namespace fs = std::filesystem;

class TwoDesksDocuments : public TwoDesks {
 protected:
  // A user at work: one file after the other, each with a content of its own, on one note.
  struct Work {
    DeskProcess& desk;
    int place;  // of the note
    std::string who;
    int refused = 0;
    std::set<std::string> attached = {};  // names

    // So large that half a file could be seen.
    static std::string contentOf(const std::string& name) {
      std::string content;
      while (content.size() < 100'000) content += name + '\n';
      return content;
    }
  };

  // Begun on both desks before either is waited for. One who comes second for a name that both had found free
  // is told, and tries again.
  void attachOne(Work& work, bool waiting) {
    const std::string name = work.who + ' ' + std::to_string(work.attached.size()) + ".txt";
    const std::string path = (folder.path() / name).string();
    if (!waiting) {
      if (!folder.has(name)) folder.putFile(name, Work::contentOf(name));
      return work.desk.begins("attach " + path);
    }
    const std::string answer = work.desk.answer();
    if (answer == "done") {
      work.attached.insert(name);
      return;
    }
    ++work.refused;
    expectReported(work.desk, answer, "AdjuntarFichero de CNota, ruta:" + toUtf8(logicPath(fromUtf8(path))),
                   alreadyThere);
  }

  // A few seconds; as many as the environment says where it does.
  static std::chrono::seconds duration() {
    const char* wanted = std::getenv("AGENCIA_DESKS_SECONDS");
    return std::chrono::seconds(wanted ? std::atoi(wanted) : 5);
  }

  void workTogether(Work& one, Work& other) {
    for (Work* work : {&one, &other}) open(work->desk, work->place);
    const auto end = std::chrono::steady_clock::now() + duration();
    while (std::chrono::steady_clock::now() < end && !HasFatalFailure()) {
      for (const bool waiting : {false, true})
        for (Work* work : {&one, &other}) attachOne(*work, waiting);
    }
    for (Work* work : {&one, &other}) does(work->desk, "close");
    for (const Work* work : {&one, &other})
      std::cout << work->who << ": " << work->attached.size() << " attached, " << work->refused
                << " told that another was quicker\n";
  }

  // Every row has its file, whole and with the content of the one that its user attached, and there is
  // nothing beside them.
  void expectAllThere(const Work& work, std::set<std::string>& stored) {
    const auto rows = witness->OpenRecordset(
        fromUtf8("SELECT NombreOrg, NombreArch FROM DocuNotaIP WHERE Id = " + std::to_string(property) +
                 " AND IdNota = " + std::to_string(key(work.place)) + " AND NombreOrg Like '" + work.who +
                 "*'"),
        dao::dbOpenSnapshot);
    std::set<std::string> shown;
    for (; !rows->isEOF(); rows->MoveNext()) {
      const std::string name = toUtf8(rows->value(u"NombreOrg").text());
      const std::string file = toUtf8(rows->value(u"NombreArch").text());
      EXPECT_TRUE(shown.insert(name).second) << name << " is there twice";
      EXPECT_TRUE(stored.insert(file).second) << file << " belongs to two";
      EXPECT_EQ(folder.content("agencia-documentos/" + below() + file), Work::contentOf(name)) << file;
    }
    EXPECT_EQ(shown, work.attached);
  }

  // "Doc3/Doc0/"
  std::string below() const {
    std::string digits = std::to_string(property), path;
    digits.back() = '0';
    for (const char digit : digits) path += std::string("Doc") + digit + '/';
    return path;
  }
  std::set<std::string> filesInTree() const {
    std::set<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(folder.path() / "agencia-documentos"))
      if (!entry.is_directory()) names.insert(entry.path().filename().string());
    return names;
  }

  static constexpr int alreadyThere = 58;
};

TEST_F(TwoDesksDocuments, attached_to_two_notes_of_one_property_at_once_are_neither_lost_nor_mixed) {
  Work hers{begona, 1, "Begoña"}, his{luis, 2, "Luis"};
  workTogether(hers, his);
  std::set<std::string> stored;
  expectAllThere(hers, stored);
  expectAllThere(his, stored);
  EXPECT_EQ(filesInTree(), stored);
  EXPECT_EQ(this->stored(1, "NArchivos"), std::to_string(hers.attached.size()));
  EXPECT_EQ(this->stored(2, "NArchivos"), std::to_string(his.attached.size()));
  EXPECT_GT(hers.attached.size(), 3u);
  EXPECT_GT(his.attached.size(), 3u);
  expectWhole();
}

// Both read the note's counter and write one more: the last writer wins, so that it can fall behind.
TEST_F(TwoDesksDocuments, attached_to_one_note_at_once_are_neither_lost_nor_mixed_but_for_the_counter) {
  Work hers{begona, 1, "Begoña"}, his{luis, 1, "Luis"};
  workTogether(hers, his);
  std::set<std::string> stored;
  expectAllThere(hers, stored);
  expectAllThere(his, stored);
  EXPECT_EQ(filesInTree(), stored);
  const auto counted = std::stoul(this->stored(1, "NArchivos"));
  EXPECT_LE(counted, stored.size());
  EXPECT_GE(counted, std::max(hers.attached.size(), his.attached.size()));
  expectWhole();
}

}  // namespace
}  // namespace ovalia::host
