// Which procedure a command or a key reaches, told by the name under which it reports what it lacks; and what
// becomes of a new card's row on every way out.
#include <gtest/gtest.h>

#include "cards/Navigation.h"
#include "cards/Saving.h"
#include "tests/cardkit/OpenCard.h"

namespace ovalia {
namespace {

using kit::allKinds;

class DocumentCommands : public kit::OpenCardTest {
 protected:
  forms::ListView& attachments() { return *form().as<forms::ListView>(u"LsvDocu"); }
};

TEST_F(DocumentCommands, those_on_a_document_reach_their_procedures) {
  const std::pair<TextView, TextView> rows[] = {
      {u"ID_Abrir", u"AbrirDocNota de CNota"},
      {u"ID_Copiar", u"CopiarAPortapapeles de CNota"},
      {u"ID_Guardarcomo", u"GuardarComo de CNota"},
  };
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      attachments().Clear();
      for (const auto& [id, procedure] : rows) {
        expectReport(Text(procedure), failure::objectNotSet);
        command(u"Documentos", id);
      }
    });
  }
}

TEST_F(DocumentCommands, two_commands_add_a_document) {
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      host.dlgfrmbase->failing(u"ShowOpen", failure::internalError);
      for (const TextView id : {u"ID_BAdjuntar", u"ID_Documento"}) {
        expectReport(u"AdjuntarDocumento de CNota", failure::internalError);
        command(u"Documentos", id);
      }
    });
  }
}

TEST_F(DocumentCommands, a_command_and_ctrl_v_paste_and_no_other_key_does) {
  for (const TextView kind : {u"Nota", u"Visita", u"Anuncio"}) {  // a call keeps no documents here
    openOn(kind, [&] {
      host.shows(nullptr);
      for (const int mask : {0, 1, 4}) user.presses(kit::User::keyV, mask);
      for (const int code : {67, 85, 87}) user.presses(code, kit::User::ctrlKey);
      expectReport(u"PegarDePortapapeles de CNota", failure::objectNotSet);
      command(u"Documentos", u"ID_Pegar");
      for (const int mask : {2, 3, 6}) {
        expectReport(u"PegarDePortapapeles de CNota", failure::objectNotSet);
        user.presses(kit::User::keyV, mask);
      }
    });
  }
}

TEST_F(DocumentCommands, deletion_is_asked_for_in_each_of_the_groups_of_a_record) {
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      for (const TextView group : {u"Fichas", u"Ver", u"Ayuda"}) {
        expectBox(u"¿Desea borrar la ficha activa?", 36, u"Borrar", no);
        command(group, u"ID_Borrar");
      }
      EXPECT_EQ(crs().deletes, 0);
    });
  }
}

class UnwantedNewCard : public kit::OpenCardTest {
 protected:
  // Opens a card, calls it new, leaves it by one way and answers that it is not wanted.
  void leaving(TextView question, const std::function<void()>& way, const std::function<void()>& then) {
    openOn(u"Nota", [&] {
      instance.EstadoFicha = nueva;
      if (!question.empty()) expectQuestion(Text(question), no);
      way();
      EXPECT_EQ(crs().deletes, 1);
      EXPECT_EQ(crs().updates, 0);
      EXPECT_EQ(state(), limpia);
      then();
    });
  }
  static constexpr TextView wanted = u"¿Desea guardar la nueva nota?";
};

TEST_F(UnwantedNewCard, loses_its_row_in_each_move) {
  for (const auto move : {Primero, Anterior, Siguiente, Ultimo})
    leaving(
        wanted, [&] { move(instance); }, [&] { EXPECT_TRUE(form().Visible()); });
}

TEST_F(UnwantedNewCard, loses_its_row_when_asked_at_a_save) {
  leaving(
      wanted, [&] { Guardar(instance, u"Preguntar"); }, [&] { EXPECT_TRUE(form().Visible()); });
}

TEST_F(UnwantedNewCard, loses_its_row_when_undone_without_a_question) {
  leaving(
      {}, [&] { command(u"Fichas", u"ID_DeshacerCambios"); }, [&] { EXPECT_TRUE(form().Visible()); });
}

TEST_F(UnwantedNewCard, loses_its_row_when_left) {
  leaving(
      wanted, [&] { user.presses(kit::User::escape); }, [&] { EXPECT_FALSE(form().Visible()); });
  leaving(
      wanted, [&] { command(u"Archivo", u"ID_Salir"); }, [&] { EXPECT_FALSE(form().Visible()); });
}

}  // namespace
}  // namespace ovalia
