#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <stdexcept>

#include "platform/dao.h"

// Opening the agency: its file, its folder of documents, its user. Everything that can be wrong at the start
// is found here, before a window exists.
namespace ovalia::host {

// What keeps the program from starting, in words for its user.
class StartFailure : public std::runtime_error {
 public:
  explicit StartFailure(Text message) : std::runtime_error(toUtf8(message)), message(std::move(message)) {}
  const Text message;
};

// The command line: agencia [--database FILE] [--annotations N] [--tour FOLDER] [--check-template FILE]
struct StartOptions {
  std::optional<std::filesystem::path> database;
  std::optional<int> annotations;
  std::optional<std::filesystem::path> tour;
  std::optional<std::filesystem::path> templateToCheck;
  bool help = false;
};

Text usage();

// StartFailure on an unknown option, a missing value, a count that is no number from 0 to 20,000,000.
StartOptions parseOptions(std::span<const std::string> arguments);

// The file's place when none is named, in the user's data folder.
std::filesystem::path defaultDatabase();

// The folder of documents that goes with a database: its own name without extension and "-documentos".
std::filesystem::path documentsFolder(const std::filesystem::path& database);

// Finds the file or makes it: the default one at the first start, a named one when a number of annotations
// goes with it. StartFailure when a named file is not there, and when annotations are asked for a file that
// is.
std::filesystem::path prepareDatabase(const StartOptions& options);

struct Agency {
  dao::DatabaseRef database;
  std::filesystem::path file;
  std::filesystem::path documents;
  Text user;  // name in table Usuario
  std::int32_t id = 1;
  std::int32_t number = 1;
};

// Opens the file and looks whether it is an agency's, whole, writable and not locked. `user` is the name in
// the settings, "" for the first one of the table; StartFailure when there is no such user.
Agency openAgency(const std::filesystem::path& file, TextView user);

}  // namespace ovalia::host
