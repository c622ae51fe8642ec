#pragma once

#include <vector>

#include "platform/Text.h"

namespace ovalia::standins {

// What was asked of the list of models that stands in this program for the real one, as
// "SelecModelo(Ventas, Arras, \Datos\Agencia)".
std::vector<Text>& calls();

// What the user chooses in it: a name and a folder, none at first.
struct ChosenModel {
  Text name, folder;
};
ChosenModel& chosenModel();

}  // namespace ovalia::standins
