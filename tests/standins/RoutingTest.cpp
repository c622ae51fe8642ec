// Commands that end in procedures which have no effect yet.
#include <gtest/gtest.h>

#include "tests/cardkit/OpenCard.h"
#include "tests/standins/StandIns.h"

namespace ovalia {
namespace {

using kit::allKinds;
using standins::calls;
using Calls = std::vector<Text>;

class Routing : public kit::OpenCardTest {
 protected:
  forms::ListView& attachments() { return *form().as<forms::ListView>(u"LsvDocu"); }

  // A card with two attachments, the second selected, on which nothing was called yet.
  void onCardWithAttachments(TextView kind, const std::function<void()>& then) {
    openOn(kind, [&] {
      attachments().Clear();
      attachments().Add({u"120F00.doc", u"Contrato.doc", u"doc"});
      attachments().Add({u"120F01.pdf", u"Plano.pdf", u"win"});
      attachments().select(2);
      calls().clear();
      then();
    });
  }
};

TEST_F(Routing, every_command_reaches_its_procedure_with_its_arguments) {
  const struct {
    TextView group, id, call;
  } rows[] = {
      {u"Archivo", u"ID_Imprimir", u"ImprimirNota()"},
      {u"Archivo", u"ID_EMail", u"EMailNota()"},
      {u"Archivo", u"ID_ExportarNotas", u"ExportarNota()"},
      {u"Archivo", u"ID_ExportarVisita", u"ExportarVisita()"},
      {u"Documentos", u"ID_Plantilla", u"AdjuntarPlantilla(True)"},
      {u"Documentos", u"ID_Modelo", u"AdjuntarModelo(True)"},
      {u"Documentos", u"ID_CrearModelo", u"CrearModelo(120F01.pdf, Plano.pdf)"},
  };
  for (const TextView kind : allKinds) {
    for (const auto& row : rows) {
      onCardWithAttachments(kind, [&] {
        command(row.group, row.id);
        EXPECT_EQ(calls(), Calls{Text(row.call)}) << toUtf8(row.group) << " " << toUtf8(row.id);
      });
    }
  }
}

TEST_F(Routing, commands_that_are_empty_or_unknown_reach_none) {
  onCardWithAttachments(u"Nota", [&] {
    for (const TextView group : {u"Archivo", u"Fichas", u"Ver", u"Ayuda", u"Documentos"})
      for (const TextView id :
           {u"ID_DocumentosInexistentes", u"ID_DocumentossinrelacionconExpedientes", u"ID_mnuFichas",
            u"ID_Seleccionar", u"ID_Contenido", u"ID_AcercadelPrograma", u"ID_ImprimirLsv", u"ID_Nada", u""})
        command(group, id);
    EXPECT_EQ(calls(), Calls{});
  });
}

TEST_F(Routing, a_model_is_made_of_the_attachment_of_the_screens_form) {
  onCardWithAttachments(u"Nota", [&] {
    const auto other = kit::named(u"Otra"), itsList = kit::named(u"LsvDocu"), itsItem = kit::named(u"");
    itsItem->with(u"Key", u"77F00.doc").with(u"Text", u"Otro.doc");
    itsList->with(u"SelectedItem", itsItem);
    other->with(u"LsvDocu", itsList);
    here.screen.activeFormOf = [&]() -> ObjectRef { return other; };
    command(u"Documentos", u"ID_CrearModelo");
    EXPECT_EQ(calls(), Calls{u"CrearModelo(77F00.doc, Otro.doc)"});
  });
}

TEST_F(Routing, without_a_selection_no_model_is_made) {
  onCardWithAttachments(u"Nota", [&] {
    attachments().select(0);
    expectReport(u"dNota_Menu de CNota", failure::objectNotSet);
    command(u"Documentos", u"ID_CrearModelo");
    EXPECT_EQ(calls(), Calls{});
  });
}

}  // namespace
}  // namespace ovalia
