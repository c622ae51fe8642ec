// Documents from templates as a user of the agency gets them: from the command on a card or over a list to
// the finished file.
#include <gmock/gmock.h>

#include <set>

#include "desktop/TemplatePicking.h"
#include "host/BulkFile.h"
#include "host/DocumentMarks.h"
#include "host/RtfTemplate.h"
#include "platform/Platform.h"
#include "routines/ModuleValues.h"
#include "system/FileSystem.h"
#include "tests/host/CardsOverAgency.h"
#include "tests/host/TestDisk.h"

namespace ovalia::host {

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;

class TemplatesOverAgency : public CardsOverAgency {
 protected:
  using Names = std::set<Text>;

  TemplatesOverAgency() {
    folder.putFolder("tmp");
    moduleValues().ErrLogPath = here.files.temporary + u"ErrLog.txt";
    here.platform.files = &disk;
    makeSampleDocuments(workplace.agency.documents);
    desktop::TemplatePicking::current() = {};
    here.objects.add(u"Perlaz.CPerlaz", [this] { return chooser(); });
    open(u"FichaInm");
  }
  ~TemplatesOverAgency() override { here.platform.files = &here.files; }

  // A user who takes the template of that name.
  ObjectRef chooser() {
    auto made = std::make_shared<MemberTable>();
    made->value(u"HayDonde", false).value(u"HayCual", false).value(u"NomFich", wanted);
    made->method(u"Mostrar", [this](Arguments arguments) -> Variant {
      mask = arguments[0].toText();
      return true;
    });
    made->property(u"QueImprimir", [this](Arguments) -> Variant { return replaceAll(mask, u"*", wanted); });
    return made;
  }

  // What the last document that was opened holds; and there in the place of a mark.
  std::string opened() const {
    std::ifstream file(toUtf8(dialogs.opened.back()), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  std::string at(const std::string& bookmark) const {
    const std::string text = opened(), start = "{\\*\\bkmkstart " + bookmark + "}";
    const auto from = text.find(start) + start.size();
    return text.substr(from, text.find("{\\*\\bkmkend " + bookmark + "}") - from);
  }
  static std::string filledWith(TextView text) { return "{\\uc1 " + rtfText(text) + "}"; }

  // A row of a list that has all that the marks look up.
  AnnotationList& completeRow(TextView grid, TextView condition) {
    AnnotationList& found = list(grid);
    found.recordset()->FindFirst(condition);
    EXPECT_FALSE(found.recordset()->NoMatch()) << toUtf8(grid);
    return found;
  }
  // The names of the marks that come with a print.
  Names namesFrom(AnnotationList& list, bool fromCard) {
    Names names;
    const auto connection = list.nota().PasaDatosaDoc.connect([&](Variant& marks, Variant&, ObjectRef&) {
      for (std::int32_t i = 0; i <= 60; ++i)
        if (const Text name = getMember(marks.toObject(), u"", {i}).text(); !name.empty()) names.insert(name);
    });
    if (fromCard) {
      desk.whileShown([&] { user.clicks(u"ID_Imprimir"); });
      list.openCard();
    } else {
      card->activeControl = [&] { return Text(list.design().grid); };
      list.nota().ImprimirNota();
    }
    list.nota().PasaDatosaDoc.disconnect(connection);
    return names;
  }

  TestDisk<system::FileSystem> disk{here.files, folder.logic(u"tmp\\")};
  Text wanted, mask;
};

struct Kind {
  TextView grid, condition, model;
};
constexpr Kind kinds[] = {
    {u"grdNota", u"NArchivos = 0", u"Nota interna"},
    {u"grdVisita", u"NArchivos = 0 AND IdComercial > 0 AND IdCliente > 0", u"Hoja de visita"},
    {u"grdAnuncio", u"NArchivos = 0", u"Orden de anuncio"},
    {u"grdLlamada", u"IdUsuario > 0", u"Parte de llamada"},
};

TEST_F(TemplatesOverAgency, every_mark_that_is_handed_over_is_one_that_authors_know) {
  Names onCards, inLists;
  for (const Kind& kind : kinds) {
    wanted = kind.model;
    AnnotationList& annotations = completeRow(kind.grid, kind.condition);
    onCards.merge(namesFrom(annotations, true));
    inLists.merge(namesFrom(annotations, false));
  }
  Names known;
  for (const DocumentMark& mark : documentMarks()) {
    known.emplace(mark.name);
    EXPECT_EQ(onCards.contains(Text(mark.name)), mark.source != MarkSource::list) << toUtf8(mark.name);
    EXPECT_EQ(inLists.contains(Text(mark.name)), mark.source != MarkSource::card) << toUtf8(mark.name);
  }
  onCards.merge(inLists);
  for (const Text& name : onCards) EXPECT_TRUE(known.contains(name)) << toUtf8(name);
  EXPECT_TRUE(dialogs.told.empty());
}

TEST_F(TemplatesOverAgency, a_visit_is_printed_from_its_card_with_what_stands_there) {
  wanted = u"Hoja de visita";
  AnnotationList& visits = completeRow(u"grdVisita", kinds[1].condition);
  expectBox(u"¿Desea guardar los cambios realizados en la visita?", 35, u"Guardar", 7);
  desk.whileShown([&] {
    user.types(u"txtNotas", u"Peña:\r\nle gusta");
    user.clicks(u"ID_Imprimir");
    EXPECT_EQ(at("Cliente"), filledWith(shown(u"txtCliente")));
    EXPECT_EQ(at("Cliente2"), filledWith(shown(u"txtCliente")));
    EXPECT_EQ(at("Ubicaci\\'f3n"), filledWith(shown(u"txtUbicacion")));
    EXPECT_EQ(at("Notas"), "{\\uc1 Pe\\u241?a:\\line le gusta}");
  });
  visits.openCard();
  EXPECT_EQ(mask, logicPath(fromUtf8(workplace.agency.documents.string())) + u"\\Plantillas\\Visita\\*.dot");
  EXPECT_EQ(at("Referencia"), filledWith(card->rows()->value(u"Referencia").text()));
  EXPECT_EQ(at("Referencia2"), at("Referencia"));
  EXPECT_THAT(opened(), Not(HasSubstr("[")));
  EXPECT_TRUE(dialogs.opened.back().starts_with(fromUtf8((folder.path() / "tmp").string())));
}

TEST_F(TemplatesOverAgency, a_row_of_a_list_is_printed_without_its_card) {
  wanted = u"Hoja de visita";
  AnnotationList& visits = completeRow(u"grdVisita", kinds[1].condition);
  card->activeControl = [] { return Text(u"grdVisita"); };
  visits.nota().ImprimirNota();
  EXPECT_EQ(at("Cliente"), filledWith(visits.recordset()->value(u"Cliente").text()));
  EXPECT_EQ(at("Ubicaci\\'f3n"), filledWith(visits.recordset()->value(u"Donde").text()));
  EXPECT_TRUE(dialogs.told.empty());
}

TEST_F(TemplatesOverAgency, a_letter_from_a_template_is_attached_and_opened) {
  wanted = u"Carta al propietario";
  AnnotationList& notes = completeRow(u"grdNota", kinds[0].condition);
  const std::int32_t key = notes.currentKey();
  desk.whileShown([&] {
    notes.nota().AdjuntarPlantilla();
    EXPECT_EQ(at("Asunto"), filledWith(shown(u"txtAsunto")));
    EXPECT_EQ(at("Notas"), "");
  });
  notes.openCard();
  const Text name = one(u"SELECT NombreArch FROM DocuNotaIP WHERE IdNota = " + toText(key)).text();
  EXPECT_TRUE(fs::exists(workplace.agency.documents / "Doc0" / toUtf8(name))) << toUtf8(name);
  EXPECT_TRUE(dialogs.opened.back().ends_with(u"/Doc0/" + name));
  EXPECT_TRUE(dialogs.told.empty());
}

TEST_F(TemplatesOverAgency, a_damaged_template_leaves_no_file_and_is_told) {
  wanted = u"Rota";
  std::ofstream(workplace.agency.documents / "Plantillas" / "Nota" / "Rota.dot") << "{\\rtf1 ";
  AnnotationList& notes = completeRow(u"grdNota", kinds[0].condition);
  card->activeControl = [] { return Text(u"grdNota"); };
  notes.nota().ImprimirNota();
  ASSERT_EQ(dialogs.told.size(), 1u);
  EXPECT_THAT(toUtf8(dialogs.told[0]), HasSubstr("Imprimir: La plantilla está dañada"));
  EXPECT_TRUE(dialogs.opened.empty());
  EXPECT_TRUE(fs::is_empty(folder.path() / "tmp"));
}

}  // namespace

}  // namespace ovalia::host
