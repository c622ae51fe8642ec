// Commands, keys and answers that end in procedures which have no effect yet.
#include <gtest/gtest.h>

#include "cards/Navigation.h"
#include "cards/Saving.h"
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
      {u"Fichas", u"ID_Borrar", u"Borrar(True, )"},
      {u"Ver", u"ID_Borrar", u"Borrar(True, )"},
      {u"Ayuda", u"ID_Borrar", u"Borrar(True, )"},
      {u"Documentos", u"ID_Abrir", u"AbrirDocNota()"},
      {u"Documentos", u"ID_Quitar", u"BorrarDocNota(120F01.pdf, True)"},
      {u"Documentos", u"ID_BAdjuntar", u"AdjuntarDocumento(True)"},
      {u"Documentos", u"ID_Documento", u"AdjuntarDocumento(True)"},
      {u"Documentos", u"ID_Plantilla", u"AdjuntarPlantilla(True)"},
      {u"Documentos", u"ID_Modelo", u"AdjuntarModelo(True)"},
      {u"Documentos", u"ID_CrearModelo", u"CrearModelo(120F01.pdf, Plano.pdf)"},
      {u"Documentos", u"ID_Copiar", u"CopiarAPortapapeles()"},
      {u"Documentos", u"ID_Pegar", u"PegarDePortapapeles()"},
      {u"Documentos", u"ID_Guardarcomo", u"GuardarComo()"},
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

TEST_F(Routing, an_attachment_is_taken_from_the_card_for_deletion_and_from_the_screens_form_for_a_model) {
  onCardWithAttachments(u"Nota", [&] {
    const auto other = kit::named(u"Otra"), itsList = kit::named(u"LsvDocu"), itsItem = kit::named(u"");
    itsItem->with(u"Key", u"77F00.doc").with(u"Text", u"Otro.doc");
    itsList->with(u"SelectedItem", itsItem);
    other->with(u"LsvDocu", itsList);
    here.screen.activeFormOf = [&]() -> ObjectRef { return other; };
    command(u"Documentos", u"ID_Quitar");
    command(u"Documentos", u"ID_CrearModelo");
    EXPECT_EQ(calls(), (Calls{u"BorrarDocNota(120F01.pdf, True)", u"CrearModelo(77F00.doc, Otro.doc)"}));
  });
}

TEST_F(Routing, without_a_selection_neither_is_reached) {
  onCardWithAttachments(u"Nota", [&] {
    attachments().select(0);
    for (const TextView id : {u"ID_Quitar", u"ID_CrearModelo"}) {
      expectReport(u"dNota_Menu de CNota", failure::objectNotSet);
      command(u"Documentos", id);
    }
    EXPECT_EQ(calls(), Calls{});
  });
}

TEST_F(Routing, ctrl_v_pastes_and_no_other_key_does) {
  for (const TextView kind : allKinds) {
    onCardWithAttachments(kind, [&] {
      for (const int mask : {0, 1, 4}) user.presses(kit::User::keyV, mask);
      for (const int code : {67, 85, 87}) user.presses(code, kit::User::ctrlKey);
      EXPECT_EQ(calls(), Calls{});
      for (const int mask : {2, 3, 6}) user.presses(kit::User::keyV, mask);
      EXPECT_EQ(calls(), Calls(3, u"PegarDePortapapeles()"));
    });
  }
}

TEST_F(Routing, a_move_drops_the_row_of_a_new_card_that_is_not_wanted) {
  for (const auto move : {Primero, Anterior, Siguiente, Ultimo}) {
    onCardWithAttachments(u"Nota", [&] {
      instance.EstadoFicha = nueva;
      expectBox(u"¿Desea guardar la nueva nota?", 35, u"Guardar", no);
      move(instance);
      EXPECT_EQ(calls(), (Calls{u"Borrar(False, Move)", u"RefrescoDocs()"}));
      EXPECT_EQ(state(), limpia);
    });
  }
}

TEST_F(Routing, undoing_drops_the_row_of_a_new_card_without_a_question_and_tells_of_one_that_stays) {
  for (const TextView kind : allKinds) {
    onCardWithAttachments(kind, [&] {
      instance.EstadoFicha = nueva;
      expectBox(u"La ficha no ha podido ser borrada.", 48);
      command(u"Fichas", u"ID_DeshacerCambios");
      EXPECT_EQ(calls(), Calls{u"Borrar(False, )"});
      EXPECT_EQ(state(), nueva);
      EXPECT_EQ(crs().updates, 0);
    });
  }
}

TEST_F(Routing, saving_with_a_question_drops_the_row_of_a_new_card_that_is_not_wanted) {
  onCardWithAttachments(u"Nota", [&] {
    instance.EstadoFicha = nueva;
    expectBox(u"¿Desea guardar la nueva nota?", 35, u"Guardar", no);
    Guardar(instance, u"Preguntar");
    EXPECT_EQ(calls(), Calls{u"Borrar(False, Save)"});
    EXPECT_EQ(state(), limpia);
    EXPECT_EQ(here.screen.pointers, (std::vector<int>{11, 0}));
  });
}

TEST_F(Routing, escape_and_leaving_drop_the_row_of_a_new_card_that_is_not_wanted) {
  for (const bool byKey : {true, false}) {
    onCardWithAttachments(u"Nota", [&] {
      instance.EstadoFicha = nueva;
      expectBox(u"¿Desea guardar la nueva nota?", 35, u"Guardar", no);
      if (byKey)
        user.presses(kit::User::escape);
      else
        command(u"Archivo", u"ID_Salir");
      EXPECT_EQ(calls(), Calls{u"Borrar(False, UnLoad)"});
      EXPECT_FALSE(form().Visible());
    });
  }
}

}  // namespace
}  // namespace ovalia
