#include "models/ModelList.h"

namespace ovalia {

void SelecModelo(Instance&, const Text&, const Text&, const Text&, Text& name, Text& chosenFolder) {
  name.clear();
  chosenFolder.clear();
}

}  // namespace ovalia
