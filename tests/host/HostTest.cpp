#include "tests/host/HostTest.h"

#include "host/BulkFile.h"
#include "host/Contract.h"
#include "routines/SqlText.h"

namespace ovalia::host {

namespace fs = std::filesystem;

namespace {

template <class Answer>
std::optional<Answer> next(std::deque<Answer>& answers) {
  if (answers.empty()) return {};
  Answer first = std::move(answers.front());
  answers.pop_front();
  return first;
}

}  // namespace

std::optional<Text> ReadyDialogs::pickOne(TextView, std::span<const Text> names, TextView now) {
  offered.assign(names.begin(), names.end());
  current = now;
  return next(picks);
}

std::optional<std::vector<Text>> ReadyDialogs::pickSeveral(TextView, std::span<const Text> names,
                                                           std::span<const Text>) {
  offered.assign(names.begin(), names.end());
  return next(manyPicks);
}

void ReadyDialogs::tell(TextView title, TextView message) {
  told.push_back(Text(title) + u": " + Text(message));
}

bool ReadyDialogs::confirm(TextView title, TextView text) {
  asked.push_back(Text(title) + u": " + Text(text));
  return confirms;
}

int ReadyDialogs::yesNoCancel(TextView title, TextView text) {
  asked.push_back(Text(title) + u": " + Text(text));
  return yesNoCancelAnswer;
}

std::vector<Text> ReadyDialogs::openFiles(const FileQuestion& asked_) {
  question = asked_;
  return next(files).value_or(std::vector<Text>());
}

Text ReadyDialogs::saveFile(const FileQuestion& asked_) {
  question = asked_;
  const auto chosen = next(files);
  return chosen ? chosen->front() : Text();
}

bool ReadyDialogs::openFile(TextView nativePath, TextView shownName) {
  opened.emplace_back(nativePath);
  openedAs = shownName;
  return opens;
}

fs::path sampleFile(const fs::path& folder, int annotations) {
  static const kit::TemporaryFolder made;
  const fs::path original = made.path() / (std::to_string(annotations) + ".db");
  if (!fs::exists(original)) makeDatabaseFile(original, annotations);
  const fs::path copy = folder / "agencia.db";
  fs::copy_file(original, copy);
  return copy;
}

HostTest::HostTest() : workplace{openAgency(sampleFile(folder.path(), 2500), u""), dialogs, {}, {}} {
  workplace.cApp = applicationContract(u"Agencia");
}

Variant HostTest::one(TextView sql) {
  return database().OpenRecordset(sql, dao::dbOpenSnapshot)->fields().at(0)->Value();
}

std::int32_t HostTest::addProperty() {
  database().Execute(u"INSERT INTO Inmueble (Referencia) VALUES ('V-NUEVO')");
  return one(u"SELECT Max(IdInm) FROM Inmueble").toLong();
}

std::int32_t HostTest::addNote(std::int32_t property, TextView subject, Date created) {
  database().Execute(u"INSERT INTO NotaIP (IdInm, IdUsuario, Asunto, FechaAlta) VALUES (" + toText(property) +
                     u", 1, " + ComillaSQL(subject) + u", " + VDate(created, false) + u")");
  return one(u"SELECT Max(IdNota) FROM NotaIP").toLong();
}

}  // namespace ovalia::host
