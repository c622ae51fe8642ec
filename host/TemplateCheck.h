#pragma once

#include <filesystem>

#include "platform/Text.h"

// What an author, or who chooses a template, wants to know of it.
namespace ovalia::host {

struct TemplateReport {
  bool good = false;  // it can be filled, has marks, and no bookmark that is none
  Text text;          // lines that say so, or what is wrong
};

// Never fails: a template that cannot be read is a report too.
TemplateReport checkTemplate(const std::filesystem::path& file);

// In a line, which marks a template fills; only looks at what needs no conversion. Never fails either.
Text templateSummary(const std::filesystem::path& file);

}  // namespace ovalia::host
