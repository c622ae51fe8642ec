#pragma once

#include <vector>

#include "host/SampleData.h"

namespace ovalia::host {

// The templates that the made-up agency begins with: some to attach documents from, and some for each kind of
// annotation to print. RTF, so that any word processor opens them, under the ending that the cards look for.
std::vector<SampleFile> sampleTemplates();

}  // namespace ovalia::host
