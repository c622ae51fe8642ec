#pragma once

#include "routines/SqlText.h"
#include "tests/host/DocumentsAtTheDesk.h"

namespace ovalia::host {

// A list of a kind, the menu letters that print its cards, and where its rows and documents are.
struct KindAtTheDesk {
  TextView grid;
  const char* print;
  TextView table;
  TextView documents;  // "" for a kind that has none
};
inline constexpr KindAtTheDesk kindsAtTheDesk[] = {{u"grdNota", "AP", u"NotaIP", u"DocuNotaIP"},
                                                   {u"grdVisita", "AI", u"VisitaIP", u"DocuVisitaIP"},
                                                   {u"grdAnuncio", "AP", u"AnuncioIP", u"DocuAnuncioIP"},
                                                   {u"grdLlamada", "AI", u"LlamadaAIP", u""}};
inline constexpr const KindAtTheDesk &noteKind = kindsAtTheDesk[0], &visitKind = kindsAtTheDesk[1],
                                     &advertisementKind = kindsAtTheDesk[2], &callKind = kindsAtTheDesk[3];

// A property of its own with one annotation of each kind, whose texts have accents, quotes and line ends.
class KindsAtTheDesk : public DocumentsAtTheDesk {
 protected:
  KindsAtTheDesk() {
    const std::int32_t owner = client(u"Castaño Ibáñez, Fermín", u"963 555 121", u"600 555 121");
    const std::int32_t visitor = client(u"O'Donnell «Pat», Señora", u"963 555 777", u"600 555 777");
    add(u"Inmueble", u"Referencia, Numero, Piso, Precio, GastosComu, IdPropietario, Notas",
        join(u"'V-PEÑA', '12', '3º B', 150000, 45.5, ", owner, u", ", lines));
    property = newest(u"Inmueble", u"IdInm");
    const Text of = toText(property) + u", 1, #03/08/2026 10:30:00#, ";
    add(u"NotaIP", u"IdInm, IdUsuario, FechaAlta, Asunto, Categorias, Notas",
        join(of, u"'Llaves de l''ático «B»', 'Llaves', ", lines));
    add(u"VisitaIP",
        u"IdInm, IdUsuario, FechaAlta, Asunto, Donde, FechaComienzo, FechaFin, IdCliente, IdComercial, "
        u"Confirmada, Notas",
        join(of, u"'Visita de la señora', 'C/ Colón, 4', #03/09/2026 17:00:00#, #03/09/2026 17:30:00#, ",
             visitor, u", 2, True, ", lines));
    add(u"AnuncioIP", u"IdInm, IdUsuario, FechaAlta, Donde, FechaInicio, NDias, Enviar, Notas",
        join(of, u"'Revista D''Hogar', #03/10/2026#, 15, True, ", lines));
    add(u"LlamadaAIP", u"IdAnuncio, IdUsuario, FechaAlta, Notas",
        join(newest(u"AnuncioIP", u"IdAnuncio"), u", 1, #03/08/2026 10:30:00#, ", lines));
  }

  void onKind(const KindAtTheDesk& kind, const QList<QUrl>& documents, const Keys& doing) {
    SCOPED_TRACE(toUtf8(kind.grid));
    onRow(pane(kind.grid, property), documents, doing);
  }
  // In the menu of documents; on an advertisement its letter is a button's.
  static void fromDocuments(const char* letters) {
    if (card().Name() == u"frmAnuncio") {
      deskkit::letters("V");
      deskkit::press(Qt::Key_Right);
    } else {
      deskkit::letters("D");
    }
    deskkit::letters(letters);
  }
  // Takes the first model of the list.
  static void attachingModel() {
    onForm(
        u"ListaModelos",
        [] {
          deskkit::tab(false);
          deskkit::tab(false);
          ASSERT_EQ(focused(), u"cmdAceptar");
          deskkit::press(Qt::Key_Space, Qt::NoModifier, " ");
        },
        [] { fromDocuments("DM"); });
  }
  std::int32_t keyOf(const KindAtTheDesk& kind) {
    return newest(kind.table, kindKey(annotationTable(kind.table).kind));
  }
  Variant ofProperty(TextView column) {
    return one(join(u"SELECT ", column, u" FROM Inmueble WHERE IdInm = ", property));
  }

  static constexpr TextView notes = u"Línea uno: ¿sí?\r\n.\r\nL'Eixample, 3.000 €";
  std::int32_t property = 0;

 private:
  std::int32_t client(TextView alias, TextView first, TextView second) {
    add(u"Cliente", u"Alias, Tfno1, Tfno2",
        join(ComillaSQL(alias), u", ", ComillaSQL(first), u", ", ComillaSQL(second)));
    return newest(u"Cliente", u"IdCliente");
  }
  void add(TextView table, TextView columns, TextView values) {
    database().Execute(join(u"INSERT INTO ", table, u" (", columns, u") VALUES (", values, u")"));
  }
  std::int32_t newest(TextView table, TextView key) {
    return one(join(u"SELECT Max(", key, u") FROM ", table)).toLong();
  }
  const Text lines = ComillaSQL(notes);
};

}  // namespace ovalia::host
