#include "attachments/AttachmentList.h"

#include <algorithm>
#include <array>

#include "attachments/HostRecord.h"
#include "cards/Lookups.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr double firstWidth = 2200;

// Names of pictures that are the endings they stand for; capitals are another ending.
constexpr std::array<TextView, 7> pictures{u"doc", u"txt", u"not", u"xls", u"ppt", u"jpg", u"zip"};
constexpr TextView anyOther = u"win";

Text pictureOf(TextView shownName) {
  constexpr std::size_t length = 3;
  const TextView ending = shownName.substr(shownName.size() - std::min(shownName.size(), length));
  return Text(std::ranges::find(pictures, ending) != pictures.end() ? ending : anyOther);
}

void fill(forms::ListView& list, dao::Recordset& rows) {
  for (rows.MoveFirst(); !rows.isEOF(); rows.MoveNext()) {
    const Text shown = rows.value(u"NombreOrg").text();
    list.Add({rows.value(u"NombreArch").toText(), shown, pictureOf(shown)});
  }
}

void putCounterRight(dao::Recordset& crs) {
  crs.Edit();
  crs.setValue(u"Narchivos", std::int32_t(0));
  crs.Update();
}

// Null is not "0 or less".
bool hasNone(const Variant& counter) {
  return compareLess(counter, std::int32_t(0)).holds() || compareEqual(counter, std::int32_t(0)).holds();
}

}  // namespace

void RefrescoDocs(Instance& nota) {
  procedure(u"RefrescoDocs de CNota", [&] {
    if (!keepsAttachments(nota)) return;
    forms::CardForm& card = nota.card();
    const auto list = card.as<forms::ListView>(u"LsvDocu");
    list->Clear();
    if (nota.crs().isEOF()) return;
    if (hasNone(nota.crs().value(u"Narchivos"))) {
      CambiarVisibilidadLsvDocumentos(card, false);
    } else {
      const auto rows = database().OpenRecordset(
          join(u"SELECT * FROM ", nota.nota.DocuAsoc, u" WHERE IdNota = ", nota.crs().value(u"IdAnota")),
          dao::dbOpenSnapshot);
      if (rows->isEOF()) {
        putCounterRight(nota.crs());
        CambiarVisibilidadLsvDocumentos(card, false);
      } else {
        CambiarVisibilidadLsvDocumentos(card, true);
        fill(*list, *rows);
      }
    }
    card.Form_Resize();
  });
}

void CambiarVisibilidadLsvDocumentos(forms::CardForm& card, bool bVisible) {
  procedure(u"CambiarVisibilidadLsvDocumentos de CNota", [&] {
    const auto splitter = card.as<forms::Splitter>(u"splitDocumentos");
    const auto list = card.as<forms::ListView>(u"LsvDocu");
    const auto remember = [&] { splitter->Tag = Variant(splitter->PaneWidth()).text(); };
    if (bVisible) {
      splitter->setPaneWidth(splitter->Tag.empty() ? firstWidth : val(splitter->Tag));
      remember();
    } else {
      if (list->Visible()) remember();
      splitter->setPaneWidth(0);
    }
    list->setVisible(bVisible);
  });
}

forms::ListItem selectedAttachment(const Instance& nota) {
  const auto list = nota.card().as<forms::ListView>(u"LsvDocu");
  if (list->selectedIndex() == 0) throw Failure(failure::objectNotSet);
  return list->item(list->selectedIndex());
}

}  // namespace ovalia
