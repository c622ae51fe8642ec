#pragma once

#include <filesystem>
#include <fstream>

#include "platform/Text.h"

namespace ovalia::host {

// The transcript of a tour, "transcript.txt" of its folder, and whether all went as expected so far.
class TourBook {
 public:
  explicit TourBook(const std::filesystem::path& folder);

  void chapter(TextView title);
  void step(TextView what);
  void line(TextView text);

  // Writes down what is expected, and that it is so or that it is not.
  void check(bool holds, TextView expected);
  void fail(TextView what);

  // The last line. True when nothing failed and all of it is on the disk.
  bool close();

 private:
  void write(TextView line);

  std::ofstream file_;
  int steps_ = 0;
  int failures_ = 0;
};

}  // namespace ovalia::host
