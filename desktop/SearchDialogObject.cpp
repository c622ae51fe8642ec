#include "desktop/SearchDialogObject.h"

#include <QPointer>

#include "desktop/DialogOwner.h"
#include "desktop/SearchDialog.h"
#include "platform/Failure.h"
#include "platform/Variant.h"

namespace ovalia::desktop {

namespace {

enum Row : std::int32_t { labels, names, types };

std::vector<SearchField> fieldsOf(const Variant& array) {
  const ObjectRef table = array.toObject();
  constexpr std::int32_t columnDimension = 2;
  const std::int32_t last = getMember(table, u"UBound", {columnDimension}).toLong();
  std::vector<SearchField> fields;
  for (std::int32_t column = 0; column <= last; ++column) {
    const auto cell = [&](Row row) { return getMember(table, u"", {std::int32_t(row), column}).toText(); };
    const Text label = cell(labels);
    if (!label.empty()) fields.push_back({label, cell(names), cell(types) == u"Fecha"});
  }
  if (fields.empty()) throw Failure(failure::badArgument);
  return fields;
}

void show(Object& dialog, SearchWish& wish) {
  const Variant given = dialog.get(u"VentanaJefa");
  const ObjectRef card = given.isObject() ? given.toObject() : nullptr;
  deref(card);
  if (SearchDialog* there = SearchDialog::of(card)) return there->bringToFront();
  const QPointer<SearchDialog> window =
      new SearchDialog(fieldsOf(dialog.get(u"BuscarEn")), card, wish, dialogOwner());
  window->run();
  delete window;
}

}  // namespace

ObjectRef makeSearchDialog(std::shared_ptr<SearchWish> wish) {
  auto dialog = std::make_shared<MemberTable>();
  dialog->value(u"ErrLogPath", Text()).value(u"VentanaJefa", {}).value(u"BuscarEn", {});
  dialog->method(u"Mostrar",
                 [self = std::weak_ptr<MemberTable>(dialog), wish = std::move(wish)](Arguments) -> Variant {
                   show(*self.lock(), *wish);
                   return {};
                 });
  return dialog;
}

}  // namespace ovalia::desktop
