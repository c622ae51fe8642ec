#pragma once

#include <string>
#include <string_view>

// Whole files by their disk paths. Failures are those of failureOf; a file that could not be written whole is
// taken away again.
namespace ovalia::system {

// Copies contents and time of change, on disk when it returns. `to` must not exist: 58, also when it appears
// at the last moment. It is taken from the first moment, so that another user who looks for a free name steps
// over it; a program that is killed meanwhile leaves it unfinished.
void copyNew(const std::string& from, const std::string& to);

// Puts a copy in the place of `to`, which stays as it was until the copy is complete. 70 where both are one
// file.
void copyOver(const std::string& from, const std::string& to);

// The name of what was made in a folder is on disk when it returns, as far as its file system can say.
void syncFolderOf(const std::string& file);

// Adds to the end in one step, so that lines of several programs do not mix; makes the file where it is
// missing.
void appendBytes(const std::string& file, std::string_view bytes);

// The file then holds these bytes alone.
void writeBytes(const std::string& file, std::string_view bytes);

}  // namespace ovalia::system
