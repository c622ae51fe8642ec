#pragma once

#include <span>

#include "instance/Instance.h"

namespace ovalia {

// What the value of `Tipo` decides.
struct Kind {
  TextView tipo;
  const forms::FormDesign& (*design)();
  CardRef Instance::*form;
  TextView keyColumn;
};

std::span<const Kind> kinds();

// The row of a kind, by exact comparison; nothing for any other text.
const Kind* kindOf(TextView tipo);

}  // namespace ovalia
