#include "component/CNota.h"

#include "attachments/AddingAttachments.h"
#include "attachments/AttachmentList.h"
#include "attachments/CopyNames.h"
#include "attachments/DeletingAttachments.h"
#include "attachments/DocumentFolders.h"
#include "attachments/RegisteringAttachments.h"
#include "attachments/StoredNames.h"
#include "cards/BlankCard.h"
#include "cards/Deletion.h"
#include "cards/MovingAnnotations.h"
#include "cards/RecordToCard.h"
#include "cards/Search.h"
#include "commands/ToolState.h"
#include "component/OpenAndClose.h"
#include "instance/Instance.h"
#include "models/CreatingModels.h"
#include "models/Outputs.h"
#include "models/Templates.h"
#include "routines/ModuleValues.h"

namespace ovalia {

CNota::CNota() : instance_(std::make_unique<Instance>(*this)) {}

CNota::~CNota() { Class_Terminate(*instance_); }

void CNota::PathDB(Text path) { moduleValues().PathDB = std::move(path); }
void CNota::cgDB(dao::DatabaseRef connection) { moduleValues().cgDB = std::move(connection); }
void CNota::ErrLogPath(Text path) { moduleValues().ErrLogPath = std::move(path); }

void CNota::CreaNota() { ovalia::CreaNota(*instance_); }
void CNota::AbreNota() { ovalia::AbreNota(*instance_); }

void CNota::RefrescoFicha() { ovalia::RefrescoFicha(*instance_, u""); }
void CNota::RefrescoFicha(Text& Accion) { ovalia::RefrescoFicha(*instance_, Accion); }

void CNota::RefrescoDocs() { ovalia::RefrescoDocs(*instance_); }
void CNota::FichaLimpia() { ovalia::FichaLimpia(*instance_); }
void CNota::CambiarMenuNotas() { ovalia::CambiarMenuNotas(*instance_); }
void CNota::CrearModelo(Text& NArch, Text& NOrg) { ovalia::CrearModelo(*instance_, NArch, NOrg); }
void CNota::AdjuntarDocumento(bool NotaGrabada) { ovalia::AdjuntarDocumento(*instance_, NotaGrabada); }
void CNota::ImprimirNota() { ovalia::ImprimirNota(*instance_); }
void CNota::EMailNota() { ovalia::EMailNota(*instance_); }
void CNota::AdjuntarPlantilla(bool NotaGrabada) { ovalia::AdjuntarPlantilla(*instance_, NotaGrabada); }
void CNota::AdjuntarModelo(bool NotaGrabada) { ovalia::AdjuntarModelo(*instance_, NotaGrabada); }

bool CNota::BorrarDocNota(Text& NArch) {
  bool Preguntar = true;
  return BorrarDocNota(NArch, Preguntar);
}
bool CNota::BorrarDocNota(Text& NArch, bool& Preguntar) {
  return ovalia::BorrarDocNota(*instance_, NArch, Preguntar);
}

Text CNota::CreaPathDoc(std::int32_t Id) { return ovalia::CreaPathDoc(*instance_, Id); }

Text CNota::CreaNombreDoc(std::int32_t IdBase) {
  Text ext;
  return CreaNombreDoc(IdBase, ext);
}
Text CNota::CreaNombreDoc(std::int32_t IdBase, Text& ext) {
  return ovalia::CreaNombreDoc(*instance_, IdBase, ext);
}

bool CNota::AniadirArch(Text NOrg, Text NProg) { return ovalia::AniadirArch(*instance_, NOrg, NProg); }
Text CNota::GenerarNombreCopia(Text& nombre) { return ovalia::GenerarNombreCopia(*instance_, nombre); }
void CNota::Borrar(bool Preguntar, Text Accion) { ovalia::Borrar(*instance_, Preguntar, Accion); }

void CNota::BorrarUno() {
  std::int32_t ParamBorrar = -1;
  BorrarUno(ParamBorrar);
}
void CNota::BorrarUno(std::int32_t& ParamBorrar, Text Accion) {
  ovalia::BorrarUno(*instance_, ParamBorrar, Accion);
}

bool CNota::SemiBorrar(std::int32_t NumBorrar) { return ovalia::SemiBorrar(*instance_, NumBorrar); }
void CNota::AfterBorrar(std::int32_t NumBorrar) { ovalia::AfterBorrar(*instance_, NumBorrar); }
void CNota::TrasladaNotas(std::int32_t& NuevoId, std::int32_t& NuevoCliente) {
  ovalia::TrasladaNotas(*instance_, NuevoId, NuevoCliente);
}
void CNota::Buscar_Nota() { ovalia::Buscar_Nota(*instance_); }

}  // namespace ovalia
