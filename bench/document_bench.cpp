// What documents on a card cost on a real disk: adding one to a parent that has none and to one that has a
// thousand, showing a list of a thousand, moving annotations with their files.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

#include "attachments/AddingAttachments.h"
#include "attachments/AttachmentList.h"
#include "bench/Bare.h"
#include "bench/HostAgency.h"
#include "bench/OpenCard.h"
#include "bench/QuietWindow.h"
#include "component/CNota.h"
#include "engines/sqlite/Collation.h"
#include "host/Contract.h"
#include "host/HostCard.h"
#include "host/QtDialogs.h"
#include "system/FileCopy.h"

namespace ovalia::bench {
namespace {

namespace fs = std::filesystem;

constexpr int annotations = 1'000;
constexpr int fileSize = 10'000;  // of a document, in bytes
constexpr const char* registered =
    "INSERT INTO DocuNotaIP (Id, IdAgencia, IdNota, NombreOrg, NombreArch) VALUES (?1, 1, ?2, ?3, ?4)";

// "Doc3/Doc0/" of the parent 31.
std::string folderOf(int parent) {
  std::string digits = std::to_string(parent), path;
  digits.back() = '0';
  for (const char digit : digits) path += std::string("Doc") + digit + '/';
  return path;
}

std::string nameOf(int parent, int number) {
  return std::to_string(parent) + (number < 10 ? "F0" : "F") + std::to_string(number) + ".txt";
}

// A property of its own in a copy of the agency, and its documents in a folder beside it.
class Archive {
 public:
  Archive()
      : file(writableHostAgency(annotations)), tree(fs::path(file).replace_extension() += "-documentos") {
    fs::remove_all(tree);
    fs::create_directories(tree);
    fs::path source = tree;
    source += "-nuevo.txt";
    std::ofstream(source) << std::string(fileSize, 'x');
    original = source;
    parent = newParent();
  }

  int newParent() {
    const BareConnection bare(file);
    run(bare, "INSERT INTO Inmueble (Referencia) VALUES ('V-BANCO')");
    const int made = number(bare, "SELECT Max(IdInm) FROM Inmueble");
    fs::create_directories(tree / folderOf(made));
    return made;
  }

  // An annotation of the parent with so many documents, whose files are there.
  int newNote(int documents) {
    BareConnection bare(file);
    engines::sqlite::addCollation(bare.handle());
    bare.run("BEGIN");
    run(bare, ("INSERT INTO NotaIP (IdInm, IdUsuario, FechaAlta, NArchivos) VALUES (" +
               std::to_string(parent) + ", 1, 46000, " + std::to_string(documents) + ")"));
    const int note = number(bare, "SELECT Max(IdNota) FROM NotaIP");
    const BareStatement insert = bare.prepare(registered);
    for (int i = 0; i < documents; ++i, ++made_) {
      const std::string name = nameOf(parent, made_);
      fs::copy_file(original, tree / folderOf(parent) / name);
      enter(insert.get(), note, name);
    }
    bare.run("COMMIT");
    return note;
  }

  void enter(sqlite3_stmt* insert, int note, const std::string& name) const {
    sqlite3_bind_int(insert, 1, parent);
    sqlite3_bind_int(insert, 2, note);
    sqlite3_bind_text(insert, 3, name.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(insert, 4, name.c_str(), -1, SQLITE_TRANSIENT);
    if (sqlite3_step(insert) != SQLITE_DONE) std::abort();
    sqlite3_reset(insert);
  }

  static void run(const BareConnection& bare, const std::string& sql) { bare.run(sql.c_str()); }
  static int number(const BareConnection& bare, const char* sql) {
    const BareStatement statement = bare.prepare(sql);
    return sqlite3_step(statement.get()) == SQLITE_ROW ? sqlite3_column_int(statement.get(), 0) : 0;
  }

  std::string file, original;
  fs::path tree;
  int parent = 0;

 private:
  int made_ = 0;
};

void showNote(OpenCard& open, const Archive& archive, int note) {
  open.surface.AppDirUser = fromUtf8(archive.tree.native());
  open.surface.IdAgencia = 1;
  open.list().FindFirst(u"IdAnota = " + toText(note));
}

// The state before one document was added.
void takeBack(const BareConnection& bare, const Archive& archive, int note, int documents) {
  fs::remove(archive.tree / folderOf(archive.parent) / nameOf(archive.parent, documents));
  Archive::run(bare,
               "DELETE FROM DocuNotaIP WHERE IdDocu = (SELECT Max(IdDocu) FROM DocuNotaIP); "
               "UPDATE NotaIP SET NArchivos = " +
                   std::to_string(documents) + " WHERE IdNota = " + std::to_string(note));
}

// From the chosen file to the card's list filled again.
void Add_Card(benchmark::State& state) {
  const int documents = static_cast<int>(state.range(0)) - 1;
  Archive archive;
  const int note = archive.newNote(documents);
  BareConnection bare(archive.file);
  engines::sqlite::addCollation(bare.handle());
  OpenCard open(archive.file, notes());
  showNote(open, archive, note);
  const Text source = logicPath(fromUtf8(archive.original));
  const QuietWindow window([&] {
    for (auto _ : state) {
      AdjuntarFichero(open.nota, source, archive.parent, true);
      state.PauseTiming();
      if (open.nota.card().as<forms::ListView>(u"LsvDocu")->items().size() != std::size_t(documents + 1))
        std::abort();
      takeBack(bare, archive, note, documents);
      state.ResumeTiming();
    }
  });
  open.show();
}

// The copy, with the same waits for the disk, and the statements.
void Add_Bare(benchmark::State& state) {
  const int documents = static_cast<int>(state.range(0)) - 1;
  Archive archive;
  const int note = archive.newNote(documents);
  BareConnection bare(archive.file);
  engines::sqlite::addCollation(bare.handle());
  const std::string name = nameOf(archive.parent, documents);
  const std::string target = archive.tree / folderOf(archive.parent) / name;
  const BareStatement taken = bare.prepare("SELECT Id, NombreArch FROM DocuNotaIP WHERE Id = ?1");
  const BareStatement known =
      bare.prepare("SELECT NombreOrg FROM DocuNotaIP WHERE NombreArch COLLATE es = 'x.txt'");
  const BareStatement insert = bare.prepare(registered);
  const BareStatement count = bare.prepare("UPDATE NotaIP SET NArchivos = NArchivos + 1 WHERE IdNota = ?1");
  const BareStatement list = bare.prepare("SELECT * FROM DocuNotaIP WHERE IdNota = ?1");
  for (auto _ : state) {
    benchmark::DoNotOptimize(readRows(taken.get(), archive.parent));
    system::copyNew(archive.original, target);
    benchmark::DoNotOptimize(readRows(known.get(), 0));
    archive.enter(insert.get(), note, name);
    sqlite3_bind_int(count.get(), 1, note);
    if (sqlite3_step(count.get()) != SQLITE_DONE) std::abort();
    sqlite3_reset(count.get());
    benchmark::DoNotOptimize(readRows(list.get(), note));
    state.PauseTiming();
    takeBack(bare, archive, note, documents);
    state.ResumeTiming();
  }
}

void Fill_Card(benchmark::State& state) {
  const int documents = static_cast<int>(state.range(0));
  Archive archive;
  const int note = archive.newNote(documents);
  OpenCard open(archive.file, notes());
  showNote(open, archive, note);
  const QuietWindow window([&] {
    for (auto _ : state) RefrescoDocs(open.nota);
    if (open.nota.card().as<forms::ListView>(u"LsvDocu")->items().size() != std::size_t(documents))
      std::abort();
  });
  open.show();
}

void Fill_Bare(benchmark::State& state) {
  Archive archive;
  const int note = archive.newNote(static_cast<int>(state.range(0)));
  const BareConnection bare(archive.file);
  const BareStatement list = bare.prepare("SELECT * FROM DocuNotaIP WHERE IdNota = ?1");
  for (auto _ : state) benchmark::DoNotOptimize(readRows(list.get(), note));
}

// A bin that takes files away.
class Bin : public Shell {
 public:
  explicit Bin(fs::path folder) : folder_(std::move(folder)) {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    Platform::current().shell = this;
  }
  RecycleResult recycle(TextView path) override {
    const fs::path file = toUtf8(nativePath(path));
    fs::rename(file, folder_ / file.filename());
    return {};
  }
  void saveScreenPicture(TextView) override {}
  SystemVersion systemVersion() override { return {}; }
  std::optional<FileVersion> fileVersion(TextView) override { return {}; }

 private:
  fs::path folder_;
};

// That many annotations with three files each; they must not cost more each where they are more.
void Move_Card(benchmark::State& state) {
  constexpr int documents = 3;
  QuietPlatform platform;
  host::QtDialogs dialogs;
  for (auto _ : state) {
    state.PauseTiming();
    Archive archive;
    Bin bin(archive.tree.string() + "-papelera");
    std::vector<std::int32_t> marked;
    for (int i = 0; i < state.range(0); ++i) marked.push_back(archive.newNote(documents));
    host::Workplace workplace{
        {engines::open(fromUtf8(archive.file)), archive.file, archive.tree, u"Administrador"},
        dialogs,
        {},
        {}};
    moduleValues().cgDB = workplace.agency.database;
    const auto main = std::make_shared<MemberTable>();
    workplace.frmBase = main;
    const auto card =
        std::make_shared<host::HostCard>(host::hostForm(u"FichaInm"), workplace, archive.parent);
    card->marked = [&](TextView) { return marked; };
    const ObjectRef form = host::cardContract(card);
    main->property(u"ActiveForm", [form](Arguments) -> Variant { return form; });
    std::int32_t target = archive.newParent(), client = 1;
    CNota& nota = card->list(u"grdNota")->nota();
    state.ResumeTiming();
    nota.TrasladaNotas(target, client);
    state.PauseTiming();
    const auto moved = workplace.agency.database->OpenRecordset(
        u"SELECT Count(*) AS N FROM DocuNotaIP WHERE Id = " + toText(target), dao::dbOpenSnapshot);
    if (moved->value(u"N").toLong() != documents * state.range(0)) std::abort();
    moduleValues() = {};
    state.ResumeTiming();
  }
  state.counters["each"] =
      benchmark::Counter(static_cast<double>(state.range(0)),
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

#define OVALIA_DOCUMENTS(name) BENCHMARK(name)->Name("documents/" #name)->UseRealTime()
OVALIA_DOCUMENTS(Add_Bare)->Arg(1)->Arg(1'000)->Unit(benchmark::kMillisecond);
OVALIA_DOCUMENTS(Add_Card)->Arg(1)->Arg(1'000)->Unit(benchmark::kMillisecond);
OVALIA_DOCUMENTS(Fill_Bare)->Arg(1'000)->Unit(benchmark::kMicrosecond);
OVALIA_DOCUMENTS(Fill_Card)->Arg(1'000)->Unit(benchmark::kMicrosecond);
OVALIA_DOCUMENTS(Move_Card)->Arg(50)->Arg(100)->Arg(200)->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ovalia::bench
