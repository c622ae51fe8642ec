#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/Text.h"

namespace ovalia {

// Files on the clipboard, by "\"-separated paths. Both trap their failures and report them under their own
// names; one that fails half-way leaves the clipboard open.

// Puts files there so that a paste in the file manager copies them. False when the clipboard does not open or
// does not take them. No file at all is a failure (9).
bool ClipboardCopyFiles(std::span<const Text> archivos);

// How many files lie there, their paths into `archivos`: -1 when it holds none, 0 when it does not open;
// `archivos` stays as it is in both cases.
std::int32_t ClipboardPasteFiles(std::vector<Text>& archivos);

}  // namespace ovalia
