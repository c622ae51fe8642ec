#include "attachments/HostDialog.h"

#include "platform/Platform.h"

namespace ovalia {

namespace {

constexpr TextView section = u"Settings";

Settings& settings() { return *Platform::current().settings; }

}  // namespace

ObjectRef hostDialog(const Instance& nota) { return objectAt(nota.nota.frmBase, {u"dlgfrmbase"}); }

RememberedFolder::RememberedFolder(const Instance& nota, TextView key)
    : application_(getMember(nota.nota.cApp, u"title").toText()),
      key_(key),
      folder_(settings().get(application_, section, key_, u"C:\\")) {}

void RememberedFolder::remember(TextView folder) const {
  if (folder != folder_) settings().save(application_, section, key_, folder);
}

void tellReady(const Instance& nota) {
  const ObjectRef bar = objectAt(nota.nota.frmBase, {u"StatusBar1"});
  putMember(getMember(bar, u"Panels", {std::int32_t(1)}).toObject(), u"Text", u"Listo");
}

}  // namespace ovalia
