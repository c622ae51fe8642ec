#include "tests/models/ModelList.h"

#include "models/ModelList.h"

namespace ovalia::kit {

void ModelListTest::SetUp() {
  CardTest::SetUp();
  putModelTables(*database);
  putModel(*database, u"carta.doc", u"Oferta de venta", 1, 11);
  putModel(*database, u"fianza.doc", Null, 2, 12);
  putModel(*database, u"perdido.doc", u"50%");
  putModel(*database, u"Ñapa.doc", u"d'Ors | x", 3);
  for (const TextView file : {u"carta.doc", u"fianza.doc", u"Ñapa.doc"})
    here.files.putFile(join(models, u"\\", file));
}

void ModelListTest::choose(const std::function<void()>& script, TextView subject, TextView part) {
  desk.whileShown(script);
  SelecModelo(instance, Text(subject), Text(part), nota.AppDirUser, name, folder);
}

std::vector<Text> ModelListTest::names() const {
  std::vector<Text> shown;
  for (std::int32_t row = 0; row < grid().Rows(); ++row) shown.push_back(grid().row(row).cells.at(1));
  return shown;
}

}  // namespace ovalia::kit
