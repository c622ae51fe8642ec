#pragma once

#include <stdexcept>

#include "platform/Text.h"

namespace ovalia::host {

// Why no document comes of a template, in words for the user who chose it.
class TemplateFailure : public std::runtime_error {
 public:
  explicit TemplateFailure(Text message) : std::runtime_error(toUtf8(message)), message(std::move(message)) {}
  const Text message;
};

}  // namespace ovalia::host
