#pragma once

#include <string>

namespace ovalia::bench {

// The file of a sample agency with that many annotations of all kinds, made once and kept in the build
// folder.
std::string hostAgencyFile(int annotations);

// A copy of it, made anew, that may be written.
std::string writableHostAgency(int annotations);

}  // namespace ovalia::bench
