#pragma once

#include <cstdint>
#include <memory>

#include "instance/NotaSurface.h"

namespace ovalia {

struct Instance;

// The annotations of one list: notes, visits, advertisements or telephone calls. The host sets the
// properties, stands `crs` on a row and calls AbreNota, or calls CreaNota for a new one; both return when the
// card has closed. Everything runs on the thread that made the object, under the platform installed there.
// What goes wrong is reported to the user and logged, and the call returns with what it had reached. A member
// throws only what fails in the report itself: after a row deleted by another user (3167) the screen's active
// form is asked to load its records again, and a card cannot.
class CNota : public NotaSurface {
 public:
  CNota();
  ~CNota();  // closes and lets go of the cards
  CNota(const CNota&) = delete;
  CNota& operator=(const CNota&) = delete;

  // One value for all objects of the thread; each stays until it is set again.
  static void PathDB(Text path);
  static void cgDB(dao::DatabaseRef connection);
  static void ErrLogPath(Text path);  // full path of the log, in either form

  void CreaNota();
  void AbreNota();

  // Shows the current row of `crs` on the card again.
  void RefrescoFicha();
  void RefrescoFicha(Text& Accion);

  // Gives the card the look of a new annotation and writes nothing. On a card that shows a record that is an
  // edit, and its next save will speak of another user's.
  void FichaLimpia();

  // Enables the document tools by the selection in the card's list and by the clipboard.
  void CambiarMenuNotas();

  // Opens the search over the list, after the host's form has settled its own unsaved work. A step of the
  // search fills the card again over changes that were not saved.
  void Buscar_Nota();

  // Attaches files that the user chooses in the main form's dialog: each is copied into the folder of the
  // record that the form on top shows or is adding, and, unless `NotaGrabada` is false, a row is written for
  // it. The form's key must be readable for a record being added too. Nothing in the tree is ever replaced,
  // and a file that was copied stays, whatever fails afterwards.
  void AdjuntarDocumento(bool NotaGrabada = true);

  // Writes the row of a file stored already, `NProg` being its stored name and `NOrg` the path or name that
  // it came by, and counts it on the current row of `crs`. True when the row went in. On an archive table a
  // row passes through the live one for an instant.
  bool AniadirArch(Text NOrg, Text NProg);

  // Folder of a record's documents below `AppDirUser`, with its final "\", made where it is missing; a free
  // stored name in it, with `ext` (a point and three more, ".doc" for any other, which is written back); a
  // name to show a copy by, which no document of `DocuAsoc` has. "" after a failure.
  Text CreaPathDoc(std::int32_t Id);
  Text CreaNombreDoc(std::int32_t IdBase);
  Text CreaNombreDoc(std::int32_t IdBase, Text& ext);
  Text GenerarNombreCopia(Text& nombre);

  // Lists the attachments of the current row of `crs` on the card again.
  void RefrescoDocs();

  // Deletes an attachment of the current row of `crs` by its stored name: the file goes to the recycle bin,
  // the counter falls by one, the row goes. False when the user, asked unless `Preguntar` is false, declines,
  // and when the file cannot be removed; true also where the counter is 0 and nothing was done.
  bool BorrarDocNota(Text& NArch);
  bool BorrarDocNota(Text& NArch, bool& Preguntar);

  // Deletes the current annotation of `crs`, asking first unless `Preguntar` is false, or the one with the
  // key `ParamBorrar`, with the attachments that an open card lists (the user is asked about those in any
  // case). `Accion` "UnLoad" hides the card. Keep to the current row while a card with attachments is open:
  // those that it lists are the ones that go, whichever annotation is deleted. They go first: when other
  // records use the annotation it stays and they are gone. While a card is being filled nothing is deleted.
  void Borrar(bool Preguntar = true, Text Accion = {});
  void BorrarUno();
  void BorrarUno(std::int32_t& ParamBorrar, Text Accion = {});

  // The steps before and after a deletion: deletes the attachments that the card lists, and says whether the
  // annotation may go; nothing.
  bool SemiBorrar(std::int32_t NumBorrar);
  void AfterBorrar(std::int32_t NumBorrar);

  // Hangs the annotations marked in `grdNota` of the form on top on another parent record and client; their
  // attachments follow into its folder. Needs the grid's SelBookmarks and Columns("IdANota").CellText, and
  // IdCliente in the table. `crs` and cards are not touched: reload what is shown. A failure ends it with
  // what was moved so far in place.
  void TrasladaNotas(std::int32_t& NuevoId, std::int32_t& NuevoCliente);

  // Attach a document from a template of "\Plantillas\" of the user's data, or a copy of a model of that
  // folder, which the user chooses. The host makes and fills the one (NuevoDoc, PasaDatosaDoc) and opens the
  // other (AbrirDoc). Unless `NotaGrabada` is false a row is written; that of a template comes before its
  // document.
  void AdjuntarPlantilla(bool NotaGrabada = true);
  void AdjuntarModelo(bool NotaGrabada = true);

  // Hands the marks of the annotation that the card shows, or of the row of the host's grid that has the
  // focus, to the host: for a document that is printed and not kept, from a template of "\Plantillas\" and
  // the kind (NuevoDoc without a path, PasaDatosaDoc), and for a mail (PasaDatosEMail).
  void ImprimirNota();
  void EMailNota();

  // Makes a model of a stored document of the current row of `crs`, by its stored name and the name it is
  // shown by: opens a form and returns when that has closed. The model is a copy in "\Plantillas\" of the
  // user's data and a row of table Plantilla.
  void CrearModelo(Text& NArch, Text& NOrg);

 private:
  std::unique_ptr<Instance> instance_;
};

}  // namespace ovalia
