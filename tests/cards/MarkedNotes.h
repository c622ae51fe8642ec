#pragma once

#include <vector>

#include "cards/MovingAnnotations.h"
#include "tests/cardkit/Attachments.h"

namespace ovalia {

// The notes 501, 502 ... of record 120, some of them marked in the host's grid, move to record 4073 and
// client 22.
class MovingAnnotations : public kit::AttachmentsTest {
 public:
  using AttachmentsTest::expectBox;
  using AttachmentsTest::expectReport;
  using AttachmentsTest::here;
  using AttachmentsTest::host;

  void expectMissing() { expectBox(u"No se puede encontrar el fichero adjunto.", 48); }
  void expectNotCopied(TextView name) {
    expectBox(u"Error, el fichero " + leaf + Text(name) + u" no se ha copiado");
  }

  std::shared_ptr<kit::FakeObject> grid = kit::named(u"grdNota");
  kit::FakeTableRef notes;

 protected:
  void SetUp() override {
    AttachmentsTest::SetUp();
    notes = database->table(u"NotaIP",
                            {{u"IdNota", dao::dbLong}, {u"IdInm", dao::dbLong}, {u"IdCliente", dao::dbLong}},
                            {{501, 120, Null}, {502, 120, 21}, {503, 120, 21}});
    here.files.putFolder(newLeaf);
    host.FichaInm->with(u"grdNota", grid);
    host.vClase().with(u"IdRegistro", 999);
    mark({501});
    database->opened.clear();
  }

  // Bookmarks are no keys: "m501" is the row of note 501.
  void mark(std::vector<std::int32_t> keys) {
    const auto marks = std::make_shared<kit::FakeObject>();
    marks->with(u"Count", static_cast<std::int32_t>(keys.size()));
    grid->answering(u"SelBookmarks", [=](Arguments place) -> Variant {
      if (place.empty()) return marks;
      return u"m" + toText(keys.at(static_cast<std::size_t>(place[0].toLong())));
    });
    grid->answering(u"Columns", [](Arguments name) -> Variant {
      if (name.size() != 1 || name[0].toText() != u"IdANota") throw Failure(failure::indexOutOfRange);
      auto column = std::make_shared<kit::FakeObject>();
      column->answering(u"CellText", [](Arguments mark) -> Variant { return mark[0].toText().substr(1); });
      return column;
    });
  }

  void moveTo(std::int32_t record, std::int32_t client = 22) { TrasladaNotas(instance, record, client); }
  void move() { moveTo(4073); }

  // A document of a note as an earlier add has left it; without a file where the content is Null.
  void document(std::int32_t note, TextView stored, const Variant& content) {
    if (!content.isNull()) here.files.putFile(leaf + Text(stored), content.toText());
    const auto key = static_cast<std::int32_t>(documents->rows.size()) + 1;
    documents->add({key, 120, 1, note, u"plano", stored});
  }

  // "IdInm IdCliente" of a note.
  Text linkOf(std::int32_t note) const {
    for (const kit::FakeRowRef& row : notes->rows)
      if (row->values[0].toLong() == note) return join(row->values[1], u" ", row->values[2]);
    return u"gone";
  }
  bool moved(std::int32_t note) const { return linkOf(note) == u"4073 22"; }

  const Text newLeaf = agencyFolder + u"\\Doc4\\Doc0\\Doc7\\Doc0\\";
};

}  // namespace ovalia
