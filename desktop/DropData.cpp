#include "desktop/DropData.h"

#include <QUrl>

#include "desktop/QtText.h"
#include "forms/Form.h"
#include "platform/Platform.h"
#include "routines/Collection.h"

namespace ovalia::desktop {

std::vector<Text> filesOf(const QMimeData* data) {
  std::vector<Text> files;
  if (!data || !data->hasUrls()) return files;
  for (const QUrl& url : data->urls())
    if (const QString file = url.toLocalFile(); !file.isEmpty()) files.push_back(logicPath(fromQt(file)));
  return files;
}

ObjectRef dragData(const QMimeData& data) {
  auto files = std::make_shared<Collection>();
  const auto paths = filesOf(&data);
  for (const Text& path : paths) files->add(path);
  auto object = std::make_shared<MemberTable>();
  object->method(u"GetFormat", [any = !paths.empty()](Arguments arguments) -> Variant {
    if (arguments.size() != 1) throw Failure(failure::wrongArguments);
    return any && arguments[0].toLong() == Clipboard::filesFormat;
  });
  object->property(u"Files", [files](Arguments arguments) -> Variant {
    if (arguments.empty()) return files;
    return files->get(u"", arguments);
  });
  return object;
}

bool FileDrops::over(QDropEvent& event) {
  if (filesOf(event.mimeData()).empty()) return false;
  std::int32_t effect = 1;
  control_->form().userDragsOver(*control_, dragData(*event.mimeData()), effect);
  event.setDropAction(Qt::CopyAction);
  event.setAccepted(effect != 0);
  return true;
}

bool FileDrops::dropped(QDropEvent& event) {
  if (filesOf(event.mimeData()).empty()) return false;
  event.setDropAction(Qt::CopyAction);
  event.accept();
  control_->form().userDrops(*control_, dragData(*event.mimeData()));
  return true;
}

}  // namespace ovalia::desktop
