#include "tests/cardkit/Attachments.h"

namespace ovalia::kit {

void AttachmentsTest::SetUp() {
  CardTest::SetUp();
  answersAttachments(*database);
  documents = attachmentTable(*database, u"DocuNotaIP");
  here.files.putFolder(agencyFolder);
  givenList(u"Nota");
}

Text AttachmentsTest::source(TextView name, Text content) {
  const Text path = join(u"\\home\\ana\\", name);
  here.files.putFile(path, std::move(content));
  return path;
}

void AttachmentsTest::attached(TextView stored, TextView shown, Text content) {
  here.files.putFile(leaf + Text(stored), std::move(content));
  const auto key = static_cast<std::int32_t>(documents->rows.size()) + 1;
  documents->add({key, 120, 1, 501, shown, stored});
  Variant& counter = list->at(0, u"NArchivos");
  counter = counter.toLong() + 1;
}

std::vector<Text> AttachmentsTest::rows(TextView table) const {
  std::vector<Text> lines;
  for (const FakeRowRef& row : database->tableNamed(table)->rows) {
    const auto& v = row->values;
    lines.push_back(join(v[0], u": ", v[1], u" ", v[2], u" ", v[3], u" ", v[4], u" < ", v[5]));
  }
  return lines;
}

void AttachmentsTest::userChooses(Text fileName) { dialogAnswers(u"ShowOpen", std::move(fileName)); }
void AttachmentsTest::userSavesAs(Text fileName) { dialogAnswers(u"ShowSave", std::move(fileName)); }

void AttachmentsTest::dialogAnswers(TextView method, Text fileName) {
  host.dlgfrmbase->answering(method, [this, fileName = std::move(fileName)](Arguments) -> Variant {
    host.dlgfrmbase->with(u"fileName", fileName);
    return {};
  });
}

void AttachmentsTest::dialogFails(std::int32_t number) { host.dlgfrmbase->failing(u"ShowOpen", number); }

}  // namespace ovalia::kit
