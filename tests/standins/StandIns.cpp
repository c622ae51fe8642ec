#include "tests/standins/StandIns.h"

#include "models/ModelList.h"

namespace ovalia {

namespace standins {

std::vector<Text>& calls() {
  static std::vector<Text> journal;
  return journal;
}

ChosenModel& chosenModel() {
  static ChosenModel chosen;
  return chosen;
}

namespace {

void note(TextView procedure, TextView arguments = {}) {
  calls().push_back(join(procedure, u"(", arguments, u")"));
}

}  // namespace
}  // namespace standins

using standins::note;

void SelecModelo(Instance&, const Text& Materia, const Text& TMateria, const Text& folder, Text& name,
                 Text& chosenFolder) {
  note(u"SelecModelo", join(Materia, u", ", TMateria, u", ", folder));
  name = standins::chosenModel().name;
  chosenFolder = standins::chosenModel().folder;
}

}  // namespace ovalia
