#pragma once

#include <vector>

#include "host/SampleData.h"

namespace ovalia::host {

// The templates that the made-up agency begins with: some to attach documents from, and some for each kind of
// annotation to print. RTF, so that any word processor opens them, under the ending that the cards look for.
std::vector<SampleFile> sampleTemplates();

// A page of the sample as RTF: the head, to the right, the title, both of which can be missing, and the text,
// of which each line is a paragraph. A name in brackets is a mark; the first tab of a line goes to the column
// of the values.
std::string sampleDocument(TextView title, TextView text, TextView head);

}  // namespace ovalia::host
