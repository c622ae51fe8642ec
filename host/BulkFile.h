#pragma once

#include <filesystem>

// Making the agency's file: schema and sample rows in one go, far faster than row by row through the model.
namespace ovalia::host {

// Writes a new database with that many annotations. The file appears under its name only when it is whole;
// what an interrupted attempt left behind is overwritten by the next. Failures carry the numbers of files
// (70, 75, 61) and a Spanish description.
void makeDatabaseFile(const std::filesystem::path& file, int annotations);

// Writes the documents of the sample under the user's data folder, where they are not yet.
void makeSampleDocuments(const std::filesystem::path& dataFolder);

}  // namespace ovalia::host
