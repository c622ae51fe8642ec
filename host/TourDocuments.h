#pragma once

#include "host/MainWindow.h"
#include "host/TourDialogs.h"
#include "host/TourStage.h"
#include "host/TourWitness.h"

namespace ovalia::host {

// What the chapters of a tour work with.
struct TourCast {
  MainWindow& window;
  TourDialogs& dialogs;
  TourBook& book;
  TourStage& stage;
  TourWitness& witness;
  std::filesystem::path folder;  // of the tour
};

// The chapter on documents: files of many kinds are attached to the note that was created last, shown in all
// three ways, opened, renamed and removed, and the note moves with them to another property. After each step
// it tells the rows and the files that there are.
void playDocuments(const TourCast& cast, CardPage& page);

}  // namespace ovalia::host
