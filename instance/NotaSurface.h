#pragma once

#include <cstdint>

#include "platform/Event.h"
#include "platform/Object.h"
#include "platform/Text.h"
#include "platform/Variant.h"
#include "platform/dao.h"

namespace ovalia {

// The properties and events of a CNota. Properties are plain stored values: nothing is validated, nothing
// happens on a change. All are set before the first card opens. Paths may be in the system's form.
struct NotaSurface {
  bool DosComerciales = false;  // a visit can have two salespeople
  ObjectRef cApp;               // the host's application object; its `title` is the settings' first key
  ObjectRef frmBase;            // the host's main form: ActiveForm, StatusBar1, dlgfrmbase
  Text AppDirUser;              // root folder of the user's data, without a separator at the end
  Text cUsuario;                // `Nombre` of the user who works, in table Usuario
  Text Cabecera;                // beginning of a card's title; the parent's number follows at once
  std::int32_t IdAgencia = 0;   // for new rows, where the list has the column
  std::int32_t NAgencia = 0;    // likewise
  Text Tipo;                    // "Nota", "Visita", "Anuncio" or "Llamada", to the letter
  Text Nota;                    // table of the annotations of this list
  Text IdPr;                    // name of its column that holds the parent's id
  std::int32_t IdAnota = 0;     // above 0: the key that a new annotation must take
  Text TipoNota;                // the host's own; nothing here reads it
  Text TipoAccNota;             // table of the access types; its column Nombre fills the list
  Text DocuAsoc;                // table of the attachments of this list

  // The host's open, updatable recordset of the list. It is moved, edited and deleted from while a card is
  // up, and read afresh after every event, so that the host may put another in its place.
  dao::RecordsetRef crs;

  // The card may create further annotations. An annotation created with a preset key turns it off for good.
  bool bPermitirCreacion = false;

  // Raised on the caller's thread while a card is up. Reference arguments carry the host's answer back; they
  // start as "", false or nothing, and an answer is taken as it stands.
  Event<Text&> AbrirDoc;                     // full path of a stored document to open
  Event<Text&, Text&, ObjectRef&> NuevoDoc;  // document to make, template, word-processor object in return
  Event<> ImportarCorreos;
  Event<std::int32_t> ExportarNotas;                    // key of the annotation
  Event<std::int32_t> ExportarVisitas;                  // key of the annotation
  Event<Variant&, Variant&, ObjectRef&> PasaDatosaDoc;  // marks, values, word-processor object
  Event<Variant&, Variant&> PasaDatosEMail;             // marks, values
  Event<Text&, Text&> CargaRegistros;  // kind, table: refresh `crs` so that it holds the new row
  Event<Text&, dao::RecordsetRef&>
      CompletarNueva;  // kind, `crs` on the new row. The card's first save writes
                       // every control over it; of a visit Asunto and Donde stay
  Event<const Text&, Text&> VerAgencias;
  Event<const Text&, Text&, bool&> ChkAgencias;
  Event<const Text&, Text&> VerClientes;
  Event<const Text&, Text&, bool&> ChkClientes;
  Event<bool&, ObjectRef, const Text&, const Text&> ChkListadoMx;    // ok, control, table, title
  Event<Text&, const Text&, const Text&, const Text&> VerListadoMx;  // answer, value, table, title
  Event<bool&, const Text&, Text&> ChkTipoAccNota;                   // ok, value, new value
  Event<bool&, const Text&, Text&> VerMateria;                       // ok, initial, final value
  Event<bool&, const Variant&, const Text&, Text&> VerTMateria;      // ok, subject, initial, final value
  Event<const Text&, Text&> VerUsuarios;
};

}  // namespace ovalia
