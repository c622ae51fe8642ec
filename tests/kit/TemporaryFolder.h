#pragma once

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/Platform.h"
#include "platform/Text.h"

namespace ovalia::kit {

// A folder on disk that goes away with its owner, whatever is in it. Its name has a blank, an accent and an
// ñ.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "Señal y árbol XXXXXX").string();
    if (!mkdtemp(pattern.data()))
      throw std::system_error(errno, std::generic_category(), "no temporary folder " + pattern);
    path_ = pattern;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

  // The logic's path of the folder, without a separator at the end, or of something in it ("a\b.doc").
  Text logic() const { return logicPath(fromUtf8(path_.string())); }
  Text logic(TextView inside) const { return logic() + u"\\" + Text(inside); }

  // By names in the system's form, below the folder. Folders on the way are made.
  void putFolder(std::string_view name) const { std::filesystem::create_directories(path_ / name); }
  void putFile(std::string_view name, std::string_view content = {}) const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary) << content;
  }
  bool has(std::string_view name) const { return std::filesystem::exists(path_ / name); }
  std::string content(std::string_view name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::filesystem::path path_;
};

}  // namespace ovalia::kit
