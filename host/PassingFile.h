#pragma once

#include <filesystem>
#include <string_view>

namespace ovalia::host {

// A new empty file, for this user's eyes alone, that is gone with its owner unless it is kept.
// TemplateFailure where the folder cannot be written to.
class PassingFile {
 public:
  // Its name begins and ends so.
  explicit PassingFile(const std::filesystem::path& folder = std::filesystem::temp_directory_path(),
                       std::string_view beginning = "agencia-", std::string_view ending = {});
  ~PassingFile();
  PassingFile(const PassingFile&) = delete;
  PassingFile& operator=(const PassingFile&) = delete;

  const std::filesystem::path& path() const { return path_; }
  void keep() { passing_ = false; }

 private:
  std::filesystem::path path_;
  bool passing_ = true;
};

}  // namespace ovalia::host
