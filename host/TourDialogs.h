#pragma once

#include "host/QtDialogs.h"
#include "host/TourBook.h"

namespace ovalia::host {

// The dialogs of a tour: what would lead out of the program - a file dialog, another program - is answered
// and noted down here, all else comes up as ever.
class TourDialogs : public QtDialogs {
 public:
  struct Opened {
    Text path;  // in the system's form
    Text told;  // "«Plano.pdf» (1F00.pdf): application/pdf"
  };
  std::vector<Text> files;  // that the next file dialog gives, as a user's choice
  Text target;              // the same of a dialog for a file to be written
  std::vector<Opened> opened;

  std::vector<Text> openFiles(const FileQuestion& question) override;
  Text saveFile(const FileQuestion& question) override;
  bool choosePrinter() override { return false; }
  bool openFile(TextView nativePath, TextView shownName) override;
};

}  // namespace ovalia::host
