#pragma once

#include "tests/exchange/PassedMarks.h"

namespace ovalia {

// Tests of documents made from templates: the chooser of outside is played, and says what the test tells it.
class TemplatesTest : public PassedMarks {
 protected:
  void SetUp() override {
    PassedMarks::SetUp();
    here.objects.add(u"Perlaz.CPerlaz", [this] {
      ++choosersMade;
      return chooser;
    });
    chooser->with(u"NomFich", u"Oferta").with(u"QueImprimir", folder + u"Oferta.dot");
    chooser->giving(u"Mostrar", true);
    host.answers.NuevoDoc = [this](Text&, Text&, ObjectRef& made) { made = word; };
  }

  void putTemplate(TextView inside) { here.files.putFile(folder + Text(inside), u"la plantilla"); }

  void expectNoTemplates() { expectBox(u"Plantillas inexistentes.", 64, u"Plantillas"); }

  const Text folder = agencyFolder + u"\\Plantillas\\";
  const ObjectRef word = kit::named(u"Word");
  std::shared_ptr<kit::FakeObject> chooser = std::make_shared<kit::FakeObject>();
  int choosersMade = 0;
};

}  // namespace ovalia
