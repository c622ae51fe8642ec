#include "exchange/AdditionalMarks.h"

#include <cmath>

#include "cards/Lookups.h"
#include "routines/Messages.h"
#include "routines/TextHelpers.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr std::int32_t okOnly = 0;
constexpr double pesetasToTheEuro = 166.386;

// Hands the row of a look-up to `use`, or tells the user that there is none.
template <class Use>
void withRow(const Text& sql, TextView missing, Use&& use) {
  const auto rows = database().OpenRecordset(sql, dao::dbOpenSnapshot);
  if (rows->isEOF())
    MostrarMensaje(missing, okOnly, u"");
  else
    use(*rows);
  rows->Close();
}

// A pair of marks of the property, and the field it comes from.
struct PropertyMark {
  std::size_t index;
  TextView name;
  TextView field;
  Text (*rule)(dao::Recordset& property, TextView field);
};

Text text(dao::Recordset& property, TextView field) { return property.value(field).text(); }

Text price(dao::Recordset& property, TextView field) { return FormatNum(property.value(field)); }

Text priceInPesetas(dao::Recordset& property, TextView field) {
  const Variant euros = property.value(field);
  return euros.isNull() ? Text() : FormatNum(std::trunc(euros.toDouble() * pesetasToTheEuro));
}

Text numberAndFloor(dao::Recordset& property, TextView field) {
  const Variant floor = property.value(u"piso");
  const Text number = property.value(field).text();
  return floor.isNull() ? number : join(number, u" - ", floor);
}

constexpr PropertyMark propertyMarks[] = {
    {27, u"Referencia", u"Referencia", text},
    {29, u"Gastos", u"GastosComu", text},
    {31, u"NotasInm", u"Notas", text},
    {33, u"Precio", u"Precio", price},
    {35, u"PrecioPts", u"Precio", priceInPesetas},
    {37, u"Numero", u"numero", numberAndFloor},
};

void propertyMarksOf(const Instance& nota, std::int32_t idInm, Marks& marks, std::int32_t& owner) {
  const ObjectRef form = getMember(nota.nota.frmBase, u"ActiveForm").toObject();
  if (!form) return;
  const ObjectRef controller = objectAt(form, {u"vClase"});
  const Text table = getMember(controller, u"tabla").toText();
  const Text key = getMember(controller, u"IdTabla").toText();
  withRow(join(u"SELECT IdPropietario, Numero, Piso, Referencia, GastosComu, Notas, Precio FROM ", table,
               u" WHERE ", key, u" = ", idInm),
          u"Error al buscar el inmueble.", [&](dao::Recordset& property) {
            const Variant found = property.value(u"idPropietario");
            if (!found.isNull()) owner = found.toLong();
            for (const PropertyMark& mark : propertyMarks)
              marks.setPair(mark.index, mark.name, mark.rule(property, mark.field));
          });
}

Text telephonesOf(std::int32_t client) {
  return join(u"SELECT Tfno1, Tfno2 FROM Cliente WHERE IdCliente = ", client);
}

void ownerMarks(std::int32_t owner, Marks& marks) {
  if (owner == 0) return;
  withRow(join(u"SELECT Alias FROM Cliente WHERE IdCliente = ", owner), u"Error al buscar el cliente.",
          [&](dao::Recordset& row) { marks.set(42, u"Propietario", text(row, u"Alias")); });
  withRow(telephonesOf(owner), u"Error al buscar el Propietario.", [&](dao::Recordset& row) {
    marks.set(43, u"PropietarioTfno2", text(row, u"Tfno2"));
    marks.set(44, u"PropietarioTfno1", text(row, u"Tfno1"));
  });
}

void clientMarks(std::int32_t client, Marks& marks) {
  if (client == 0) return;
  withRow(telephonesOf(client), u"Error al buscar el cliente.", [&](dao::Recordset& row) {
    marks.setPair(39, u"Tfno2", text(row, u"Tfno2"));
    marks.set(41, u"Tfno1", text(row, u"Tfno1"));
  });
}

}  // namespace

void CompletarDatosAdicionales(const Instance& nota, std::int32_t idInm, std::int32_t idCliente,
                               Marks& marks) {
  const auto block = [](auto&& body) { procedure(u"CompletarDatosAdicionales de CNota", body); };
  std::int32_t owner = 0;
  block([&] { propertyMarksOf(nota, idInm, marks, owner); });
  block([&] { ownerMarks(owner, marks); });
  block([&] { clientMarks(idCliente, marks); });
}

void addPropertyAndClient(const Instance& nota, dao::Recordset& rows, Marks& marks) {
  if (!ExisteControl(rows.fields(), u"IdInm") || !ExisteControl(rows.fields(), u"IdCliente")) return;
  const Variant client = rows.value(u"IdCliente");
  CompletarDatosAdicionales(nota, rows.value(u"IdInm").toLong(), client.isNull() ? 0 : client.toLong(),
                            marks);
}

}  // namespace ovalia
