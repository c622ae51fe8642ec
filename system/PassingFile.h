#pragma once

#include <filesystem>
#include <string_view>

// Files and folders for a while. Failures are those of failureOf.
namespace ovalia::system {

// A new empty file, for this user's eyes alone, that is gone with its owner unless it is kept.
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

// A new folder of this user's alone in the system's temporary one, that is gone with its owner and with all
// that is in it.
class PassingFolder {
 public:
  PassingFolder();
  ~PassingFolder();
  PassingFolder(const PassingFolder&) = delete;
  PassingFolder& operator=(const PassingFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace ovalia::system
