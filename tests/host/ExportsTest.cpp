#include "host/Exports.h"

#include <gmock/gmock.h>

#include "host/VisitExport.h"
#include "routines/SqlText.h"
#include "tests/host/CalendarReader.h"
#include "tests/host/HostTest.h"

namespace ovalia::host {

using testing::ElementsAre;
using testing::HasSubstr;

class Exports : public HostTest {
 protected:
  Exports() {
    here.clock.time = {2026, 3, 9, 10, 20, 30};
    database().Execute(
        u"INSERT INTO Cliente (Alias, Tfno1, Correo) VALUES ('Ibáñez, Fermín', '600 1', 'f@cliente.es')");
    client = one(u"SELECT Max(IdCliente) FROM Cliente").toLong();
  }

  std::int32_t addVisit(TextView columns, TextView values) {
    database().Execute(u"INSERT INTO VisitaIP (IdInm, " + Text(columns) + u") VALUES (1, " + Text(values) +
                       u")");
    return one(u"SELECT Max(IdVisita) FROM VisitaIP").toLong();
  }
  std::optional<CalendarEvent> event(std::int32_t visit) {
    return visitEvent(database(), annotationTable(u"VisitaIP"), visit, 1, 2);
  }
  Text text(std::int32_t note) { return noteText(database(), annotationTable(u"NotaIP"), note); }
  void exportsVisit(std::int32_t visit) { exportVisit(workplace, annotationTable(u"VisitaIP"), visit); }

  std::int32_t client = 0;
};

TEST_F(Exports, a_visit_has_its_people_reminder_and_place) {
  database().Execute(u"UPDATE Usuario SET Tfno = '600 2', Correo = NULL WHERE IdUsuario = 1");
  const std::int32_t visit = addVisit(
      u"FechaComienzo, FechaFin, Asunto, Donde, Notas, IdCliente, IdComercial, IdComercial2, Aviso, "
      u"TiempoAviso, "
      u"Confirmada, FechaActualizacion",
      u"#03/29/26 10:00:00#, #03/29/26 11:30:00#, 'Segunda visita', 'C/ Mayor, 3', 'Con llaves', " +
          toText(client) + u", 1, 999999, 1, #12/30/1899 02:30:00#, 1, #03/01/26 09:00:00#");
  const auto made = event(visit);
  ASSERT_TRUE(made);
  EXPECT_EQ(made->uid, u"VisitaIP-" + toText(visit) + u".1.2@agencia.ovalia");
  EXPECT_EQ(event(visit)->uid, made->uid);
  EXPECT_EQ(made->start, dateFrom({2026, 3, 29, 10, 0, 0}));
  EXPECT_EQ(made->end, dateFrom({2026, 3, 29, 11, 30, 0}));
  EXPECT_EQ(made->changed, dateFrom({2026, 3, 1, 9, 0, 0}));
  EXPECT_EQ(made->summary, u"Segunda visita");
  EXPECT_EQ(made->place, u"C/ Mayor, 3");
  EXPECT_THAT(made->contacts, ElementsAre(u"Visitante: Ibáñez, Fermín, 600 1, f@cliente.es",
                                          u"Comercial: Administrador, 600 2"))
      << "a salesperson who is no more is left out";
  EXPECT_EQ(made->text,
            u"Con llaves\r\n\r\nVisitante: Ibáñez, Fermín, 600 1, f@cliente.es\r\n"
            u"Comercial: Administrador, 600 2");
  EXPECT_EQ(made->status, CalendarStatus::Confirmed);
  EXPECT_EQ(made->reminderMinutes, 150);
}

TEST_F(Exports, a_visit_with_nothing_but_a_start_lasts_an_hour) {
  const auto made = event(addVisit(u"FechaComienzo", u"#03/09/26 23:30:00#"));
  ASSERT_TRUE(made);
  EXPECT_EQ(partsOf(made->end), (DateParts{2026, 3, 10, 0, 30, 0}));
  EXPECT_EQ(made->summary, u"Visita") << "a calendar shows what it has by its title";
  EXPECT_EQ(made->place + made->text, u"");
  EXPECT_TRUE(made->contacts.empty());
  EXPECT_FALSE(made->changed);
  EXPECT_FALSE(made->reminderMinutes);
  EXPECT_EQ(made->status, CalendarStatus::Tentative);
  const auto backwards =
      event(addVisit(u"FechaComienzo, FechaFin", u"#03/09/26 10:00:00#, #03/09/26 09:00:00#"));
  EXPECT_EQ(partsOf(backwards->end), (DateParts{2026, 3, 9, 11, 0, 0}));
}

TEST_F(Exports, a_visit_is_cancelled_whatever_else_it_was) {
  EXPECT_EQ(event(addVisit(u"FechaComienzo, Confirmada, Realizada, Anulada", u"#03/09/26#, 1, 1, 1"))->status,
            CalendarStatus::Cancelled);
  const auto done = event(addVisit(u"FechaComienzo, Realizada", u"#03/09/26#, 1"));
  EXPECT_EQ(done->status, CalendarStatus::Confirmed);
  EXPECT_EQ(done->text, u"Realizada: Sí");
}

TEST_F(Exports, a_reminder_of_two_days_and_one_without_a_time) {
  EXPECT_EQ(
      event(addVisit(u"FechaComienzo, Aviso, TiempoAviso", u"#03/09/26#, 1, #01/01/1900#"))->reminderMinutes,
      2 * 24 * 60);
  EXPECT_EQ(event(addVisit(u"FechaComienzo, Aviso", u"#03/09/26#, 1"))->reminderMinutes, 0);
  EXPECT_FALSE(event(addVisit(u"FechaComienzo, Aviso, TiempoAviso", u"#03/09/26#, 0, #12/30/1899 01:00:00#"))
                   ->reminderMinutes);
}

TEST_F(Exports, a_reminder_of_an_old_row_is_what_its_card_shows) {
  const std::int32_t visit =
      addVisit(u"FechaComienzo, Aviso, TiempoAviso", u"#03/09/26#, 1, #12/30/1999 00:15:00#");
  EXPECT_EQ(event(visit)->reminderMinutes, 15);
}

TEST_F(Exports, a_file_is_stamped_with_the_worlds_time_wherever_the_computer_stands) {
  for (const auto& [zone, stamp] : {std::pair("Asia/Tokyo", "20260309T012030Z"),
                                    {"UTC", "20260309T102030Z"},
                                    {"Europe/Madrid", "20260309T092030Z"}}) {
    qputenv("TZ", zone);
    dialogs.files = {{folder.logic(u"visita.ics")}};
    exportsVisit(addVisit(u"FechaComienzo", u"#07/09/26 10:00:00#"));
    const CalendarPiece calendar = readCalendar(folder.content("visita.ics"));
    EXPECT_EQ(calendar.only("VEVENT").value("DTSTAMP"), stamp);
    EXPECT_EQ(calendar.only("VEVENT").parameters("DTSTART"), "TZID=Europe/Madrid");
  }
  qunsetenv("TZ");
}

TEST_F(Exports, a_visit_goes_into_a_file_that_other_calendars_read) {
  const std::int32_t visit = addVisit(u"FechaComienzo, Asunto, IdCliente",
                                      u"#07/09/26 10:00:00#, 'Firma; arras', " + toText(client));
  dialogs.files = {{folder.logic(u"visita.ics")}};
  exportsVisit(visit);
  EXPECT_EQ(dialogs.question.filter, u"Calendario (*.ics)|*.ics");
  const CalendarPiece calendar = readCalendar(folder.content("visita.ics"));
  const CalendarPiece& read = calendar.only("VEVENT");
  EXPECT_EQ(read.text("SUMMARY"), "Firma; arras");
  EXPECT_EQ(read.value("DTSTART"), "20260709T100000");
  EXPECT_THAT(read.texts("CONTACT"), ElementsAre("Visitante: Ibáñez, Fermín, 600 1, f@cliente.es"));
  EXPECT_TRUE(dialogs.told.empty());
}

TEST_F(Exports, every_visit_of_the_sample_is_a_calendar) {
  const auto visits = database().OpenRecordset(
      u"SELECT IdVisita FROM VisitaIP WHERE FechaComienzo IS NOT NULL", dao::dbOpenSnapshot);
  int count = 0;
  for (; !visits->isEOF() && count < 12; visits->MoveNext(), ++count) {
    dialogs.files = {{folder.logic(u"v.ics")}};
    exportsVisit(visits->value(u"IdVisita").toLong());
    readCalendar(folder.content("v.ics"));
  }
  EXPECT_EQ(count, 12);
  for (const Text& told : dialogs.told) ADD_FAILURE() << toUtf8(told);
}

TEST_F(Exports, a_visit_without_a_start_has_no_place_in_a_calendar) {
  exportsVisit(addVisit(u"Asunto", u"'Sin fecha'"));
  exportsVisit(addVisit(u"Asunto, FechaComienzo", u"'Día cero', #12/30/1899#"));
  ASSERT_EQ(dialogs.told.size(), 2u);
  EXPECT_THAT(toUtf8(dialogs.told[0]), HasSubstr("no tiene fecha de comienzo"));
  EXPECT_EQ(dialogs.question.title, u"") << "nobody is asked for a file";
}

TEST_F(Exports, an_annotation_that_is_gone_is_told) {
  exportsVisit(999999);
  exportNote(workplace, annotationTable(u"NotaIP"), 999999);
  ASSERT_EQ(dialogs.told.size(), 2u);
  for (const Text& told : dialogs.told)
    EXPECT_EQ(told, u"Exportar: La ficha ya no existe: otro usuario la ha borrado.");
}

TEST_F(Exports, a_note_has_all_its_fields_and_the_names_of_its_documents) {
  const std::int32_t note = addNote(1, u"Llaves", *dateFrom({2026, 3, 9, 10, 20, 0}));
  database().Execute(
      u"UPDATE NotaIP SET Categorias = 'Urgente, Llaves', Aviso = 1, FechaAviso = "
      u"#03/10/26 09:30:00#, IdUsuarioAviso = 1, IdCliente = " +
      toText(client) + u", Notas = " + ComillaSQL(u"uno\r\ndós €") + u" WHERE IdNota = " + toText(note));
  for (TextView name : {u"Plano.pdf", u"Carta, 2ª.doc"})
    database().Execute(
        u"INSERT INTO DocuNotaIP (Id, IdAgencia, IdNota, NombreOrg, NombreArch) VALUES (1, 1, " +
        toText(note) + u", " + ComillaSQL(name) + u", '1F900.doc')");
  EXPECT_EQ(toUtf8(text(note)),
            "Asunto: Llaves\r\nAutor: Administrador\r\nFecha: 09/03/2026 10:20:00\r\n"
            "Categorías: Urgente, Llaves\r\nCliente: Ibáñez, Fermín\r\n"
            "Aviso: 10/03/2026 9:30:00 para Administrador\r\n\r\nuno\r\ndós €\r\n\r\n"
            "Documentos:\r\n  Plano.pdf\r\n  Carta, 2ª.doc\r\n");
}

TEST_F(Exports, a_note_leaves_out_what_it_has_not) {
  const std::int32_t note = addNote(1, u"Llaves", *dateFrom({2026, 3, 9, 10, 20, 0}));
  EXPECT_EQ(toUtf8(text(note)), "Asunto: Llaves\r\nAutor: Administrador\r\nFecha: 09/03/2026 10:20:00\r\n");
}

TEST_F(Exports, a_file_that_is_there_is_replaced_whole) {
  folder.putFile("nota.txt", std::string(10000, 'x'));
  dialogs.files = {{folder.logic(u"nota.txt")}};
  exportTo(workplace, {u"Exportar nota", u"", {}, u""}, u"Año €\r\n");
  EXPECT_EQ(folder.content("nota.txt"), "Año €\r\n");
}

TEST_F(Exports, a_file_that_cannot_be_written_stays_as_it_was_and_the_user_is_told) {
  folder.putFile("nota.txt", "antes");
  folder.putFolder("carpeta");
  for (TextView target : {u"no\\hay\\nota.txt", u"carpeta"}) {
    dialogs.files = {{folder.logic(target)}};
    exportTo(workplace, {u"Exportar nota", u"", {}, u""}, u"después");
  }
  ASSERT_EQ(dialogs.told.size(), 2u);
  EXPECT_THAT(toUtf8(dialogs.told[0]), HasSubstr("No se ha podido escribir el fichero"));
  EXPECT_EQ(folder.content("nota.txt"), "antes");
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path() / "carpeta"))
    files += entry.exists();
  EXPECT_EQ(files, 0u) << "nothing half-made is left";
}

}  // namespace ovalia::host
