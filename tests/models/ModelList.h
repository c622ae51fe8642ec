#pragma once

#include <gmock/gmock.h>

#include "models/ModelListForm.h"
#include "tests/cardkit/CardTest.h"
#include "tests/cardkit/ModelTables.h"
#include "tests/kit/FakeRecordset.h"

namespace ovalia::kit {

// `ListaModelos` over four models, whose files are there but for that of the third:
//
//   1 carta.doc "Oferta de venta" Ventas, Oferta; 2 fianza.doc (no notes) Alquiler, Fianza;
//   3 perdido.doc "50%" (no subject); 4 Ñapa.doc "d'Ors | x" D'Ors
class ModelListTest : public CardTest {
 protected:
  static constexpr int yes = 6, no = 7;

  void SetUp() override;

  // SelecModelo with a subject and a sub-matter; what it gives goes into `name` and `folder`.
  void choose(const std::function<void()>& script, TextView subject = {}, TextView part = {});

  ModelListForm& form() const { return dynamic_cast<ModelListForm&>(desk.top()); }
  forms::Grid& grid() const { return *form().as<forms::Grid>(u"grdPlantilla"); }
  FakeRecordset& rows() const {
    return dynamic_cast<FakeRecordset&>(*form().as<forms::DataControl>(u"datPlantilla")->Recordset());
  }
  Text text(TextView box) const { return form().control(box)->value().text(); }
  Text caption(TextView control) const { return form().control(control)->Caption(); }
  Text active() const { return form().ActiveControl()->Name(); }

  std::vector<Text> names() const;  // of the models shown, in their order
  Text current() const { return grid().currentRow() < 0 ? u"-" : names()[size_t(grid().currentRow())]; }
  const Text& lastStatement() const { return database->opened.back(); }
  std::vector<Text> files() const { return here.files.filesBelow(models); }

  const Text models = u"\\Datos\\Agencia\\Plantillas";
  const Text wholeList =
      u"SELECT IdPlantilla, Plantilla.Nombre, Notas, Materia.Nombre As Materia, TipoMateria.Nombre As "
      u"TipoMateria FROM ((Plantilla LEFT JOIN Materia ON Plantilla.IdMateria = Materia.IdMateria)  LEFT "
      u"JOIN "
      u"TipoMateria ON Plantilla.IdTipoMateria = TipoMateria.IdTipoMateria) ";
  Text name = u"antes", folder = u"antes";
};

}  // namespace ovalia::kit
