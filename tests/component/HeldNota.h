#pragma once

#include <optional>

#include "component/CNota.h"

namespace ovalia {

// A component that is there before the surface of a test is made from it, and that the test may let go of.
struct HeldNota {
  std::optional<CNota> held{std::in_place};
  CNota& nota = *held;
};

}  // namespace ovalia
