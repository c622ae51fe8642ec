#include "host/PassingFile.h"

#include <stdlib.h>
#include <unistd.h>

#include "host/TemplateFailure.h"

namespace ovalia::host {

namespace fs = std::filesystem;

PassingFile::PassingFile(const fs::path& folder, std::string_view beginning, std::string_view ending) {
  std::string pattern = (folder / std::string(beginning).append("XXXXXX").append(ending)).native();
  const int file = mkstemps(pattern.data(), static_cast<int>(ending.size()));
  if (file < 0)
    throw TemplateFailure(u"No se puede escribir en la carpeta temporal " + fromUtf8(folder.native()) + u".");
  close(file);
  path_ = pattern;
}

PassingFile::~PassingFile() {
  std::error_code ignored;
  if (passing_) fs::remove(path_, ignored);
}

}  // namespace ovalia::host
