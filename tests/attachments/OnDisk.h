#pragma once

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "routines/ModuleValues.h"
#include "system/PathLookup.h"
#include "tests/cardkit/Attachments.h"
#include "tests/system/FileFixture.h"

namespace ovalia {

// The files of the disk. The log alone goes to the files in memory, where the test finds what was reported.
class DiskFiles : public system::FileSystem {
 public:
  explicit DiskFiles(Files& log) : log_(log) {}
  void append(TextView path, TextView text) override { log_.append(path, text); }
  void copy(TextView from, TextView to, bool replace) override {
    if (beforeCopy) beforeCopy();
    FileSystem::copy(from, to, replace);
  }
  std::function<void()> beforeCopy;

 private:
  Files& log_;
};

// A recycle bin on disk: a folder that files are moved into.
class DiskShell : public kit::FakeShell {
 public:
  DiskShell(kit::FaultPanel& faults, kit::FakeFiles& files, std::filesystem::path bin)
      : FakeShell(faults, files), bin_(std::move(bin)) {}
  RecycleResult recycle(TextView path) override {
    constexpr int missing = 2, denied = 5;
    recycled.emplace_back(path);
    const auto file = system::locate(path);
    if (!file || system::isFolder(*file)) return {.code = missing, .lastError = missing};
    std::error_code error;
    std::filesystem::rename(*file, bin_ / std::filesystem::path(*file).filename(), error);
    return error ? RecycleResult{.code = denied, .lastError = denied} : RecycleResult{};
  }

 private:
  std::filesystem::path bin_;
};

// A disk in the place of the files in memory: in a temporary folder the data folder "Agencia", the bin
// "Papelera" and whatever a test puts beside them.
class Disk {
  kit::TestPlatform& here_;

 public:
  explicit Disk(kit::TestPlatform& here) : here_(here) {
    tree.putFolder("Agencia");
    tree.putFolder("Papelera");
  }
  ~Disk() {
    here_.platform.files = &here_.files;
    here_.platform.shell = &here_.shell;
  }
  Disk(const Disk&) = delete;
  Disk& operator=(const Disk&) = delete;

  void use(NotaSurface& nota) {
    moduleValues().ErrLogPath = here_.files.temporary + u"ErrLog.txt";
    here_.platform.files = &files;
    here_.platform.shell = &shell;
    nota.AppDirUser = fromUtf8(tree.path().string()) + u"/Agencia";
  }

  // The names of all files below the data folder.
  std::vector<std::string> storedFiles() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(tree.path() / "Agencia"))
      if (!entry.is_directory()) names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
  }

  kit::TemporaryFolder tree;
  DiskFiles files{here_.files};
  DiskShell shell{here_.faults, here_.files, tree.path() / "Papelera"};
};

// Attachments of record 120 on disk, with sources beside the data folder.
class OnDisk : public kit::AttachmentsTest {
 protected:
  void SetUp() override {
    AttachmentsTest::SetUp();
    disk.use(nota);
  }

  std::string leafOf(std::string_view name) const { return "Agencia/Doc1/Doc2/Doc0/" + std::string(name); }
  std::vector<std::string> storedFiles() const { return disk.storedFiles(); }

  Disk disk{here};
  kit::TemporaryFolder& tree = disk.tree;
};

}  // namespace ovalia
