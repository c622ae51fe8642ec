#pragma once

#include <filesystem>

// The agency's file as a whole: made with schema and sample rows in one go, far faster than row by row
// through the model, and copied.
namespace ovalia::host {

// Writes a new database with that many annotations. The file appears under its name only when it is whole;
// what an interrupted attempt left behind is overwritten by the next. Failures carry the numbers of files
// (70, 75, 61) and a Spanish description.
void makeDatabaseFile(const std::filesystem::path& file, int annotations);

// Copies the database as it stands now, what was not yet written back to the file included. A file that is
// there is replaced. Failures as above.
void copyDatabaseFile(const std::filesystem::path& from, const std::filesystem::path& to);

// Copies a folder with all that is in it, over what is there; nothing where there is no such folder.
void copyFolder(const std::filesystem::path& from, const std::filesystem::path& to);

// Writes the documents of the sample under the user's data folder, where they are not yet.
void makeSampleDocuments(const std::filesystem::path& dataFolder);

}  // namespace ovalia::host
