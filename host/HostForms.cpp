#include "host/HostForms.h"

#include "host/Names.h"
#include "host/Queries.h"
#include "platform/dao.h"

namespace ovalia::host {

namespace {

using enum FieldKind;

constexpr FieldDesign propertyFields[] = {
    {u"txtReferencia", u"Referencia", u"Referencia", Shown},
    {u"txtTipoInm", u"TipoInm", u"&Tipo", Line},
    {u"txtDireccion", u"Direccion", u"&Dirección", Line},
    {u"txtNumero", u"Numero", u"Nú&mero", Line},
    {u"txtPiso", u"Piso", u"&Piso", Line},
    {u"txtPoblacion", u"Poblacion", u"P&oblación", Line},
    {u"txtPrecio", u"Precio", u"Pr&ecio", Amount},
    {u"txtGastosComu", u"GastosComu", u"Gastos com&unidad", Amount},
    {u"txtPropietario", u"Propietario", u"Propietario", Shown},
    {u"txtCaptador", u"Captador", u"Captado por", Shown},
    {u"txtObservaciones", u"Notas", u"Observacione&s", Memo, true},
};
constexpr ListColumn propertyColumns[] = {{u"Referencia", u"Referencia", 12},
                                          {u"TipoInm", u"Tipo", 17},
                                          {u"Direccion", u"Dirección", 26},
                                          {u"Numero", u"Número", 7},
                                          {u"Piso", u"Piso", 12},
                                          {u"Poblacion", u"Población", 22},
                                          {u"Precio", u"Precio", 11},
                                          {u"Propietario", u"Propietario", 28}};

constexpr FieldDesign userFields[] = {
    {u"txtNombre", u"Nombre", u"Nombre", Shown},
    {u"txtCargo", u"Cargo", u"Carg&o", Line},
    {u"txtTfno", u"Tfno", u"&Teléfono", Line},
    {u"txtCorreo", u"Correo", u"Corr&eo", Line},
    {u"txtObservaciones", u"Notas", u"Observacione&s", Memo, true},
};
constexpr ListColumn userColumns[] = {{u"Nombre", u"Nombre", 26},
                                      {u"Cargo", u"Cargo", 22},
                                      {u"Tfno", u"Teléfono", 16},
                                      {u"Correo", u"Correo", 30}};

constexpr FieldDesign caseFields[] = {
    {u"txtReferencia", u"Referencia", u"Referencia", Shown},
    {u"txtTitulo", u"Titulo", u"&Título", Line},
    {u"txtMateria", u"Materia", u"Materia", Shown},
    {u"txtTMateria", u"TMateria", u"Sub Materia", Shown},
    {u"txtCliente", u"Cliente", u"Cliente", Shown},
    {u"txtResponsable", u"Responsable", u"Responsable", Shown},
    {u"txtObservaciones", u"Notas", u"Observacione&s", Memo, true},
};
constexpr ListColumn caseColumns[] = {{u"Referencia", u"Referencia", 12},
                                      {u"Titulo", u"Título", 40},
                                      {u"Cliente", u"Cliente", 28},
                                      {u"Materia", u"Materia", 16},
                                      {u"TMateria", u"Sub Materia", 18}};

constexpr FieldDesign projectFields[] = {
    {u"txtNombre", u"Nombre", u"Nombre", Shown},
    {u"txtPoblacion", u"Poblacion", u"P&oblación", Line},
    {u"txtObservaciones", u"Notas", u"Observacione&s", Memo, true},
};
constexpr ListColumn projectColumns[] = {{u"Nombre", u"Nombre", 40}, {u"Poblacion", u"Población", 26}};

constexpr HostForm designs[] = {
    {u"FichaInm", u"ListaInm", u"Inmueble", u"IdInm", u"Inmueble: ", u"Inmueble", u"&Inmuebles",
     u"Referencia", u"Direccion", u"IdPropietario", u"Direccion",
     u"(Inmueble LEFT JOIN Cliente ON Inmueble.IdPropietario = Cliente.IdCliente) "
     u"LEFT JOIN Usuario ON Inmueble.IdUsuario = Usuario.IdUsuario",
     u"Cliente.Alias AS Propietario, Usuario.Nombre AS Captador",
     u"Inmueble.Referencia,Inmueble.Direccion,Inmueble.Poblacion,Inmueble.TipoInm,Cliente.Alias",
     propertyFields, propertyColumns},
    {u"FichaUsuario", u"ListaUsuario", u"Usuario", u"IdUsuario", u"Usuario: ", u"Usuario", u"&Usuarios",
     u"Nombre", u"Cargo", u"", u"", u"Usuario", u"", u"Usuario.Nombre,Usuario.Cargo,Usuario.Correo",
     userFields, userColumns},
    {u"FichaExpV", u"ListaExpV", u"ExpVivo", u"IdExpVivo", u"Expediente: ", u"Expediente", u"&Expedientes",
     u"Referencia", u"Titulo", u"IdCliente", u"",
     u"(((ExpVivo LEFT JOIN Cliente ON ExpVivo.IdCliente = Cliente.IdCliente) "
     u"LEFT JOIN Materia ON ExpVivo.IdMateria = Materia.IdMateria) "
     u"LEFT JOIN TipoMateria ON ExpVivo.IdTipoMateria = TipoMateria.IdTipoMateria) "
     u"LEFT JOIN Usuario ON ExpVivo.IdUsuario = Usuario.IdUsuario",
     u"Cliente.Alias AS Cliente, Materia.Nombre AS Materia, TipoMateria.Nombre AS TMateria, "
     u"Usuario.Nombre AS Responsable",
     u"ExpVivo.Referencia,ExpVivo.Titulo,Cliente.Alias,Materia.Nombre,TipoMateria.Nombre", caseFields,
     caseColumns},
    {u"FichaProy", u"ListaProy", u"Proyecto", u"IdPrincipal", u"Proyecto: ", u"Proyecto", u"&Proyectos",
     u"Nombre", u"Poblacion", u"", u"", u"Proyecto", u"", u"Proyecto.Nombre,Proyecto.Poblacion",
     projectFields, projectColumns},
};

// The key as `Id`, every column of the table, and the names that go with them.
Text selectAll(const HostForm& form) {
  const Table& design = table(form.table);
  Text fields = Text(form.table) + u"." + Text(form.key) + u" AS Id";
  for (const Column& column : design.columns) fields += u", " + Text(form.table) + u"." + Text(column.name);
  if (!form.extra.empty()) fields += u", " + Text(form.extra);
  return u"SELECT " + fields + u" FROM " + Text(form.from);
}

}  // namespace

std::span<const HostForm> hostForms() { return designs; }

const HostForm& hostForm(TextView form) {
  for (const HostForm& design : designs)
    if (design.form == form) return design;
  throw Failure(dao::failure::notInCollection);
}

Text cardQuery(const HostForm& form, std::int32_t record) {
  return selectAll(form) + u" WHERE " + Text(form.table) + u"." + Text(form.key) + u" = " + toText(record);
}

Text searchQuery(const HostForm& form, TextView wanted) {
  Text criterion;
  if (!trimBlanks(wanted).empty())
    for (const Text& column : splitValues(form.searched))
      criterion +=
          (criterion.empty() ? u" WHERE " : u" OR ") + column + u" Like " + containing(trimBlanks(wanted));
  return selectAll(form) + criterion + u" ORDER BY " + Text(form.table) + u"." + Text(form.titleField);
}

}  // namespace ovalia::host
