// What a user has to do: cards of annotations that hang on properties and on the user, from the user's page.
#include "tests/host/TemplatesAtTheDesk.h"

namespace ovalia::host {

using deskkit::enter;
using deskkit::letters;
using deskkit::press;
using testing::ElementsAre;
using testing::SizeIs;

class UserPageAtTheDesk : public TemplatesAtTheDesk {
 protected:
  static constexpr std::int32_t user = 3;

  // The list of the user, on that annotation.
  ListPane& standingOn(TextView grid, std::int32_t key) {
    ListPane& shown = pane(grid, user, u"FichaUsuario");
    EXPECT_TRUE(shown.list().goTo(key));
    shown.followList();
    return shown;
  }
  void opensTheFirstDocument() {
    const std::size_t before = keyed.opened.size();
    tabTo(u"LsvDocu");
    press(Qt::Key_Home);
    enter();
    EXPECT_THAT(keyed.opened, SizeIs(before + 1));
  }
  void visitIsTheUsers() {
    database().Execute(
        join(u"UPDATE VisitaIP SET IdComercial = ", user, u" WHERE IdVisita = ", keyOf(visitKind)));
  }
  void noteRemindsTheUser() {
    database().Execute(join(u"UPDATE NotaIP SET Aviso = True, FechaAviso = #01/02/2027#, IdUsuarioAviso = ",
                            user, u" WHERE IdNota = ", keyOf(noteKind)));
  }
};

TEST_F(UserPageAtTheDesk, a_visit_to_a_property_is_printed_and_mailed_with_the_data_of_the_property) {
  visitIsTheUsers();
  onRow(standingOn(u"grdVisitaInm", keyOf(visitKind)), {}, [&] {
    EXPECT_TRUE(card().Caption().starts_with(join(u"Inmueble: ", property, u" - Visita: ")));
    printing(visitKind, choosing("Hoja de visita"));
    EXPECT_EQ(at("Cliente"), filledWith(u"O'Donnell «Pat», Señora"));
    EXPECT_EQ(at("Referencia"), filledWith(u"V-PEÑA"));
    letters("AE");
    EXPECT_THAT(keyed.mails, SizeIs(1));
  });
}

TEST_F(UserPageAtTheDesk, documents_of_a_visit_are_the_same_from_the_property_and_from_the_user) {
  visitIsTheUsers();
  onKind(visitKind, {file("uno.pdf", "uno")}, [] {});
  onRow(standingOn(u"grdVisitaInm", keyOf(visitKind)), {}, [&] {
    opensTheFirstDocument();
    attaching(choosing("Hoja del inmueble"));
    copied({file("tres.pdf", "tres")});
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(listed(), ElementsAre("uno.pdf", "Hoja del inmueble.doc", "tres.pdf"));
  });
  EXPECT_EQ(one(join(u"SELECT Count(*) FROM DocuVisitaIP WHERE Id = ", property)).toLong(), 3);
  EXPECT_EQ(stored(u"VisitaIP", u"NArchivos", keyOf(visitKind)).toLong(), 3);
}

TEST_F(UserPageAtTheDesk, documents_attached_to_a_reminder_belong_to_its_property) {
  noteRemindsTheUser();
  onRow(standingOn(u"grdNota", keyOf(noteKind)), {file("uno.pdf", "uno")}, [&] {
    EXPECT_TRUE(card().Caption().starts_with(join(u"Inmueble: ", property, u" - Nota: ")));
    opensTheFirstDocument();
    attaching(choosing("Hoja del inmueble"));
    EXPECT_EQ(at("Referencia"), filledWith(u"V-PEÑA"));
    EXPECT_EQ(list().count(), 2);
  });
  EXPECT_EQ(one(join(u"SELECT Count(*) FROM DocuNotaIP WHERE Id = ", property)).toLong(), 2);
}

TEST_F(UserPageAtTheDesk, documents_of_an_appointment_belong_to_the_user) {
  database().Execute(
      join(u"INSERT INTO VisitaIP (IdUsu, IdUsuario, FechaAlta, Asunto, FechaComienzo) VALUES (", user,
           u", 1, #03/08/2026 10:30:00#, 'Dentista', #03/09/2026 17:00:00#)"));
  onRow(standingOn(u"grdVisita", keyOf(visitKind)), {file("uno.pdf", "uno")}, [&] {
    EXPECT_TRUE(card().Caption().starts_with(join(u"Usuario: ", user, u" - Visita: ")));
    opensTheFirstDocument();
    attaching(choosing("Hoja del inmueble"));
    EXPECT_EQ(list().count(), 2);
  });
  EXPECT_EQ(
      one(join(u"SELECT Count(*) FROM DocuVisitaIP WHERE Id = ", user, u" AND IdNota = ", keyOf(visitKind)))
          .toLong(),
      2);
}

TEST_F(UserPageAtTheDesk, documents_of_an_appointment_made_by_a_colleague_belong_to_the_colleague) {
  database().Execute(
      u"INSERT INTO VisitaIP (IdUsu, IdComercial, IdUsuario, FechaAlta, Asunto, FechaComienzo) VALUES "
      u"(5, 3, 1, #03/08/2026 10:30:00#, 'Notaría', #03/09/2026 17:00:00#)");
  onRow(standingOn(u"grdCita", keyOf(visitKind)), {file("uno.pdf", "uno")}, [&] {
    EXPECT_TRUE(card().Caption().starts_with(u"Usuario: 5 - Visita: "));
    EXPECT_FALSE(enabled(u"ID_Aniadir"));
    opensTheFirstDocument();
    attaching(choosing("Hoja del inmueble"));
    EXPECT_EQ(list().count(), 2);
  });
  EXPECT_EQ(one(u"SELECT Count(*) FROM DocuVisitaIP WHERE Id = 5 AND IdNota = " + toText(keyOf(visitKind)))
                .toLong(),
            2);
}

}  // namespace ovalia::host
