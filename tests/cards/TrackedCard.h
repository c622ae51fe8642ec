#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "cards/EditTracking.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia::kit {

// A card whose edits are looked at from inside.
class TrackedCard : public CardTest {
 protected:
  void focus(TextView control) { user.enters(control); }
  void setState(std::int32_t value) { instance.EstadoFicha = value; }

  // As if the control had just been entered on a clean card.
  void track(TextView control) {
    setState(limpia);
    form().control(control)->Tag = HacerAlgo;
  }

  forms::ControlRef ref(TextView control) const { return form().control(control); }

  // Opens such a card and puts it away afterwards, changed or not.
  void with(TextView tipo, Fields fields, const std::function<void()>& script) {
    openCard(tipo, std::move(fields), [&] {
      script();
      putAway();
    });
  }
};

}  // namespace ovalia::kit
