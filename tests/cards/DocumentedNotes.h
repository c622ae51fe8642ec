#pragma once

#include <initializer_list>
#include <vector>

#include "tests/cardkit/AgencyStatements.h"
#include "tests/cardkit/OpenCard.h"

namespace ovalia::kit {

// A list of several notes with attachments, on which a card is opened: keys 501, 502 ..., parent 120. Of each
// note's attachments the first is "502F00.doc", the next "502F01.doc" ..., so that their names tell whose
// they are.
class DocumentedNotes : public OpenCardTest {
 protected:
  static constexpr int no = 7, yes = 6;

  void SetUp() override {
    OpenCardTest::SetUp();
    answersAttachments(*database);
    attachments = attachmentTable(*database, u"DocuNotaIP");
    here.files.putFolder(folder);
  }

  // A list with that many attachments to each note.
  void documented(std::initializer_list<int> counts) {
    listOf(u"Nota", static_cast<int>(counts.size()));
    attachments->rows.clear();
    here.shell.recycled.clear();
    std::int32_t key = 501;
    for (const int count : counts) {
      at(key - 500, u"NArchivos") = count;
      for (int number = 0; number < count; ++number) {
        here.files.putFile(fileOf(key, number), u"contenido");
        attachments->add({static_cast<std::int32_t>(attachments->rows.size()) + 1, 120, 1, key, u"plano.doc",
                          nameOf(key, number)});
      }
      ++key;
    }
  }

  static Text nameOf(std::int32_t key, int number) {
    return toText(key) + u"F0" + toText(std::int32_t(number)) + u".doc";
  }
  Text fileOf(std::int32_t key, int number) const { return folder + nameOf(key, number); }

  // Stored names of the rows that hang on a note.
  std::vector<Text> attachmentsOf(std::int32_t key) const {
    std::vector<Text> names;
    for (const FakeRowRef& row : attachments->rows)
      if (row->values[3].toLong() == key) names.push_back(row->values[5].toText());
    return names;
  }

  // Of the annotations that are left.
  std::vector<std::int32_t> keys() const {
    std::vector<std::int32_t> all;
    for (const FakeRowRef& row : list->rows) all.push_back(row->values[0].toLong());
    return all;
  }

  void expectActiveCardQuestion(int answer) {
    expectBox(u"¿Desea borrar la ficha activa?", 36, u"Borrar", answer);
  }
  void expectOneQuestion(int answer) {
    expectBox(u"El documento adjunto se borrará.\r\n\r\n¿Desea continuar?", 36, u"Borrar", answer);
  }
  void expectSeveralQuestion(int answer) {
    expectBox(u"Los documentos adjuntos se borrarán.\r\n\r\n¿Desea continuar?", 36, u"Borrar", answer);
  }
  void expectUsedElsewhere() {
    expectBox(u"Imposible eliminar el dato ya que está siendo utilizado por otras fichas.", 64, u"Borrar");
  }

  const Text folder = u"\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\";  // of record 120
  FakeTableRef attachments;
};

}  // namespace ovalia::kit
