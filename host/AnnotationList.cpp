#include "host/AnnotationList.h"

#include "host/Answers.h"
#include "host/MailImport.h"

namespace ovalia::host {

AnnotationList::AnnotationList(const ListDesign& design, Workplace& workplace)
    : design_(design), workplace_(workplace) {}

const HostForm& AnnotationList::hangsOn() const {
  return hostForm(design_.hangsOn.empty() ? design_.form : design_.hangsOn);
}

void AnnotationList::open(std::int32_t parent) {
  if (parent == parent_) return;
  parent_ = parent;
  rows_.reset();
  if (nota_) nota_->crs.reset();
}

dao::RecordsetRef AnnotationList::recordset() {
  if (!rows_) {
    rows_ = workplace_.agency.database->OpenRecordset(query(), dao::dbOpenDynaset);
    if (nota_) nota_->crs = rows_;
  }
  return rows_;
}

dao::RecordsetRef AnnotationList::separateRecordset() {
  return workplace_.agency.database->OpenRecordset(query(), dao::dbOpenDynaset);
}

std::int32_t AnnotationList::count() { return recordset()->RecordCount(); }

void AnnotationList::reload() {
  if (!rows_) return;
  const std::int32_t key = currentKey();
  rows_->Requery();
  if (key) goTo(key);
}

std::int32_t AnnotationList::currentKey() {
  const auto rows = recordset();
  if (rows->AbsolutePosition() < 0) return 0;
  try {
    return rows->value(u"IdAnota").toLong();
  } catch (const Failure& failure) {
    if (failure.number() != dao::failure::recordDeleted) throw;
    return 0;
  }
}

bool AnnotationList::goTo(std::int32_t key) {
  const auto rows = recordset();
  rows->FindFirst(u"IdAnota = " + toText(key));
  return !rows->NoMatch();
}

CNota& AnnotationList::nota() {
  if (!nota_) {
    nota_ = std::make_unique<CNota>();
    connectAnswers(*nota_, *this, workplace_);
  }
  CNota& nota = *nota_;
  const Agency& agency = workplace_.agency;
  nota.cApp = workplace_.cApp;
  nota.frmBase = workplace_.frmBase;
  nota.AppDirUser = fromUtf8(agency.documents.native());
  nota.cUsuario = agency.user;
  nota.IdAgencia = agency.id;
  nota.NAgencia = agency.number;
  nota.Cabecera = Text(hangsOn().header);
  nota.Tipo = kindName(annotations().kind);
  nota.Nota = design_.table;
  nota.IdPr = design_.idColumn;
  nota.DocuAsoc = annotations().attachments;
  nota.TipoAccNota = u"TipoAccNota";
  nota.bPermitirCreacion = mayCreate();
  nota.crs = recordset();
  return nota;
}

void AnnotationList::openCard() {
  showing([this] { nota().AbreNota(); });
  reload();
  changed();
}

void AnnotationList::createCard() {
  showing([this] { nota().CreaNota(); });
  reload();
  changed();
}

std::int32_t AnnotationList::takeMails() {
  if (!takesMails(*this)) {
    workplace_.dialogs.tell(u"Importar correos",
                            u"Los correos se importan como notas: abra la ficha de un inmueble, de un "
                            u"expediente o de un proyecto y hágalo en su lista de notas.");
    return 0;
  }
  const std::int32_t note = importMails(workplace_, *this);
  if (note) {
    reload();
    changed();
  }
  return note;
}

}  // namespace ovalia::host
