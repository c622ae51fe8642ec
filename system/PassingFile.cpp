#include "system/PassingFile.h"

#include <stdlib.h>
#include <unistd.h>

#include <cerrno>

#include "system/SystemFailure.h"

namespace ovalia::system {

namespace fs = std::filesystem;

PassingFile::PassingFile(const fs::path& folder, std::string_view beginning, std::string_view ending) {
  std::string pattern = (folder / std::string(beginning).append("XXXXXX").append(ending)).native();
  const int file = mkstemps(pattern.data(), static_cast<int>(ending.size()));
  if (file < 0) throw failureOf(errno, fromUtf8(folder.native()));
  close(file);
  path_ = pattern;
}

PassingFile::~PassingFile() {
  std::error_code ignored;
  if (passing_) fs::remove(path_, ignored);
}

PassingFolder::PassingFolder() {
  const fs::path folder = fs::temp_directory_path();
  std::string pattern = (folder / "agencia-XXXXXX").native();
  if (!mkdtemp(pattern.data())) throw failureOf(errno, fromUtf8(folder.native()));
  path_ = pattern;
}

PassingFolder::~PassingFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

}  // namespace ovalia::system
