#pragma once

#include <filesystem>

#include "host/MainWindow.h"

namespace ovalia::host {

// Plays through the program without a user: opens the first property, and from it one card of each kind, and
// writes a picture of each card and of the main window ("nota.png" ... "agencia.png") and a transcript
// ("transcript.txt") to the folder. True when every card opened and no box came up; what came up stands in
// the transcript.
bool playTour(MainWindow& window, const std::filesystem::path& folder);

}  // namespace ovalia::host
